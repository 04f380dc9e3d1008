// The fuzz targets: what one expects of an input holds, or ends the run. FUZZ_TARGET names it.
#include <sys/stat.h>
#include <unistd.h>
#include <vexapkg/package_core.h>
#include <vexapkg/policy_text.h>
#include <vexapkg/unit_generator.h>
#include <vexasystemd/vexasystemd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <numeric>
#include <regex>

#include "intake/package_names.h"
#include "intake/unit_names.h"
#include "units/exec_quoting.h"

namespace fs = std::filesystem;
using std::string;

static const fs::path kUnits = "/run/systemd/system", kUnit = "pkgctl-fuzz.service";

static void Expect(bool holds, const char* what) {
  if (!holds) std::cerr << "does not hold: " << what << std::endl, std::abort();
}

/// A member of an archive comes out as a private file of bounded size, or nothing does.
static void CheckArchive(const string& input) {
  std::ofstream("/tmp/fuzz.vpk") << input;
  mkdir("/tmp/out", 0700);
  struct stat file;
  auto& service = VEXAPackageCore::Modules::getPackageVpkService();
  if (service.ExtractFile("/tmp/fuzz.vpk", "/tmp/out", "INFO") == 0)
    Expect(lstat("/tmp/out/INFO", &file) == 0 && file.st_mode == (S_IFREG | 0600) &&
               file.st_size <= 16 * 1024 * 1024 && unlink("/tmp/out/INFO") == 0,
           "success leaves a private regular file of bounded size");
  Expect(rmdir("/tmp/out") == 0, "nothing else is left behind");
}

/// INFO is taken as a whole or not at all, and a unit made of it has its own lines and no others.
static void CheckInfo(const string& input) {
  std::ofstream("/tmp/INFO") << input;
  VEXAPackageTool::PackageInfo info{"old", "old", {{"old"}}, {}};
  if (!VEXAPackageTool::PMSLoadPKGInfoFile("/tmp", info, nullptr, 0x40200000)) {
    Expect(info.name + info.placement == "oldold" && info.document.isNull() &&
               info.extra.prerequisiteUnits == std::set<string>{"old"},
           "a failed load leaves the record as it was");
  } else if (ProblemWithNames(info).empty()) {
    VEXAPackageTool::Service::UnitGenerator generator;
    Expect(generator.Init(info.name, "/tmp") && generator.ToFile(), "the unit is written");
    std::ifstream unit(kUnits / StartupUnitName(info.name));
    Expect(std::count(std::istreambuf_iterator<char>(unit), {}, '\n') == 14, "no line is added");
    fs::remove(kUnits / StartupUnitName(info.name));
  }
}

/// A policy is taken, or refused with the one exception that is promised.
static void CheckPolicy(const string& input) try {
  for (const auto& [name, entry] : PackageBuiltin::ParsePolicy(input))
    Expect(entry.install || input.find("false") != string::npos, "no \"false\", installed");
} catch (const std::runtime_error& error) {
  Expect(string(error.what()).starts_with("/usr/vexa/etc/builtin-policy.json: "), "its name");
}

/// The argument that systemd makes of the text between double quotes.
static string SystemdArgument(const string& text) {
  string argument;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    Expect(c >= ' ' && c <= '~' && c != '"', "one printable line, up to the closing quote");
    if (std::strchr("\\%$", c))
      Expect(text[++i] == c || (c == '\\' && text[i] == '"'), "systemd expands nothing");
    argument += text[i];
  }
  return argument;
}

/// What bash makes of a text, which must be a single word.
static string BashWord(const string& text) {
  if (!text.starts_with("$'")) {
    Expect(text.find_first_of(" \\\"'`$*?[]{}()<>|&;!#~^%") == string::npos,
           "bash expands nothing");
    return text;
  }
  string word;
  std::size_t i = 2;
  for (; text.at(i) != '\''; ++i) {
    const bool escaped = text[i] == '\\';
    if (escaped && text.at(++i) == 'x') {
      word += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      Expect(!escaped || text[i] == '\\' || text[i] == '\'', "bash knows the escape");
      word += text[i];
    }
  }
  Expect(i + 1 == text.size(), "nothing stands behind the closing quote");
  return word;
}

/// A path of any bytes, taken apart by the rules of systemd and then of bash, is what went in. Both
/// models refuse what has no place here.
static void CheckQuoting(const string& input) {
  const string path = "/.VexaUpgradePackages/" + input;
  Expect(BashWord(SystemdArgument(EscapeForExecStart(QuoteForBash(path)))) == path,
         "it comes back");
}

/// The number of links to the unit. All that there is has its place.
static int CountLinks() {
  static const std::regex places(R"(f pkgctl-fuzz\.service|d [^/]+\.(wants|requires))"
                                 R"(|l [^/]+\.((wants|requires)/pkgctl-fuzz\.)?service)");
  int links = 0;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(kUnits)) {
    const bool link = entry.is_symlink();
    const string kind = link ? "l " : entry.is_directory() ? "d " : "f ";
    Expect(std::regex_match(kind + string(entry.path().lexically_relative(kUnits)), places) &&
               (!link || fs::read_symlink(entry) == kUnits / kUnit),
           "only links to the unit are made, in their places");
    links += link;
  }
  return links;
}

/// Enabling a unit makes links to it in the places for links, and no more.
static void CheckUnit(const string& input) {
  fs::remove_all(kUnits);
  fs::create_directories(kUnits);
  std::ofstream(kUnits / kUnit) << input;
  const bool enabled = VEXASystemdEnableInGenerator(kUnit);
  const int links = CountLinks();
  Expect(VEXASystemdEnableInGenerator(kUnit) == enabled, "enabling again has the same result");
  Expect(CountLinks() == links, "and changes nothing");
}

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
  static const string target = std::getenv("FUZZ_TARGET");
  (target == "archive"   ? CheckArchive
   : target == "info"    ? CheckInfo
   : target == "policy"  ? CheckPolicy
   : target == "quoting" ? CheckQuoting
                         : CheckUnit)({data, size});
  return 0;
}

extern "C" std::size_t LLVMFuzzerMutate(char* data, std::size_t size, std::size_t maxSize);

/// Corrects the checksums of tar headers, without which a mutated one never gets far.
extern "C" std::size_t LLVMFuzzerCustomMutator(char* data, std::size_t size, std::size_t maxSize,
                                               unsigned) {
  size = LLVMFuzzerMutate(data, size, maxSize);
  for (char* header = data; header + 512 <= data + size; header += 512) {
    if (std::memcmp(header + 257, "ustar", 5) != 0) continue;
    std::memset(header + 148, ' ', 8);
    const auto* bytes = reinterpret_cast<unsigned char*>(header);
    std::snprintf(header + 148, 7, "%06o", std::accumulate(bytes, bytes + 512, 0U));
  }
  return size;
}

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
  string archive = input;
  for (std::size_t at = 0; at + 512 <= archive.size(); at += 512) {
    if (archive.compare(at + 257, 5, "ustar") != 0) continue;
    // With a wrong checksum no header gets far.
    archive.replace(at + 148, 8, 8, ' ');
    const auto* header = reinterpret_cast<const unsigned char*>(&archive[at]);
    std::snprintf(&archive[at + 148], 7, "%06o", std::accumulate(header, header + 512, 0U));
  }
  std::ofstream("/tmp/fuzz.vpk") << archive;
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

/// A text without its escapes. In it the `special` characters stand in the pairs `escapes` alone.
static string Unescape(const string& text, const char* special, const std::set<string>& escapes) {
  string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    Expect(text[i] >= ' ' && text[i] <= '~', "all is printable");
    const string escape = text.substr(i, 2);
    if (!std::strchr(special, text[i])) {
      plain += text[i];
    } else {
      Expect(escapes.contains(escape), "nothing is expanded, and no quote ends early");
      plain += escape == "\\x" ? char(std::stoi(text.substr(i + 2, 2), nullptr, 16)) : escape[1];
      i += escape == "\\x" ? 3 : 1;
    }
  }
  return plain;
}

/// A path of any bytes, quoted and escaped, is what went in after systemd and bash have read it.
static void CheckQuoting(const string& input) {
  const string path = "/.VexaUpgradePackages/" + input;
  string word =
      Unescape(EscapeForExecStart(QuoteForBash(path)), "\\\"%$", {"\\\\", "\\\"", "%%", "$$"});
  if (word.starts_with("$'") && word.ends_with("'"))
    word = Unescape(word.substr(2, word.size() - 3), "\\'", {"\\\\", "\\'", "\\x"});
  else
    Expect(word.find_first_of(" \\\"'`$*?[]{}()<>|&;!#~^%") == string::npos, "a plain word");
  Expect(word == path, "it comes back");
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

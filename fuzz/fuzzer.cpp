// The fuzz targets: what one expects of an input holds, or ends the run. FUZZ_TARGET names it.
#include <sys/stat.h>
#include <unistd.h>
#include <vexapkg/package_core.h>
#include <vexapkg/policy_text.h>
#include <vexapkg/unit_generator.h>
#include <vexasystemd/vexasystemd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <numeric>

#include "intake/package_names.h"
#include "intake/unit_names.h"
#include "units/exec_quoting.h"

namespace fs = std::filesystem;
using std::string;

static const string kTarget = std::getenv("FUZZ_TARGET");
static const fs::path kUnits = "/run/systemd/system", kUnit = "pkgctl-fuzz.service";

static void Expect(bool holds, const char* what) {
  if (!holds) std::cerr << "does not hold: " << what << std::endl, std::abort();
}

/// A member of an archive comes out as a private file of bounded size, or nothing does.
static void CheckArchive(const string& input) {
  std::ofstream("/tmp/fuzz.vpk") << input;
  mkdir("/tmp/out", 0700);
  auto& service = VEXAPackageCore::Modules::getPackageVpkService();
  struct stat file;
  if (service.ExtractFile("/tmp/fuzz.vpk", "/tmp/out", "INFO") == 0) {
    Expect(lstat("/tmp/out/INFO", &file) == 0 && file.st_mode == (S_IFREG | 0600) &&
               file.st_size <= 16 * 1024 * 1024,
           "success leaves a private regular file of bounded size");
    unlink("/tmp/out/INFO");
  }
  Expect(rmdir("/tmp/out") == 0, "nothing else is left behind");
}

/// INFO is taken as a whole or not at all, and a unit made of it has its own lines and no others.
static void CheckInfo(const string& input) {
  std::ofstream("/tmp/INFO") << input;
  VEXAPackageTool::PackageInfo info{"old", "old", {{"old"}}, {}};
  if (!VEXAPackageTool::PMSLoadPKGInfoFile("/tmp", info, nullptr, 0x40200000)) {
    Expect(info.name == "old" && info.placement == "old" && info.document.isNull() &&
               info.extra.prerequisiteUnits == std::set<string>{"old"},
           "a failed load leaves the record as it was");
  } else if (ProblemWithNames(info).empty()) {
    VEXAPackageTool::Service::UnitGenerator generator;
    Expect(generator.Init(info.name, "/tmp") && generator.ToFile(), "the unit is written");
    const fs::path path = kUnits / StartupUnitName(info.name);
    std::ifstream unit(path);
    string keys;
    for (string line; std::getline(unit, line);) keys += line.substr(0, line.find('=')) + " ";
    Expect(keys ==
               "[Unit] Description IgnoreOnIsolate Requires Requisite After [Service] Type "
               "RemainAfterExit ExecStart ExecStop Slice [Install] WantedBy ",
           "it has the lines that it should have");
    fs::remove(path);
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
    if ((c == '\\' || c == '%' || c == '$') && text[++i] != c)
      Expect(c == '\\' && text[i] == '"', "systemd expands nothing");
    argument += text[i];
  }
  return argument;
}

/// The words of a bash command line.
static std::vector<string> BashWords(const string& text) {
  std::vector<string> words(1);
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quoted && c == '\\' && text.at(++i) == 'x') {
      words.back() += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else if (quoted && c == '\\') {
      Expect(text[i] == '\\' || text[i] == '\'', "bash knows the escape");
      words.back() += text[i];
    } else if (quoted ? c == '\'' : text.compare(i, 2, "$'") == 0) {
      i += quoted ? 0 : 1;
      quoted = !quoted;
    } else if (!quoted && c == ' ') {
      words.emplace_back();
    } else {
      Expect(quoted || !std::strchr("\\\"'`$*?[]{}()<>|&;!#~^%", c), "bash expands nothing");
      words.back() += c;
    }
  }
  Expect(!quoted, "every quote is closed");
  return words;
}

/// Archive paths of any bytes, taken apart by the rules of systemd and then of bash, are the words
/// that went into a command. Both models refuse what has no place here.
static void CheckQuoting(const string& input) {
  const string path = "/.VexaUpgradePackages/" + input.substr(0, input.find('\0'));
  const string other = input.substr(input.find('\0') + 1).c_str();
  const string script = "install " + QuoteForBash(path) + " " + QuoteForBash(other);
  Expect(BashWords(SystemdArgument(EscapeForExecStart(script))) ==
             std::vector<string>{"install", path, other},
         "the words are those that went in");
}

static std::ptrdiff_t CheckedLinks() {
  std::ptrdiff_t links = 0;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(kUnits)) {
    const fs::path place = entry.path().lexically_relative(kUnits), type = place.extension();
    if (entry.is_symlink()) {
      Expect(fs::read_symlink(entry) == kUnits / kUnit, "a link points to the unit");
      Expect(place.has_parent_path() ? place.filename() == kUnit : type == ".service",
             "it has the unit's name, or is an alias of the same type");
      ++links;
    } else {
      Expect(entry.is_directory() ? (type == ".wants" || type == ".requires") : place == kUnit,
             "a directory is for links, and there is no other file");
    }
  }
  return links;
}

/// Enabling a unit makes links to it in the places for links, and no more.
static void CheckUnit(const string& input) {
  fs::remove_all(kUnits);
  fs::create_directories(kUnits);
  std::ofstream(kUnits / kUnit) << input;
  const bool enabled = VEXASystemdEnableInGenerator(kUnit);
  const auto links = CheckedLinks();
  Expect(VEXASystemdEnableInGenerator(kUnit) == enabled, "enabling again has the same result");
  Expect(CheckedLinks() == links, "and changes nothing");
}

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
  static const auto check = kTarget == "archive"   ? CheckArchive
                            : kTarget == "info"    ? CheckInfo
                            : kTarget == "policy"  ? CheckPolicy
                            : kTarget == "quoting" ? CheckQuoting
                                                   : CheckUnit;
  check({data, size});
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

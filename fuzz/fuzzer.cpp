// The fuzz targets: what one expects of an input holds, or ends the run. FUZZ_TARGET names it.
#include <vexapkg/package_core.h>
#include <vexapkg/policy_text.h>
#include <vexapkg/unit_generator.h>
#include <vexasystemd/vexasystemd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <numeric>
#include <regex>
#include <set>
#include <stdexcept>

#include "intake/package_names.h"
#include "intake/unit_names.h"
#include "units/exec_quoting.h"

namespace fs = std::filesystem;
using std::string;

static const fs::path kUnits = "/run/systemd/system", kUnit = "pkgctl-fuzz.service";

static void Expect(bool holds, const char* what) {
  if (!holds) throw std::logic_error(what);
}

/// A member of an archive comes out as a private file of bounded size, or nothing does.
static void Archive(const string& input) {
  string archive = input;
  for (std::size_t at = 0; at + 512 <= archive.size(); at += 512) {
    if (archive.compare(at + 257, 5, "ustar") != 0) continue;
    // With a wrong checksum no header gets far.
    archive.replace(at + 148, 8, 8, ' ');
    const auto* header = reinterpret_cast<const unsigned char*>(&archive[at]);
    std::snprintf(&archive[at + 148], 7, "%06o", std::accumulate(header, header + 512, 0U));
  }
  std::ofstream("/tmp/vpk") << archive;
  const fs::path out = "/tmp/out", info = out / "INFO";
  fs::create_directory(out);
  if (VEXAPackageCore::Modules::getPackageVpkService().ExtractFile("/tmp/vpk", out, "INFO") == 0) {
    const fs::file_status file = fs::symlink_status(info);
    Expect(fs::is_regular_file(file) && file.permissions() == fs::perms(0600) &&
               fs::file_size(info) <= 16 * 1024 * 1024 && fs::remove(info),
           "success leaves a private regular file of bounded size");
  }
  Expect(fs::is_empty(out), "nothing else is left behind");
}

/// INFO is taken as a whole or not at all, and a unit made of it has its own lines and no others.
static void Info(const string& input) {
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
static void Policy(const string& input) try {
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
    const bool escaped = std::strchr(special, text[i]);
    if (escaped) Expect(escapes.contains(text.substr(i++, 2)), "only escapes are special");
    const bool hex = escaped && text[i] == 'x';
    plain += hex ? char(std::stoi(text.substr(i + 1, 2), nullptr, 16)) : text[i];
    i += hex ? 2 : 0;
  }
  return plain;
}

/// A path of any bytes, quoted and escaped, is what went in after systemd and bash have read it.
static void Quoting(const string& input) {
  const string path = "/.VexaUpgradePackages/" + input;
  string word =
      Unescape(EscapeForExecStart(QuoteForBash(path)), "\\\"%$", {"\\\\", "\\\"", "%%", "$$"});
  if (word.starts_with("$'") && word.ends_with("'"))
    word = Unescape(word.substr(2, word.size() - 3), "\\'", {"\\\\", "\\'", "\\x"});
  else
    Expect(word.find_first_of(" \\\"'`$*?[]{}()<>|&;!#~^%") == string::npos, "a plain word");
  Expect(word == path, "it comes back");
}

/// All files and links that there are. Links lead to the unit, and have their places.
static std::set<string> Entries() {
  static const std::regex expected(R"(pkgctl-fuzz\.service|[^/]+\.(wants|requires)/)"
                                   R"(|[^/]+\.((wants|requires)/pkgctl-fuzz\.)?service -> )" +
                                   string(kUnits / kUnit));
  std::set<string> entries;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(kUnits)) {
    string text = entry.path().lexically_relative(kUnits);
    if (entry.is_symlink()) text += " -> " + string(fs::read_symlink(entry));
    if (entry.is_directory()) text += '/';
    Expect(std::regex_match(text, expected), "only links to the unit are made, in their places");
    entries.insert(text);
  }
  return entries;
}

/// Enabling a unit makes links to it in the places for links, and no more.
static void Unit(const string& input) {
  fs::remove_all(kUnits);
  fs::create_directories(kUnits);
  std::ofstream(kUnits / kUnit) << input;
  const bool enabled = VEXASystemdEnableInGenerator(kUnit);
  const auto entries = Entries();
  Expect(VEXASystemdEnableInGenerator(kUnit) == enabled && Entries() == entries,
         "enabling again changes nothing");
}

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
  using Target = std::pair<const string, void (*)(const string&)>;
  static const std::map targets{Target("archive", Archive), Target("info", Info),
                                Target("policy", Policy), Target("quoting", Quoting),
                                Target("unit", Unit)};
  targets.at(std::getenv("FUZZ_TARGET"))({data, size});
  return 0;
}

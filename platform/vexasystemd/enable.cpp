#include <unistd.h>
#include <vexacore/file.h>
#include <vexasystemd/vexasystemd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <string>
#include <string_view>

#include "install_section.h"

namespace {

const char kRuntimeUnitDir[] = "/run/systemd/system";
const std::array<const char*, 3> kSearchDirs = {"/etc/systemd/system", kRuntimeUnitDir,
                                                "/usr/lib/systemd/system"};
constexpr std::size_t kMaxUnitFileBytes = std::size_t{16} * 1024 * 1024;

std::string TypeOf(const std::string& unit) {
  const auto dot = unit.rfind('.');
  return dot == std::string::npos ? "" : unit.substr(dot);
}

/// By the rules of systemd, which the generator has in its own code as well, for the units that
/// packages name. A target can't want a template, so a template's name is refused.
bool IsUnitName(const std::string& name) {
  static constexpr std::array<std::string_view, 11> types = {
      ".automount", ".device", ".mount", ".path",   ".scope", ".service",
      ".slice",     ".socket", ".swap",  ".target", ".timer"};
  const std::string type = TypeOf(name);
  const auto at = name.find('@');
  return std::find(types.begin(), types.end(), type) != types.end() && name.size() > type.size() &&
         name.size() <= 255 && at != 0 &&
         (at == std::string::npos || at + 1 + type.size() < name.size()) &&
         name.find_first_not_of(
             "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
             ":-_.\\@") == std::string::npos;
}

/// Reads the unit that systemd would load under that name. False when there is none, or one that is
/// masked by a link to /dev/null, which is no regular file. One masked by an empty file asks for no
/// links.
bool ReadUnit(const std::string& unit, std::string& path, std::string& text) {
  int error = ENOENT;
  for (const char* dir : kSearchDirs) {
    path = std::string(dir) + "/" + unit;
    error = VexaReadFile(path, kMaxUnitFileBytes, text);
    if (error != ENOENT && error != ENOTDIR) break;
  }
  return error == 0;
}

bool PointsTo(const std::string& link, const std::string& target) {
  std::array<char, PATH_MAX> text;
  const ssize_t length = readlink(link.c_str(), text.data(), text.size());
  return length >= 0 && target == std::string(text.data(), static_cast<std::size_t>(length));
}

/// 0 when the link is there and points to `target`, else an errno value.
int MakeLink(const std::string& link, const std::string& target) {
  if (symlink(target.c_str(), link.c_str()) == 0) return 0;
  const int error = errno;
  return error == EEXIST && PointsTo(link, target) ? 0 : error;
}

bool LinkIntoDirectory(const std::string& dir, const std::string& unit, const std::string& path) {
  const std::string link = dir + "/" + unit;
  int error = MakeLink(link, path);
  if (error == ENOENT && VexaMakeDirectories(dir) == 0) error = MakeLink(link, path);
  return error == 0;
}

}  // namespace

bool VEXASystemdEnableInGenerator(const std::string& unit) {
  std::string path, text;
  if (!IsUnitName(unit) || !ReadUnit(unit, path, text)) return false;
  const InstallSection install = ParseInstallSection(text);
  bool done = !install.wantedBy.empty() || !install.requiredBy.empty() || !install.alias.empty();
  const auto linkInto = [&](const std::string& target, const char* suffix) {
    done &= IsUnitName(target) &&
            LinkIntoDirectory(std::string(kRuntimeUnitDir) + "/" + target + suffix, unit, path);
  };
  for (const std::string& target : install.wantedBy) linkInto(target, ".wants");
  for (const std::string& target : install.requiredBy) linkInto(target, ".requires");
  for (const std::string& alias : install.alias)
    done &= alias == unit || (IsUnitName(alias) && TypeOf(alias) == TypeOf(unit) &&
                              LinkIntoDirectory(kRuntimeUnitDir, alias, path));
  return done;
}

#include "intake/package_names.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

constexpr std::size_t kMaxUnitNameBytes = 255;  // UNIT_NAME_MAX of systemd, less the NUL

bool IsUnitName(std::string_view name) {
  constexpr std::array<std::string_view, 11> types = {"service", "socket",    "target", "device",
                                                      "mount",   "automount", "swap",   "timer",
                                                      "path",    "slice",     "scope"};
  const auto dot = name.rfind('.');
  if (dot == std::string_view::npos || name.size() > kMaxUnitNameBytes) return false;
  const std::string_view stem = name.substr(0, dot);
  if (stem.empty()) return false;
  const auto at =
      stem.find('@');  // what follows the first one is the instance; a template has none
  return std::find(types.begin(), types.end(), name.substr(dot + 1)) != types.end() &&
         ConsistsOfLettersDigitsAnd(":-_.\\@", stem) && at != 0 && at != stem.size() - 1;
}

}  // namespace

bool ConsistsOfLettersDigitsAnd(std::string_view others, std::string_view text) {
  return std::all_of(text.begin(), text.end(), [&](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
           others.find(c) != std::string_view::npos;
  });
}

std::string StartupUnitName(const std::string& packageName) {
  return "pkgctl-" + packageName + ".service";
}

std::string ProblemWithNames(const VEXAPackageTool::PackageInfo& info) {
  if (!ConsistsOfLettersDigitsAnd(":-_.@", info.name))
    return "package name holds more than letters, digits and : - _ . @: " + info.name;
  if (info.name.starts_with('-')) return "package name begins with -: " + info.name;
  if (info.name == "." || info.name == "..")
    return "package name is that of a folder: " + info.name;
  if (StartupUnitName(info.name).size() > kMaxUnitNameBytes)
    return "package name makes a unit name of more than 255 bytes: " + info.name;
  for (const std::string& unit : info.extra.prerequisiteUnits)
    if (!IsUnitName(unit)) return "prerequisite unit is no unit name: " + unit;
  return "";
}

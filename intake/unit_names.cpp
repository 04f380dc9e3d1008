#include "intake/unit_names.h"

#include <algorithm>
#include <array>

bool ConsistsOfLettersDigitsAnd(std::string_view others, std::string_view text) {
  return std::all_of(text.begin(), text.end(), [&](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
           others.find(c) != std::string_view::npos;
  });
}

// The platform has to know the same to enable a unit (platform/vexasystemd/enable.cpp). Neither of
// the two includes headers of the other, since the platform can be exchanged.
bool IsUnitName(std::string_view name) {
  constexpr std::array<std::string_view, 11> types = {"service", "socket",    "target", "device",
                                                      "mount",   "automount", "swap",   "timer",
                                                      "path",    "slice",     "scope"};
  const auto dot = name.rfind('.');
  if (dot == std::string_view::npos || dot == 0 || name.size() > kMaxUnitNameBytes) return false;
  const std::string_view stem = name.substr(0, dot), type = name.substr(dot + 1);
  // What follows the first @ is the instance; a template has none.
  const auto at = stem.find('@');
  return std::find(types.begin(), types.end(), type) != types.end() &&
         ConsistsOfLettersDigitsAnd(":-_.\\@", stem) && at != 0 && at != stem.size() - 1;
}

std::string StartupUnitName(const std::string& packageName) {
  return "pkgctl-" + packageName + ".service";
}

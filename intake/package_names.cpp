#include "intake/package_names.h"

#include "intake/unit_names.h"

std::string ProblemWithNames(const VEXAPackageTool::PackageInfo& info) {
  if (!ConsistsOfLettersDigitsAnd(":-_.@", info.name))
    return "package name holds more than letters, digits and : - _ . @: " + info.name;
  if (info.name.starts_with('-')) return "package name begins with -: " + info.name;
  if (info.name == "." || info.name == "..")
    return "package name is that of a directory: " + info.name;
  if (StartupUnitName(info.name).size() > kMaxUnitNameBytes)
    return "package name makes a unit name of more than 255 bytes: " + info.name;
  for (const std::string& unit : info.extra.prerequisiteUnits)
    if (!IsUnitName(unit)) return "prerequisite unit is no unit name: " + unit;
  return "";
}

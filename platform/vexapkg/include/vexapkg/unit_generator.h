#pragma once

#include <vexapkg/package_info.h>

#include <string>

namespace VEXAPackageTool::Service {

/// Writes the startup unit of one package, pkgctl-<name>.service, into /run/systemd/system.
class UnitGenerator {
 public:
  UnitGenerator();
  ~UnitGenerator();

  /// Loads INFO from the directory `dir`, where the package's conf, if it has one, lies as well;
  /// both must stay there until ToFile has returned. True when INFO could be loaded, the name in it
  /// is `name`, and that and the prerequisite units are of printable ASCII without blanks. Logs
  /// nothing.
  bool Init(const std::string& name, const std::string& dir);

  /// Writes the unit, and conf byte for byte as its drop-in conf.conf; without conf, a drop-in of
  /// that name is removed. Both are replaced as a whole or not at all. False on failure. Logs
  /// nothing. Throws what the policy throws (builtin_policy.h).
  bool ToFile() const;

 private:
  PackageInfo info_;
  std::string dir_;
};

}  // namespace VEXAPackageTool::Service

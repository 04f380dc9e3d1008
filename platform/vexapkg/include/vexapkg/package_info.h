#pragma once

#include <json/value.h>

#include <set>
#include <string>

namespace VEXAPackageTool {

struct PackageInfoExtra {
  /// Names of the systemd units that must be active before the package is installed or started.
  std::set<std::string> prerequisiteUnits;
};

/// The metadata of one package.
struct PackageInfo {
  std::string name;  ///< Package name; empty when nothing was loaded.
  /// Where the package is kept; "system" is the volume that is always there.
  std::string placement;
  PackageInfoExtra extra;
  Json::Value document;  ///< The whole INFO object, keys unknown to this library included.
};

/// Loads the file INFO in directory `dir` into `info`. The third and fourth argument belong to the
/// interface and change nothing. Returns false, with `info` as it was, when the
/// file can't be read, is longer than 1 MiB or is not of the form that platform/README.md gives.
/// Logs nothing.
bool PMSLoadPKGInfoFile(const std::string& dir, PackageInfo& info, const char*, unsigned long long);

}  // namespace VEXAPackageTool

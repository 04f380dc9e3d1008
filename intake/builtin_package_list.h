#pragma once

#include <vexapkg/builtin_policy.h>
#include <vexapkg/package_info.h>

#include <string>
#include <vector>

/// One builtin package that is installed at this boot.
struct BuiltinPackage {
  bool isHighPriority = false;
  std::string archivePath;  ///< Full path of the archive.
  std::string fileName;  ///< The archive's name in the upgrade directory, as the listing gave it.
  VEXAPackageTool::PackageInfo info;
  PackageBuiltin::BuiltinConfig config{true};
};

/// In ascending byte order of `fileName`.
using BuiltinPackageList = std::vector<BuiltinPackage>;

/// Appends a record to `list` for every ".vpk" entry of the upgrade directory whose INFO can be
/// read, whose names are safe to use (package_names.h) and which the package policy wants
/// installed. Logs a line per archive, and what keeps an archive out unless it is the policy or an
/// empty name. Throws boost::filesystem::filesystem_error, with `list` as it was, when the
/// directory can't be scanned, and what the platform throws, with the records so far in `list`.
void CollectBuiltinPackages(BuiltinPackageList& list);

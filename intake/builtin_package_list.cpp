#include "intake/builtin_package_list.h"

#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/scope_exit.hpp>
#include <set>
#include <string>
#include <utility>

#include "generator/paths.h"
#include "intake/package_archive.h"
#include "intake/package_names.h"
#include "log/kernel_log.h"

namespace {

/// The value that the library's interface expects; what it means is up to the library.
constexpr unsigned long long kLoadFlags = 0x40200000;

std::set<std::string> ListArchiveNames() {
  std::set<std::string> names;
  for (const auto& entry : boost::filesystem::directory_iterator(kUpgradePackagesDir))
    if (entry.path().extension() == ".vpk") names.insert(entry.path().filename().string());
  return names;
}

/// After a failure the record may hold anything; an empty name in it means that nothing was loaded.
VEXAPackageTool::PackageInfo LoadPackageInfo(const std::string& fileName) {
  WriteKernelLog("Load info, pkg=[%s]", fileName.c_str());
  const std::string archivePath = kUpgradePackagesDir + "/" + fileName;
  std::string tmpDir;
  VEXAPackageTool::PackageInfo info;
  BOOST_SCOPE_EXIT_ALL(&tmpDir) { RemoveTempDir(tmpDir); };
  if (!CreateTempDir(tmpDir) || !ExtractPackageFile(archivePath, "INFO", tmpDir, false) ||
      !VEXAPackageTool::PMSLoadPKGInfoFile(tmpDir, info, nullptr, kLoadFlags))
    WriteKernelLog("Failed to untar INFO file from [%s]", archivePath.c_str());
  return info;
}

}  // namespace

void CollectBuiltinPackages(BuiltinPackageList& list) {
  for (const std::string& name : ListArchiveNames()) {
    VEXAPackageTool::PackageInfo info = LoadPackageInfo(name);
    if (info.name.empty()) continue;
    if (const std::string problem = ProblemWithNames(info); !problem.empty()) {
      WriteKernelLog("Failed to accept package, pkg=[%s] reason=[%s]", name.c_str(),
                     problem.c_str());
      continue;
    }
    BuiltinPackage package;
    package.archivePath = kUpgradePackagesDir + "/" + name;
    package.fileName = name;
    package.isHighPriority = PackageBuiltin::IsHighPriorityPackage(info.name);
    package.info = std::move(info);
    if (PackageBuiltin::ShouldInstallPackage(package.info.name, package.config))
      list.push_back(std::move(package));
  }
}

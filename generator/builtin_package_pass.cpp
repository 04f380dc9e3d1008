#include "generator/builtin_package_pass.h"

#include <vexacore/vexacore.h>

#include <boost/filesystem/file_status.hpp>
#include <boost/filesystem/operations.hpp>

#include "generator/paths.h"
#include "intake/builtin_package_list.h"
#include "log/kernel_log.h"
#include "units/install_unit.h"
#include "units/startup_unit.h"

void ProcessBuiltinPackages() {
  namespace fs = boost::filesystem;
  if (fs::exists(fs::status(kInstallUnitsFlag))) return;
  if (!fs::is_directory(fs::status(kUpgradePackagesDir))) return;

  WriteKernelLog("begin processing builtin package");
  BuiltinPackageList packages;
  CollectBuiltinPackages(packages);

  WriteKernelLog("Generate builtin pkg install units");
  GenBuiltinInstallUnit(true, packages);
  GenBuiltinInstallUnit(false, packages);

  WriteKernelLog("Generate builtin pkg startup units");
  for (const BuiltinPackage& package : packages)
    GenBuiltinStartupUnit(package.archivePath, package.info, package.config.enable);

  if (VLIBCFileTouch(kInstallUnitsFlag.c_str()) != 0)
    WriteKernelLog("Failed to touch flag [%s]", kInstallUnitsFlag.c_str());
  WriteKernelLog("end processing builtin package");
}

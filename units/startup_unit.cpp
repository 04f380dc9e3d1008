#include "units/startup_unit.h"

#include <vexapkg/unit_generator.h>
#include <vexasystemd/vexasystemd.h>

#include <boost/scope_exit.hpp>

#include "intake/package_archive.h"
#include "intake/unit_names.h"
#include "log/kernel_log.h"

void GenBuiltinStartupUnit(const std::string& archivePath, const VEXAPackageTool::PackageInfo& info,
                           bool enable) {
  const std::string name = info.name;
  const std::string unitName = StartupUnitName(name);
  VEXAPackageTool::Service::UnitGenerator generator;
  std::string extractDir;
  BOOST_SCOPE_EXIT_ALL(&extractDir) { RemoveTempDir(extractDir); };

  if (!CreateTempDir(extractDir)) return;
  if (!ExtractPackageFile(archivePath, "INFO", extractDir, false)) return;
  ExtractPackageFile(archivePath, "conf", extractDir, true);
  if (!generator.Init(name, extractDir) || !generator.ToFile()) {
    WriteKernelLog("Failed to generate systemd unit, pkg=[%s]", name.c_str());
    return;
  }
  if (enable && !VEXASystemdEnableInGenerator(unitName))
    WriteKernelLog("Failed to enable unit in generator, unit=[%s]", unitName.c_str());
}

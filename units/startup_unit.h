#pragma once

#include <vexapkg/package_info.h>

#include <string>

/// Has the startup unit of one package generated from its archive's INFO and, if it has one, its
/// conf, and then, when `enable` is true, enabled. What goes wrong is logged and ends the work on
/// this package. Throws what the platform throws; the temporary directory is removed on every way
/// out.
void GenBuiltinStartupUnit(const std::string& archivePath, const VEXAPackageTool::PackageInfo& info,
                           bool enable);

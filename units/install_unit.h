#pragma once

#include "intake/builtin_package_list.h"

/// Composes the install service of one priority from the packages of that priority, writes it as
/// pkg-install-high-priority-builtin.service or pkg-install-low-priority-builtin.service and
/// enables it. Without a package of that priority the service does nothing but exist. What goes
/// wrong with writing or enabling is logged (unit_file.h) and not reported.
void GenBuiltinInstallUnit(bool highPriority, const BuiltinPackageList& packages);

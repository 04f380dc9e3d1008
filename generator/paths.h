#pragma once

#include <string>

/// Holds the builtin package archives that an operating-system upgrade left behind.
extern const std::string kUpgradePackagesDir;

/// Set after a builtin package pass; keeps it from being repeated in the same boot.
extern const std::string kInstallUnitsFlag;

/// Marks the boot after an upgrade. Only looked at, never created or removed.
extern const std::string kUpgradeBootupFile;

/// Set after a successful configuration correction; keeps it from being repeated in the same boot.
extern const std::string kCorrectCfgFlag;

#include "generator/paths.h"

const std::string kUpgradePackagesDir = "/.VexaUpgradePackages";
const std::string kInstallUnitsFlag = "/run/.vexapkg_generate_install_units";
const std::string kUpgradeBootupFile = "/var/.UpgradeBootup";
const std::string kCorrectCfgFlag = "/run/.vexapkg_correct_cfg";

#include <vexacore/vexacore.h>

#include <boost/filesystem/file_status.hpp>
#include <boost/filesystem/operations.hpp>
#include <exception>

#include "generator/builtin_package_pass.h"
#include "generator/paths.h"
#include "log/kernel_log.h"

namespace {

void CorrectConfigurationAfterUpgrade() {
  namespace fs = boost::filesystem;
  if (!fs::exists(fs::status(kUpgradeBootupFile))) return;
  if (fs::exists(fs::status(kCorrectCfgFlag))) return;
  if (VLIBCExec("/usr/vexa/sbin/vexapkgctl", "correct-cfg", "--config-only", nullptr, nullptr) !=
      0) {
    WriteKernelLog("Failed to correct package unit");
    return;
  }
  if (VLIBCFileTouch(kCorrectCfgFlag.c_str()) != 0)
    WriteKernelLog("Failed to touch flag [%s]", kCorrectCfgFlag.c_str());
}

/// If logging fails too (no memory), only the exit status reports the failure.
void LogFailure(const std::exception& error) {
  try {
    WriteKernelLog("Failed to run generator, reason=[%s]", error.what());
  } catch (const std::exception&) {
  }
}

}  // namespace

int main(int argc, char**) {
  if (argc != 4) return 1;
  try {
    ProcessBuiltinPackages();
    CorrectConfigurationAfterUpgrade();
  } catch (const std::exception& error) {
    LogFailure(error);
    return 1;
  }
  return 0;
}

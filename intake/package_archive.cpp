#include "intake/package_archive.h"

#include <stdlib.h>
#include <vexapkg/package_core.h>
#include <vexautils/process_runner.h>

#include <cstring>

#include "log/kernel_log.h"

bool CreateTempDir(std::string& dir) {
  char path[4096] = "/tmp/vexapkg_XXXXXX";
  dir.reserve(std::strlen(path));  // later this could fail, and nobody would remove the directory
  if (mkdtemp(path) == nullptr) {
    WriteKernelLog("Failed to mkdtemp under /tmp [%m]");
    return false;
  }
  dir = path;
  return true;
}

bool ExtractPackageFile(const std::string& archivePath, const std::string& fileName,
                        const std::string& destDir, bool quiet) {
  VEXAPackageCore::PackageVpkServiceImpl& service =
      VEXAPackageCore::Modules::getPackageVpkService();
  if (service.ExtractFile(archivePath, destDir, fileName) == 0) return true;
  if (!quiet)
    WriteKernelLog("Failed to extract file [%s] from [%s].", fileName.c_str(), archivePath.c_str());
  return false;
}

void RemoveTempDir(const std::string& dir) {
  try {
    VEXAUtils::ProcessRunner runner("/bin/rm", "/bin/rm", "-rf", dir.c_str(), nullptr, nullptr,
                                    nullptr, nullptr, nullptr, nullptr);
    runner.run(true, false);
  } catch (...) {
    // Called by guards, also while an exception is on its way: a second one would end the process.
  }
}

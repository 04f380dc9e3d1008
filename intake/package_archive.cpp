#include "intake/package_archive.h"

#include <stdlib.h>
#include <vexapkg/package_core.h>
#include <vexautils/process_runner.h>

#include "log/kernel_log.h"

bool CreateTempDir(std::string& dir) {
  std::string path = "/tmp/vexapkg_XXXXXX";
  if (mkdtemp(path.data()) == nullptr) {
    WriteKernelLog("Failed to mkdtemp under /tmp [%m]");
    return false;
  }
  dir.swap(path);  // a copy could fail, and nobody would remove the directory
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

#pragma once

#include <string>

namespace VEXAPackageCore {

class ConfigurationService {
 public:
  virtual ~ConfigurationService();
};

class ConfigurationServiceImpl : public ConfigurationService {
 public:
  ConfigurationServiceImpl();
  ~ConfigurationServiceImpl() override;
};

class PackageSettingService {
 public:
  virtual ~PackageSettingService();
};

class PackageSettingServiceImpl : public PackageSettingService {
 public:
  explicit PackageSettingServiceImpl(ConfigurationService& configuration);
  ~PackageSettingServiceImpl() override;
};

class PackageVpkServiceImpl {
 public:
  explicit PackageVpkServiceImpl(PackageSettingService& setting);
  virtual ~PackageVpkServiceImpl();

  /// Writes the top-level member `member` of the archive at `archivePath` as a new file of mode
  /// 0600 into the directory `destDir`. Takes the first member of that name, which must be a
  /// regular file of at most 16 MiB, and reads the archive no further; members before it are passed
  /// over, not unpacked. Never blocks on what is no regular file. Returns 0 on success; another
  /// value, with no file left behind, on failure. Logs nothing. Without memory it throws
  /// std::bad_alloc, or libarchive ends the process with status 1.
  int ExtractFile(const std::string& archivePath, const std::string& destDir,
                  const std::string& member);
};

/// The services of the process, each made on first use.
namespace Modules {

inline ConfigurationService& getConfigurationService() {
  static ConfigurationServiceImpl config;
  return config;
}

inline PackageSettingService& getPackageSettingService() {
  static PackageSettingServiceImpl setting(getConfigurationService());
  return setting;
}

inline PackageVpkServiceImpl& getPackageVpkService() {
  static PackageVpkServiceImpl packageVpkService(getPackageSettingService());
  return packageVpkService;
}

}  // namespace Modules
}  // namespace VEXAPackageCore

#include "units/install_unit.h"

#include <algorithm>
#include <boost/algorithm/string/join.hpp>
#include <boost/property_tree/ptree.hpp>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "generator/paths.h"
#include "intake/unit_names.h"
#include "units/exec_quoting.h"
#include "units/unit_file.h"

namespace {

using boost::algorithm::join;
using boost::property_tree::ptree;
using StringSet = std::set<std::string>;
using Packages = std::vector<const BuiltinPackage*>;
using Words = std::vector<std::string>;

constexpr unsigned kThreadsForParallelInstall = 4;
const std::string kBlank = " ";  // of a literal, GCC 12 warns in Boost's join
const char kVolumeTarget[] = "pkg-volume.target";
const char kResourceClearer[] = "pkg-builtin-resource-clearer.service";
const char kInstall[] = "/usr/vexa/bin/vexapkg install --daemon-reload 0 ";
const char kEnable[] = "/usr/vexa/sbin/vexapkgctl enable ";

Packages PackagesOfPriority(bool highPriority, const BuiltinPackageList& list) {
  Packages packages;
  for (const BuiltinPackage& package : list)
    if (package.isHighPriority == highPriority) packages.push_back(&package);
  return packages;
}

bool NeedsVolume(bool highPriority, const Packages& packages) {
  return !highPriority && std::any_of(packages.begin(), packages.end(), [](const auto* package) {
    return package->info.placement != "system";
  });
}

std::string SequentialScript(const std::string& install, const Words& archives,
                             const StringSet& enabled) {
  std::string script = install + join(archives, kBlank);
  if (!enabled.empty()) script.append("; ").append(kEnable).append(join(enabled, kBlank));
  return script;
}

std::string ParallelScript(const Words& archives, const StringSet& enabled) {
  std::string script;
  for (const std::string& archive : archives) script += kInstall + archive + " & ";
  script += "wait; ";
  for (const std::string& name : enabled) script += kEnable + name + " & ";
  return script + "wait; ";
}

std::string InstallScript(bool highPriority, const Words& archives, const StringSet& enabled) {
  if (!highPriority)
    return SequentialScript(std::string(kInstall) + "--job-name install_low_builtin_pkgs ",
                            archives, enabled);
  if (std::thread::hardware_concurrency() < kThreadsForParallelInstall)
    return SequentialScript(kInstall, archives, enabled);
  return ParallelScript(archives, enabled);
}

std::string InstallCommand(bool highPriority, const Packages& packages) {
  StringSet archivePaths, enabled;
  for (const BuiltinPackage* package : packages) {
    archivePaths.insert(package->archivePath);
    if (package->config.enable) enabled.insert(package->info.name);
  }
  if (archivePaths.empty()) return "/bin/true";
  Words archives;
  for (const std::string& path : archivePaths) archives.push_back(QuoteForBash(path));
  return "-/bin/bash -c \"" + EscapeForExecStart(InstallScript(highPriority, archives, enabled)) +
         "\"";
}

ptree UnitSection(bool highPriority, const Packages& packages) {
  StringSet requisite;
  StringSet after = {"pkg-root.target",
                     highPriority ? "vexa-service-tmp.service" : "vexa-login.target"};
  StringSet before;
  if (!highPriority) before.insert(kResourceClearer);
  for (const BuiltinPackage* package : packages) {
    const StringSet& prerequisites = package->info.extra.prerequisiteUnits;
    requisite.insert(prerequisites.begin(), prerequisites.end());
    after.insert(prerequisites.begin(), prerequisites.end());
    before.insert(StartupUnitName(package->info.name));
  }
  std::string required = "pkg-root.target";
  if (NeedsVolume(highPriority, packages)) {
    required += std::string(" ") + kVolumeTarget;
    after.insert(kVolumeTarget);
  }

  ptree section;
  section.put("Description", std::string("install builtin packages for priority ") +
                                 (highPriority ? "high" : "low"));
  section.put("IgnoreOnIsolate", "yes");
  section.put("Requires", required);
  section.put("Wants", highPriority ? "" : kResourceClearer);
  section.put("Requisite", join(requisite, kBlank));
  section.put("After", join(after, kBlank));
  section.put("Before", join(before, kBlank));
  section.put("ConditionPathExists", kUpgradePackagesDir);
  return section;
}

ptree ServiceSection(bool highPriority, const Packages& packages) {
  ptree section;
  section.put("Type", "oneshot");
  section.put("RemainAfterExit", "yes");
  section.put("TimeoutStartSec", "1800");
  section.put("ExecStart", InstallCommand(highPriority, packages));
  section.put("ExecStartPost", "/bin/bash -c \"/bin/systemctl daemon-reload\"");
  section.put("Slice", "package_center.slice");
  return section;
}

}  // namespace

void GenBuiltinInstallUnit(bool highPriority, const BuiltinPackageList& packages) {
  const Packages chosen = PackagesOfPriority(highPriority, packages);
  ptree install;
  install.put("WantedBy", highPriority ? "vexa-high-priority-packages.target"
                                       : "vexa-low-priority-packages.target");
  ptree unit;
  unit.add_child("Unit", UnitSection(highPriority, chosen));
  unit.add_child("Service", ServiceSection(highPriority, chosen));
  unit.add_child("Install", install);
  WriteAndEnableUnit(highPriority ? "pkg-install-high-priority-builtin.service"
                                  : "pkg-install-low-priority-builtin.service",
                     unit);
}

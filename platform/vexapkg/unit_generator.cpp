#include <sys/stat.h>
#include <unistd.h>
#include <vexacore/file.h>
#include <vexapkg/builtin_policy.h>
#include <vexapkg/unit_generator.h>

#include <algorithm>
#include <boost/algorithm/string/join.hpp>
#include <cerrno>
#include <set>
#include <sstream>
#include <string>

#include "member_limit.h"

namespace VEXAPackageTool::Service {
namespace {

const char kUnitDir[] = "/run/systemd/system";

/// Units are made one after the other, so one name serves them all; systemd ignores it.
const char kTemporaryPath[] = "/run/systemd/system/.vexapkg.tmp";

std::string UnitText(const PackageInfo& info) {
  const std::set<std::string>& prerequisites = info.extra.prerequisiteUnits;
  std::set<std::string> after = prerequisites;
  after.insert("pkg-root.target");
  const char* priority = PackageBuiltin::IsHighPriorityPackage(info.name) ? "high" : "low";
  std::ostringstream text;
  text.exceptions(std::ios::badbit);  // else a lack of memory would cut the text short
  text << "[Unit]\n"
       << "Description=package " << info.name << "\n"
       << "IgnoreOnIsolate=yes\n"
       << "Requires=pkg-root.target\n"
       << "Requisite=" << boost::algorithm::join(prerequisites, " ") << "\n"
       << "After=" << boost::algorithm::join(after, " ") << "\n"
       << "[Service]\n"
       << "Type=oneshot\n"
       << "RemainAfterExit=yes\n"
       << "ExecStart=/usr/vexa/sbin/vexapkgctl start " << info.name << "\n"
       << "ExecStop=/usr/vexa/sbin/vexapkgctl stop " << info.name << "\n"
       << "Slice=package_center.slice\n"
       << "[Install]\n"
       << "WantedBy=vexa-" << priority << "-priority-packages.target\n";
  return text.str();
}

/// The archive may have been replaced since the generator checked its names: none of them may end
/// the line that it is written in.
bool FitsIntoLine(const std::string& word) {
  return !word.empty() &&
         std::all_of(word.begin(), word.end(), [](char c) { return c > ' ' && c <= '~'; });
}

bool RemoveDropIn(const std::string& dir, const std::string& file) {
  // A name too long for a drop-in directory never had one.
  if (unlink(file.c_str()) == -1)
    return errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG;
  rmdir(dir.c_str());  // stays when an administrator's drop-ins are in it
  return true;
}

/// systemd reads the drop-ins of "pkgctl-a-.service" for every "pkgctl-a-*.service", and those of a
/// template for every instance of it: a package must not change the units of another.
bool LendsItsDropIns(const std::string& packageName) {
  const auto at = packageName.find('@');
  return at + 1 == packageName.size() || packageName.substr(0, at).ends_with('-');
}

bool UpdateDropIn(const std::string& packageName, const std::string& dir,
                  const std::string& confPath) {
  const std::string file = dir + "/conf.conf";
  std::string conf;
  const int error = VexaReadFile(confPath, kMaxMemberBytes, conf);
  if (error == ENOENT) return RemoveDropIn(dir, file);
  return error == 0 && !LendsItsDropIns(packageName) &&
         (mkdir(dir.c_str(), 0755) == 0 || errno == EEXIST) &&
         VexaReplaceFile(file, kTemporaryPath, conf) == 0;
}

}  // namespace

UnitGenerator::UnitGenerator() = default;
UnitGenerator::~UnitGenerator() = default;

bool UnitGenerator::Init(const std::string& name, const std::string& dir) {
  dir_ = dir;
  if (!PMSLoadPKGInfoFile(dir, info_, nullptr, 0)) return false;
  const std::set<std::string>& units = info_.extra.prerequisiteUnits;
  return info_.name == name && FitsIntoLine(name) &&
         std::all_of(units.begin(), units.end(), FitsIntoLine);
}

bool UnitGenerator::ToFile() const {
  const std::string path = std::string(kUnitDir) + "/pkgctl-" + info_.name + ".service";
  // The drop-in comes first: a unit is never there without the settings that its package asks for.
  return VexaMakeDirectories(kUnitDir) == 0 &&
         UpdateDropIn(info_.name, path + ".d", dir_ + "/conf") &&
         VexaReplaceFile(path, kTemporaryPath, UnitText(info_)) == 0;
}

}  // namespace VEXAPackageTool::Service

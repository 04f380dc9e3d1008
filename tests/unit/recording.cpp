#include "recording.h"

#include <vexacore/vexacore.h>
#include <vexapkg/builtin_policy.h>
#include <vexapkg/package_core.h>
#include <vexapkg/unit_generator.h>
#include <vexasystemd/vexasystemd.h>
#include <vexautils/process_runner.h>

#include <cstdlib>
#include <thread>

using namespace VEXAPackageCore;
using std::string;
using VEXAPackageTool::Service::UnitGenerator;
using VEXAUtils::ProcessRunner;
using CStr = const char*;

static string Text(CStr text) { return text ? text : "null"; }
static string Text(const string& text) { return text; }
static string Text(unsigned long long number) { return std::to_string(number); }

template <typename... Words>
static int Call(int usual, const Words&... words) {
  calls.push_back(((Text(words) + '|') + ...));
  return answer(calls.back(), usual);
}

// In place of the standard libraries', so that a test chooses or knows what they return.
unsigned std::thread::hardware_concurrency() noexcept { return unsigned(Call(4, "threads")); }
char* mkdtemp(char* path) noexcept { return Call(0, "mkdtemp", path), path; }

int VLIBCExec(CStr p, CStr a, CStr b, CStr c, CStr d) { return Call(0, "Exec", p, a, b, c, d); }
int VLIBCFileTouch(CStr path) { return Call(0, "Touch", path); }
int VLIBCErrGet() { return 0xAB; }
CStr VLIBCErrorGetFile() { return "exec.cpp"; }
int VLIBCErrorGetLine() { return 77; }

ProcessRunner::ProcessRunner(CStr program, CStr a, CStr b, CStr c, CStr end, CStr, CStr, CStr, CStr,
                             CStr)
    : program_(program), argv_{a, b, c, end} {
  Call(0, "Runner");
}
ProcessRunner::~ProcessRunner() = default;
int ProcessRunner::run(bool x, bool y) {
  return Call(0, "run", program_, argv_[0], argv_[1], argv_[2], argv_[3], x, y);
}

ConfigurationService::~ConfigurationService() = default;
ConfigurationServiceImpl::ConfigurationServiceImpl() { Call(0, "ConfigurationService"); }
ConfigurationServiceImpl::~ConfigurationServiceImpl() = default;
PackageSettingService::~PackageSettingService() = default;
PackageSettingServiceImpl::PackageSettingServiceImpl(ConfigurationService&) { Call(0, "Setting"); }
PackageSettingServiceImpl::~PackageSettingServiceImpl() = default;
PackageVpkServiceImpl::PackageVpkServiceImpl(PackageSettingService&) { Call(0, "VpkService"); }
PackageVpkServiceImpl::~PackageVpkServiceImpl() = default;
int PackageVpkServiceImpl::ExtractFile(const string& from, const string& to, const string& name) {
  return Call(0, "ExtractFile", from, to, name);
}

bool VEXAPackageTool::PMSLoadPKGInfoFile(const string& dir, PackageInfo& info, CStr third,
                                         unsigned long long flags) {
  info.name = "Alpha";
  return Call(1, "PMSLoadPKGInfoFile", dir, third, flags);
}
bool PackageBuiltin::IsHighPriorityPackage(const string& name) { return Call(1, "IsHigh", name); }
bool PackageBuiltin::ShouldInstallPackage(const string& name, BuiltinConfig&) {
  return Call(1, "ShouldInstall", name);
}
UnitGenerator::UnitGenerator() { Call(0, "UnitGenerator"); }
UnitGenerator::~UnitGenerator() = default;
bool UnitGenerator::Init(const string& name, const string& in) { return Call(1, "Init", name, in); }
bool UnitGenerator::ToFile() const { return Call(1, "ToFile"); }

bool VEXASystemdEnableInGenerator(const string& unit) { return Call(1, "Enable", unit); }

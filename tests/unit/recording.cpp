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
using Str = const string&;

static string Text(CStr text) { return text ? text : "null"; }
static string Text(Str text) { return text; }
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

ProcessRunner::ProcessRunner(CStr p, CStr a, CStr b, CStr c, CStr d, CStr, CStr, CStr, CStr, CStr)
    : program_(p), argv_{a, b, c, d} {
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
int PackageVpkServiceImpl::ExtractFile(Str a, Str b, Str c) { return Call(0, "Extract", a, b, c); }

bool VEXAPackageTool::PMSLoadPKGInfoFile(Str dir, PackageInfo& info, CStr c, unsigned long long d) {
  info.name = "Alpha";
  return Call(1, "LoadInfo", dir, c, d);
}
bool PackageBuiltin::IsHighPriorityPackage(Str name) { return Call(1, "IsHigh", name); }
bool PackageBuiltin::ShouldInstallPackage(Str n, BuiltinConfig&) { return Call(1, "Should", n); }
UnitGenerator::UnitGenerator() { Call(0, "UnitGenerator"); }
UnitGenerator::~UnitGenerator() = default;
bool UnitGenerator::Init(Str name, Str in) { return Call(1, "Init", name, in); }
bool UnitGenerator::ToFile() const { return Call(1, "ToFile"); }

bool VEXASystemdEnableInGenerator(Str unit) { return Call(1, "Enable", unit); }

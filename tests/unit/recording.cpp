#include "recording.h"

#include <vexacore/vexacore.h>
#include <vexapkg/builtin_policy.h>
#include <vexapkg/package_core.h>
#include <vexapkg/unit_generator.h>
#include <vexasystemd/vexasystemd.h>
#include <vexautils/process_runner.h>

#include <stdexcept>
#include <thread>

using namespace VEXAPackageCore;
using std::string;
using VEXAPackageTool::Service::UnitGenerator;
using VEXAUtils::ProcessRunner;

namespace {

string Text(const char* text) { return text ? '"' + string(text) + '"' : "null"; }
string Text(const string& text) { return '"' + text + '"'; }
string Text(bool value) { return value ? "true" : "false"; }
string Text(unsigned long long value) { return std::to_string(value); }

template <typename... Arguments>
int Call(int usual, string line, const Arguments&... arguments) {
  (line.append(" ").append(Text(arguments)), ...);
  recording.calls.push_back(line);
  if (recording.calls.size() == recording.throwAt) throw std::runtime_error("boom");
  return recording.answer ? recording.answer(line, usual) : usual;
}

}  // namespace

// In place of the standard library's, since a test can't choose the processors it runs on.
unsigned std::thread::hardware_concurrency() noexcept {
  return static_cast<unsigned>(Call(4, "hardware_concurrency"));
}

int VLIBCExec(const char* program, const char* a1, const char* a2, const char* a3, const char* a4) {
  return Call(0, "VLIBCExec", program, a1, a2, a3, a4);
}
int VLIBCFileTouch(const char* path) { return Call(0, "VLIBCFileTouch", path); }
int VLIBCErrGet() { return Call(0xAB, "VLIBCErrGet"); }
const char* VLIBCErrorGetFile() { return Call(0, "VLIBCErrorGetFile") ? nullptr : "exec.cpp"; }
int VLIBCErrorGetLine() { return Call(77, "VLIBCErrorGetLine"); }

ProcessRunner::ProcessRunner(const char* program, const char* a0, const char* a1, const char* a2,
                             const char* a3, const char* a4, const char* a5, const char* a6,
                             const char* a7, const char* a8) {
  Call(0, "ProcessRunner", program, a0, a1, a2, a3, a4, a5, a6, a7, a8);
}
ProcessRunner::~ProcessRunner() { Call(0, "~ProcessRunner"); }
int ProcessRunner::run(bool first, bool second) {
  static_cast<void>(program_), static_cast<void>(argv_);  // clang warns of members without a use
  return Call(0, "run", first, second);
}

ConfigurationService::~ConfigurationService() = default;
ConfigurationServiceImpl::ConfigurationServiceImpl() { Call(0, "ConfigurationService"); }
ConfigurationServiceImpl::~ConfigurationServiceImpl() { Call(0, "~ConfigurationService"); }
PackageSettingService::~PackageSettingService() = default;
PackageSettingServiceImpl::PackageSettingServiceImpl(ConfigurationService&) {
  Call(0, "SettingService");
}
PackageSettingServiceImpl::~PackageSettingServiceImpl() { Call(0, "~SettingService"); }
PackageVpkServiceImpl::PackageVpkServiceImpl(PackageSettingService&) { Call(0, "VpkService"); }
PackageVpkServiceImpl::~PackageVpkServiceImpl() { Call(0, "~VpkService"); }
int PackageVpkServiceImpl::ExtractFile(const string& from, const string& to, const string& name) {
  return Call(0, "ExtractFile", from, to, name);
}

bool VEXAPackageTool::PMSLoadPKGInfoFile(const string& dir, PackageInfo& info, const char* third,
                                         unsigned long long flags) {
  info = recording.info;
  return Call(1, "PMSLoadPKGInfoFile", dir, third, flags);
}
bool PackageBuiltin::IsHighPriorityPackage(const string& name) {
  return Call(1, "IsHighPriorityPackage", name);
}
bool PackageBuiltin::ShouldInstallPackage(const string& name, BuiltinConfig& config) {
  return Call(1, "ShouldInstallPackage", name, config.enable);
}
UnitGenerator::UnitGenerator() { Call(0, "UnitGenerator"); }
UnitGenerator::~UnitGenerator() { Call(0, "~UnitGenerator"); }
bool UnitGenerator::Init(const string& name, const string& in) { return Call(1, "Init", name, in); }
bool UnitGenerator::ToFile() const { return Call(1, "ToFile"); }

bool VEXASystemdEnableInGenerator(const string& unit) { return Call(1, "EnableInGenerator", unit); }

#include "recording.h"

#include <vexacore/vexacore.h>
#include <vexapkg/builtin_policy.h>
#include <vexapkg/package_core.h>
#include <vexapkg/unit_generator.h>
#include <vexasystemd/vexasystemd.h>
#include <vexautils/process_runner.h>

#include <cstdlib>
#include <cstring>
#include <thread>

using namespace VEXAPackageCore;
using std::string;
using VEXAPackageTool::Service::UnitGenerator;
using VEXAUtils::ProcessRunner;
using Chars = const char*;

static int Call(int usual, std::initializer_list<Chars> words) {
  string line;
  for (Chars word : words) line.append(word ? word : "null").append("|");
  recording.calls.push_back(line);
  return recording.answer(line, usual);
}

// In place of the standard libraries', so that a test chooses or knows what they return.
unsigned std::thread::hardware_concurrency() noexcept {
  return static_cast<unsigned>(Call(4, {"hardware_concurrency"}));
}
char* mkdtemp(char* path) noexcept {
  Call(0, {"mkdtemp", path});
  return std::strcpy(path, std::to_string(++recording.directories).c_str());
}

int VLIBCExec(Chars p, Chars a, Chars b, Chars c, Chars d) {
  return Call(0, {"Exec", p, a, b, c, d});
}
int VLIBCFileTouch(Chars path) { return Call(0, {"Touch", path}); }
int VLIBCErrGet() { return 0xAB; }
Chars VLIBCErrorGetFile() { return "exec.cpp"; }
int VLIBCErrorGetLine() { return 77; }

ProcessRunner::ProcessRunner(Chars program, Chars a, Chars b, Chars c, Chars end, Chars, Chars,
                             Chars, Chars, Chars)
    : program_(program), argv_{a, b, c, end} {
  Call(0, {"Runner"});
}
ProcessRunner::~ProcessRunner() = default;
int ProcessRunner::run(bool x, bool y) {
  const auto flags = std::to_string(x) + std::to_string(y);
  return Call(0, {"run", program_, argv_[0], argv_[1], argv_[2], argv_[3], flags.c_str()});
}

ConfigurationService::~ConfigurationService() = default;
ConfigurationServiceImpl::ConfigurationServiceImpl() { Call(0, {"ConfigurationService"}); }
ConfigurationServiceImpl::~ConfigurationServiceImpl() = default;
PackageSettingService::~PackageSettingService() = default;
PackageSettingServiceImpl::PackageSettingServiceImpl(ConfigurationService&) {
  Call(0, {"SettingService"});
}
PackageSettingServiceImpl::~PackageSettingServiceImpl() = default;
PackageVpkServiceImpl::PackageVpkServiceImpl(PackageSettingService&) { Call(0, {"VpkService"}); }
PackageVpkServiceImpl::~PackageVpkServiceImpl() = default;
int PackageVpkServiceImpl::ExtractFile(const string& from, const string& to, const string& name) {
  return Call(0, {"ExtractFile", from.c_str(), to.c_str(), name.c_str()});
}

bool VEXAPackageTool::PMSLoadPKGInfoFile(const string& dir, PackageInfo& info, Chars third,
                                         unsigned long long flags) {
  info.name = "Alpha";
  return Call(1, {"PMSLoadPKGInfoFile", dir.c_str(), third, std::to_string(flags).c_str()});
}
bool PackageBuiltin::IsHighPriorityPackage(const string& name) {
  return Call(1, {"IsHighPriorityPackage", name.c_str()});
}
bool PackageBuiltin::ShouldInstallPackage(const string& name, BuiltinConfig&) {
  return Call(1, {"ShouldInstallPackage", name.c_str()});
}
UnitGenerator::UnitGenerator() { Call(0, {"UnitGenerator"}); }
UnitGenerator::~UnitGenerator() = default;
bool UnitGenerator::Init(const string& name, const string& in) {
  return Call(1, {"Init", name.c_str(), in.c_str()});
}
bool UnitGenerator::ToFile() const { return Call(1, {"ToFile"}); }

bool VEXASystemdEnableInGenerator(const string& unit) { return Call(1, {"Enable", unit.c_str()}); }

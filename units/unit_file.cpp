#include "units/unit_file.h"

#include <unistd.h>
#include <vexacore/vexacore.h>
#include <vexasystemd/vexasystemd.h>

#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#include <exception>
#include <fstream>

#include "log/kernel_log.h"

namespace {

const char kUnitDir[] = "/run/systemd/system";

bool MakeUnitDir() {
  if (VLIBCExec("/bin/mkdir", "-p", kUnitDir, nullptr, nullptr) >= 0) return true;
  const int code = VLIBCErrGet();
  const char* const file = VLIBCErrorGetFile();
  const int line = VLIBCErrorGetLine();
  WriteKernelLog("Failed to mkdir, path=[%s] [0x%04X %s:%d]", kUnitDir, static_cast<unsigned>(code),
                 file, line);
  return false;
}

void WriteUnitFile(const std::string& path, const boost::property_tree::ptree& unit) {
  try {
    std::ofstream file(path, std::ios::out | std::ios::trunc);
    if (!file) {
      unlink(path.c_str());
      WriteKernelLog("Failed to open file, path=[%s]", path.c_str());
      return;
    }
    boost::property_tree::ini_parser::write_ini(file, unit);
    file.close();
  } catch (const std::exception&) {
    WriteKernelLog("Failed to write unit, path=[%s]", path.c_str());
  }
}

}  // namespace

void WriteAndEnableUnit(const std::string& unitName, const boost::property_tree::ptree& unit) {
  if (MakeUnitDir()) WriteUnitFile(std::string(kUnitDir) + "/" + unitName, unit);
  if (!VEXASystemdEnableInGenerator(unitName))
    WriteKernelLog("Failed to enable unit in generator, unit=[%s]", unitName.c_str());
}

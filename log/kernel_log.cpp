#include "log/kernel_log.h"

#include <vexacore/vexacore.h>

#include <array>
#include <boost/algorithm/string/replace.hpp>
#include <cstdarg>
#include <cstdio>
#include <string>

namespace {

/// Bash's own echo hands every line to the kernel as a record of its own, whose first bytes could
/// even name a log level; the printf program writes a message of several lines in one piece.
const char* CommandFor(const std::string& message) {
  return message.find('\n') == std::string::npos ? "echo '" : "/bin/printf '%s\\n' '";
}

}  // namespace

void WriteKernelLog(const char* format, ...) {
  std::array<char, 512> buffer{};  // nothing may touch errno before the formatting: "%m"
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(buffer.data(), buffer.size(), format, arguments);
  va_end(arguments);

  std::string message = buffer.data();
  const std::string opening = CommandFor(message);
  boost::algorithm::replace_all(message, "'", "'\\''");
  const std::string command = opening + "vexa-pkg-generator: " + message + "' > /dev/kmsg";
  VLIBCExec("/bin/bash", "-c", command.c_str(), nullptr, nullptr);
}

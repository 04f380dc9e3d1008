#include "log/kernel_log.h"

#include <sys/socket.h>

#include "support.h"

namespace {

using std::string;
using KernelLog = Generator;

/// Runs a recorded command, with a socket that keeps writes apart in place of /dev/kmsg; returns
/// what each write brought.
Lines Deliver(string call) {
  int ends[2];
  EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends), 0);
  boost::replace_first(call, R"(VLIBCExec "/bin/bash" "-c" ")", "");
  boost::replace_last(call, " /dev/kmsg\" null null", "&" + std::to_string(ends[1]));
  const pid_t child = fork();
  if (child == 0) _exit(execl("/bin/bash", "/bin/bash", "-c", call.c_str(), nullptr));
  close(ends[1]);
  Lines writes;
  string buffer(4096, '\0');
  for (ssize_t size; (size = read(ends[0], buffer.data(), buffer.size())) > 0;)
    writes.push_back(buffer.substr(0, static_cast<std::size_t>(size)));
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return writes;
}

TEST_F(KernelLog, KeepsWhatStandsBeforeAConversionThatFails) {
  WriteKernelLog("path=[%s] %lc", "a", static_cast<wint_t>(0x20AC));  // the locale is "C"
  EXPECT_EQ(Calls(), "log path=[a] ");
}

TEST_F(KernelLog, BringsEveryMessageInOneWriteAndUnchanged) {
  WriteKernelLog("path=[%s] [0x%04X %s:%d]", "$x `y` \"*\" \\n", 0x2Bu, "a.c", 7);
  EXPECT_EQ(Calls(), "log path=[$x `y` \"*\" \\n] [0x002B a.c:7]");  // exactly this command
  string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const string x(510, 'x'), evil = "'; echo evil > /dev/kmsg; '$(echo evil)`echo evil`";
  for (const char* locale : {"C", "C.UTF-8"}) {
    setenv("LC_ALL", locale, 1);
    for (const string& message : {bytes, bytes.substr(10) + bytes.substr(0, 9), evil, "\n" + evil,
                                  string("a\n<3>b\n\n"), string("%s\\c\n"), string("%s\\c"), x,
                                  x + "y", x + "yz", x + "\xC3\xA4", string(600, '\''), string()}) {
      WriteKernelLog("%s", message.c_str());
      EXPECT_EQ(Deliver(recording.calls.back()),
                Lines{"vexa-pkg-generator: " + message.substr(0, 511) + "\n"});
    }
  }
}

}  // namespace

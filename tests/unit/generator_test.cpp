#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <boost/algorithm/string.hpp>
#include <boost/property_tree/ptree.hpp>
#include <fstream>
#include <regex>

#include "intake/package_names.h"
#include "log/kernel_log.h"
#include "recording.h"
#include "units/install_unit.h"
#include "units/unit_file.h"

int GeneratorMain(int argc, char** argv);

namespace {

using std::string;
using Lines = std::vector<string>;

const string kUnits = "/run/systemd/system/";

string ReadFile(const string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The call that logs a message of one line without quotes.
string Log(const string& message) {
  return "Exec|/bin/bash|-c|echo 'vexa-pkg-generator: " + message + "' > /dev/kmsg|null|null|";
}

/// A test in a root directory that is thrown away, on a platform where everything succeeds.
struct Generator : testing::Test {
  Generator() {
    if (access("/unit-tests", F_OK) != 0) std::abort();  // a root that is used for more
    answer = [](const auto&, int usual) { return usual; };
  }
};

TEST(Names, AreTakenOrRefused) {
  const string x(240, 'x');
  // Taken or not, as the name of a package or of a prerequisite unit.
  const std::tuple<bool, bool, string> rows[] = {
      {true, true, "A a:b-c_d.e@f 0 _- .a a@ " + x},
      {false, true, "-a . .. a/b a;b a'b a$b a%b a\\b a\nb a\x7F \xC3\xA4 x" + x},
      {true, false, "b.service b.socket b.target b.device b.mount b.automount b.swap b.timer"},
      {true, false,
       "b.path b.slice b.scope -.mount a@b@.service A-b_c:d\\e.f.path 1234567890" + x + ".path"},
      {false, false, " b service .service b. b.unit b.Service b@.service @b.service b/c.mount"},
      {false, false, "b\n.mount b'.mount b%.mount \xC3\xA4.mount 12345678901" + x + ".path"}};
  for (const auto& [taken, isPackage, values] : rows) {
    Lines list;
    for (const string& value : boost::split(list, values, [](char c) { return c == ' '; })) {
      const string problem = isPackage ? ProblemWithNames({value, "", {{"b.service"}}, {}})
                                       : ProblemWithNames({"A", "", {{"a.service", value}}, {}});
      EXPECT_TRUE(taken ? problem.empty() : problem.ends_with(": " + value)) << value << problem;
    }
  }
}

TEST_F(Generator, LeavesWhatWasWrittenOfARefusedTree) {
  boost::property_tree::ptree good;
  good.put("A.k", "-\"v w\"");
  good.put("B.l", "");
  auto rootData = good, twoKeys = good, deep = good;
  rootData.data() = "data";
  twoKeys.add("B.l", "");
  deep.add("B.m.deep", "");
  const string file = kUnits + "x.service", a = "[A]\nk=-\"v w\"\n", b = "[B]\nl=\n";
  answer = [](const string& call, int usual) {
    return call.starts_with("Exec|/bin/mkdir|") ? 1 : usual;  // only a negative one is failure
  };
  for (const auto& [unit, written] :
       {std::pair(good, a + b), {rootData, ""}, {twoKeys, a}, {deep, a + b}}) {
    WriteAndEnableUnit("x.service", unit);
    EXPECT_EQ(ReadFile(file), written);
    EXPECT_EQ(calls.back(), "Enable|x.service|");
    const string last = calls.end()[-2];
    EXPECT_EQ(last == Log("Failed to write unit, path=[" + file + "]"), unit != good) << last;
  }
}

TEST_F(Generator, InstallsHighPriorityPackagesAtOnceFromFourThreadsOn) {
  for (const int threads : {0, 1, 2, 3, 4, 5, 256}) {
    answer = [=](const auto& call, int usual) { return call == "threads|" ? threads : usual; };
    GenBuiltinInstallUnit(true, {{true, "/a._-+:@,=", "", {}, {true}}});
    const string unit = ReadFile(kUnits + "pkg-install-high-priority-builtin.service");
    EXPECT_EQ(unit.find(" /a._-+:@,= & wait; ") != string::npos, threads >= 4) << threads << unit;
  }
}

TEST_F(Generator, LogsEveryMessageInOneWriteAndUnchanged) {
  errno = ENOENT;
  WriteKernelLog("[%s] [0x%04X %s:%d] [%m]", "$x `y` \"*\" \\n", 0x2Bu, "a.c", 7);
  EXPECT_EQ(calls.back(), Log("[$x `y` \"*\" \\n] [0x002B a.c:7] [No such file or directory]"));
  WriteKernelLog("path=[%s] %lc", "a", static_cast<wint_t>(0x20AC));  // the locale is "C"
  EXPECT_EQ(calls.back(), Log("path=[a] "));

  int ends[2];  // of a socket that keeps writes apart
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK, 0, ends), 0);
  string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const string evil = "'; echo evil; '$(echo evil)`echo evil`", x(510, 'x');
  for (const string& message :
       {bytes, bytes.substr(10), evil, "\n" + evil, string("a\n<3>b\n\n"), string("%s\\c\n"),
        string("%s\\c"), x + "y", x + "yz", x + "\xC3\xA4", string(600, '\''), string()}) {
    WriteKernelLog("%s", message.c_str());
    string command = calls.back(), written(1024, '\0');
    boost::replace_first(command, "Exec|/bin/bash|-c|", "");
    boost::replace_last(command, " > /dev/kmsg|null|null|", " >&" + std::to_string(ends[1]));
    setenv("COMMAND", command.c_str(), 1);
    EXPECT_EQ(std::system("exec /bin/bash -c \"$COMMAND\""), 0) << command;
    written.resize(static_cast<std::size_t>(read(ends[0], &written[0], written.size())));
    EXPECT_EQ(written, "vexa-pkg-generator: " + message.substr(0, 511) + "\n");
    EXPECT_EQ(read(ends[0], &bytes[0], 1), -1) << "more than one write";
  }
}

const string kBoom = Log("Failed to run generator, reason=[boom]");

/// The calls of a run after an upgrade with one package, of high priority; the call of that number
/// throws or fails.
Lines CallsOfRun(std::ptrdiff_t number, bool throws) {
  calls = {};
  answer = [=](const string&, int usual) {
    if (std::ssize(calls) != number) return usual;
    return throws ? throw std::runtime_error("boom") : usual == 0 ? -1 : 0;
  };
  const int status = GeneratorMain(4, nullptr);
  EXPECT_EQ(status, calls.back() == kBoom);
  return calls;
}

TEST_F(Generator, GoesOnAfterACallThatFailsAndIsEndedByOneThatThrows) {
  // Each service is made once. When that fails, the next run tries again.
  const string services[] = {"ConfigurationService|", "Setting|", "VpkService|"};
  for (int failing = 0; failing < 3; ++failing)
    EXPECT_EQ(CallsOfRun(failing ? 5 : 4, true).end()[-4], services[failing]);
  EXPECT_EQ(CallsOfRun(0, false)[3], services[2]);

  const Lines usual = CallsOfRun(0, false), removal(&usual[5], &usual[7]);
  EXPECT_EQ(usual[4], "LoadInfo|/tmp/vexapkg_XXXXXX|null|1075838976|");
  EXPECT_EQ(removal[1], "run|/bin/rm|/bin/rm|-rf|/tmp/vexapkg_XXXXXX|null|1|0|");
  EXPECT_EQ(usual[7] + usual[8], "IsHigh|Alpha|Should|Alpha|");
  // A call, what is logged when it fails, and where the run then goes on if not at the next call.
  const Lines rules[] = {
      {R"(Exec\|/bin/mkdir\|-p\|(.*?)\|.*)", "Failed to mkdir, path=[$1] [0x00AB exec.cpp:77]"},
      {R"(Enable\|(.*)\|)", "Failed to enable unit in generator, unit=[$1]"},
      {R"(Extract\|(.*)\|.*\|INFO\|)", "Failed to extract file [INFO] from [$1].", "Runner|"},
      {R"(Init\|.*|ToFile\|)", "Failed to generate systemd unit, pkg=[Alpha]", "Runner|"},
      {R"(Touch\|(.*)\|)", "Failed to touch flag [$1]"},
      {R"(Exec.*\|correct-cfg\|--config-only\|null.*)", "Failed to correct package unit", "end"}};
  const auto wanted = std::find(usual.begin(), usual.end(), "threads|");
  bool hasDirectory = false;
  for (auto call = usual.begin(); call != usual.end(); ++call) {
    auto next = call + 1;
    Lines failed(usual.begin(), next), thrown = failed;
    for (const Lines& rule : rules) {
      if (!std::regex_match(*call, std::regex(rule[0]))) continue;
      failed.push_back(Log(std::regex_replace(*call, std::regex(rule[0]), rule[1])));
      if (rule.size() > 2) next = std::find(call, usual.end(), rule[2]);
    }
    failed.insert(failed.end(), next, usual.end());
    const auto number = call - usual.begin() + 1;
    if (call >= wanted) {  // before that, one that fails keeps the package out
      EXPECT_EQ(CallsOfRun(number, false), failed) << *call;
    }
    const bool makes = call->starts_with("mkdtemp"), removes = call->starts_with("run");
    if (removes || *call == "Runner|") {  // nothing leaves the guard
      thrown.insert(thrown.end(), call + (removes ? 1 : 2), usual.end());
    } else {
      if (hasDirectory) thrown.insert(thrown.end(), removal.begin(), removal.end());
      thrown.push_back(kBoom);
    }
    hasDirectory = makes || (hasDirectory && !removes);
    if (call == wanted || makes) continue;  // these can't throw
    EXPECT_EQ(CallsOfRun(number, true), thrown) << *call;
  }
}

}  // namespace

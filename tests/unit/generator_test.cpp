#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <boost/algorithm/string.hpp>
#include <boost/property_tree/ptree.hpp>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <regex>

#include "intake/package_archive.h"
#include "intake/package_names.h"
#include "log/kernel_log.h"
#include "recording.h"
#include "units/install_unit.h"
#include "units/unit_file.h"

int GeneratorMain(int argc, char** argv);

namespace {

using boost::property_tree::ptree;
using std::string;
using Lines = std::vector<string>;

string ReadFile(const string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

Lines Split(const string& text, char separator) {
  Lines parts;
  return boost::split(parts, text, [=](char c) { return c == separator; });
}

/// A test with an empty recording and empty directories, in a root directory that is thrown away.
struct Generator : testing::Test {
  Generator() { StartAnew(); }

  static void StartAnew() {
    if (!std::filesystem::exists("/unit-tests")) std::abort();  // a root that is used for more
    recording = {};
    for (const char* dir : {"/.VexaUpgradePackages", "/run/systemd/system", "/tmp"}) {
      std::filesystem::remove_all(dir);
      std::filesystem::create_directories(dir);
    }
  }

  /// The calls so far, one a line: temporary directories numbered as DIR1, DIR2 in order of their
  /// first use; the command for a log message of one line as "log " + message.
  static string Calls() {
    string text = boost::join(recording.calls, string("\n"));
    boost::replace_all(text, R"(VLIBCExec "/bin/bash" "-c" "echo 'vexa-pkg-generator: )", "log ");
    boost::replace_all(text, "' > /dev/kmsg\" null null", "");
    const string begin = "/tmp/vexapkg_";
    for (int n = 1; text.find(begin) != string::npos; ++n)
      boost::replace_all(text, text.substr(text.find(begin), 19), "DIR" + std::to_string(n));
    return text;
  }

  /// Runs `body` in a process of its own, since the services of the platform live that long, and
  /// returns its calls, those at exit included. What `body` returns is the exit status.
  static Lines CallsOfProcess(const std::function<int()>& body, int expectedStatus) {
    if (fork() == 0) {
      std::atexit([] { std::ofstream("/calls") << Calls(); });
      std::exit(body());
    }
    int status;
    EXPECT_TRUE(wait(&status) > 0 && status == W_EXITCODE(expectedStatus, 0)) << status;
    return Split(ReadFile("/calls"), '\n');
  }
};

TEST(Names, AreTakenOrRefused) {
  const string x(240, 'x');
  // Accepted or not, a package's name or a prerequisite unit's, values.
  const std::tuple<bool, bool, string> rows[] = {
      {true, true, "A|a:b-c_d.e@f|0|_-|.a|a@|" + x},
      {false, true, "-a|.|..|a b|a/b|a;b|a'b|a\"b|a$b|a%b|a\\b|a\nb|a\x7F|\xC3\xA4|x" + x},
      {true, false, "b.service|b.socket|b.target|b.device|b.mount|b.automount|b.swap|b.timer"},
      {true, false, "b.path|b.slice|b.scope|-.mount|a@b@c.service|a@b@.service|A-b_c:d.e.service"},
      {true, false, "a\\x2d.mount|1234567" + x + ".service"},
      {false, false, "|b|service|.service|b.|b.unit|b.Service|b.service |b@.service|@b.service"},
      {false, false, "b c.mount|b/c.mount|b$.mount|b;.mount|b\n.mount|b'.mount|b\".mount"},
      {false, false, "b%.mount|\xC3\xA4.mount|12345678" + x + ".service"}};
  for (const auto& [accepted, isPackage, text] : rows) {
    for (const string& value : Split(text, '|')) {
      VEXAPackageTool::PackageInfo info;
      info.name = isPackage ? value : "A";
      info.extra.prerequisiteUnits = {"a.service", isPackage ? "b.service" : value};
      const string problem = ProblemWithNames(info);
      EXPECT_TRUE(accepted ? problem.empty() : problem.ends_with(": " + value)) << value << problem;
    }
  }
}

TEST_F(Generator, TriesAgainToMakeAServiceThatThrew) {
  const auto extract = [] {
    for (const std::size_t failing : {2u, 4u}) {
      recording.throwAt = failing;
      EXPECT_THROW(ExtractPackageFile("/a", "m", "/d", false), std::runtime_error);
    }
    return ExtractPackageFile("/a", "m", "/d", false) && !HasFailure() ? 0 : 1;
  };
  const Lines expected = {"ConfigurationService", "SettingService",  "SettingService",
                          "VpkService",           "VpkService",      R"(ExtractFile "/a" "/d" "m")",
                          "~VpkService",          "~SettingService", "~ConfigurationService"};
  EXPECT_EQ(CallsOfProcess(extract, 0), expected);
}

TEST_F(Generator, LeavesWhatWasWrittenOfARefusedTree) {
  const string file = "/run/systemd/system/x.service", a = "[A]\nk=-\"v w\"\n";
  ptree good;
  good.put("A.k", "-\"v w\"");
  good.put("B.l", "");
  ptree rootData = good, twoSections = good, twoKeys = good, mixed = good, deep = good;
  rootData.data() = "data";
  twoSections.push_back(good.front());
  twoKeys.add("B.l", "");
  mixed.put("B", "data");
  deep.add("B.m.deep", "");
  const std::pair<ptree, string> rows[] = {
      {rootData, ""}, {twoSections, ""}, {twoKeys, a}, {mixed, a}, {deep, a + "[B]\nl=\n"}};
  for (const auto& [unit, written] : rows) {
    string found = "nothing logged";
    recording.answer = [&](const string& call, int usual) {
      if (call.find("Failed to write unit, path=[" + file + "]'") != string::npos)
        found = ReadFile(file);
      return call.find("/bin/mkdir") != string::npos ? 1 : usual;  // only a negative one is failure
    };
    WriteAndEnableUnit("x.service", good);
    EXPECT_EQ(ReadFile(file), a + "[B]\nl=\n");
    WriteAndEnableUnit("x.service", unit);
    EXPECT_EQ(found, written);
    EXPECT_EQ(recording.calls.back(), "EnableInGenerator \"x.service\"");
  }
}

TEST_F(Generator, InstallsHighPriorityPackagesAtOnceFromFourThreadsOn) {
  const BuiltinPackage high{true, "/a", "", {}, {true}}, low{false, "/b", "", {}, {true}};
  for (const int threads : {0, 1, 2, 3, 4, 5, 256}) {
    StartAnew();
    recording.answer = [=](const string& call, int usual) {
      return call == "hardware_concurrency" ? threads : usual;
    };
    GenBuiltinInstallUnit(true, {low});
    GenBuiltinInstallUnit(false, {low, high});
    EXPECT_EQ(recording.calls.size(), 4u) << "asked for the number of threads without need";
    GenBuiltinInstallUnit(true, {low, high});
    const string unit = ReadFile("/run/systemd/system/pkg-install-high-priority-builtin.service");
    EXPECT_EQ(unit.find("/a & wait; ") != string::npos, threads >= 4) << threads << unit;
  }
}

/// Runs a recorded log command, with a socket that keeps writes apart in place of /dev/kmsg;
/// returns what each write brought.
Lines Deliver(string call) {
  int ends[2];
  EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends), 0);
  boost::replace_first(call, R"(VLIBCExec "/bin/bash" "-c" ")", "");
  boost::replace_last(call, " /dev/kmsg\" null null", "&" + std::to_string(ends[1]));
  if (fork() == 0) _exit(execl("/bin/bash", "/bin/bash", "-c", call.c_str(), nullptr));
  close(ends[1]);
  Lines writes;
  char buffer[4096];
  for (ssize_t size; (size = read(ends[0], buffer, sizeof buffer)) > 0;)
    writes.emplace_back(buffer, static_cast<std::size_t>(size));
  close(ends[0]);
  wait(nullptr);
  return writes;
}

TEST_F(Generator, LogsEveryMessageInOneWriteAndUnchanged) {
  WriteKernelLog("path=[%s] [0x%04X %s:%d]", "$x `y` \"*\" \\n", 0x2Bu, "a.c", 7);
  errno = ENOENT;
  WriteKernelLog("[%m]");
  WriteKernelLog("path=[%s] %lc", "a", static_cast<wint_t>(0x20AC));  // the locale is "C"
  EXPECT_EQ(Calls(),
            "log path=[$x `y` \"*\" \\n] [0x002B a.c:7]\n"
            "log [No such file or directory]\nlog path=[a] ");
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

/// What a call's line tells of it: a letter, small if it can fail; what is logged then ($1 is what
/// the pattern caught); and the letter of the call with which the run goes on.
struct Kind {
  char letter;
  string pattern, logged = "";
  char next = '\0';
};

const string kUntar = "log Failed to untar INFO file from [/.VexaUpgradePackages/Alpha.vpk]";
const string kExtract = "log Failed to extract file [INFO] from [/.VexaUpgradePackages/Alpha.vpk].";
const string kNoUnit = "log Failed to generate systemd unit, pkg=[Alpha]";
const Kind kKinds[] = {
    {'l', "log .*"},
    {'S', "(Configuration|Setting|Vpk)Service"},
    {'i', R"(ExtractFile ".*/Alpha.vpk" "DIR1" "INFO")", kExtract + "\n" + kUntar, 'R'},
    {'p', R"(PMSLoadPKGInfoFile "DIR1" null 1075838976)", kUntar},
    {'R', R"(ProcessRunner "/bin/rm" "/bin/rm" "-rf" "DIR[12]" null null null null null null)"},
    {'r', "run true false"},
    {'H', R"(IsHighPriorityPackage "Alpha")"},
    {'w', R"(ShouldInstallPackage "Alpha" true)"},
    {'T', "hardware_concurrency"},
    {'m', R"(VLIBCExec "/bin/mkdir" "-p" "/run/systemd/system" null null)",
     "VLIBCErrGet\nVLIBCErrorGetFile\nVLIBCErrorGetLine\n"
     "log Failed to mkdir, path=[/run/systemd/system] [0x00AB exec.cpp:77]"},
    {'e', R"x(EnableInGenerator "(pkg-install-(high|low)-priority-builtin|pkgctl-Alpha).service")x",
     "log Failed to enable unit in generator, unit=[$1.service]"},
    {'U', "UnitGenerator"},
    {'x', R"(ExtractFile ".*/Alpha.vpk" "DIR2" "INFO")", kExtract, 'R'},
    {'c', R"(ExtractFile ".*/Alpha.vpk" "DIR2" "conf")"},
    {'n', R"(Init "Alpha" "DIR2")", kNoUnit, 'R'},
    {'t', "ToFile", kNoUnit, 'R'},
    {'f', R"x(VLIBCFileTouch "(/run/\.vexapkg_(generate_install_units|correct_cfg))")x",
     "log Failed to touch flag [$1]"},
    {'k', R"(VLIBCExec "/usr/vexa/sbin/vexapkgctl" "correct-cfg" "--config-only" null null)",
     "log Failed to correct package unit", 'D'},
    {'D', "~(Configuration|Setting|Vpk)Service"},
    {'~', "~(ProcessRunner|UnitGenerator)"}};

const Kind& KindOf(const string& call) {
  for (const Kind& kind : kKinds)
    if (std::regex_match(call, std::regex(kind.pattern))) return kind;
  throw std::runtime_error("a call of no known kind: " + call);
}

/// A run after an upgrade with one package, of high priority.
struct WholeRun : Generator {
  Lines usual = Run(0, {}, 0);  ///< The calls of a run in which nothing goes wrong.
  string letters;

  void SetUp() override {
    for (const string& call : usual) letters += KindOf(call).letter;
    ASSERT_EQ(letters, "llSSSipRr~HwlTmemelUxcnteRr~~flkfDDD") << boost::join(usual, "\n");
  }

  static Lines Run(std::size_t throwAt, decltype(recording.answer) answer, int status) {
    StartAnew();
    recording.throwAt = throwAt;
    recording.answer = answer;
    recording.info.name = "Alpha";
    for (const char* file : {"/var/.UpgradeBootup", "/.VexaUpgradePackages/Alpha.vpk"})
      std::ofstream{file};
    return CallsOfProcess([] { return GeneratorMain(4, nullptr); }, status);
  }
};

TEST_F(WholeRun, IsEndedByACallThatThrowsUnlessItRemovesADirectory) {
  for (std::size_t call = 0; letters[call] != 'D'; ++call) {
    const char letter = letters[call];
    if (letter == '~' || letter == 'T') continue;  // can't throw
    Lines expected(&usual[0], &usual[call + 1]);
    const auto expect = [&](auto begin, auto end) {
      expected.insert(expected.end(), &usual[begin], usual.data() + end);
    };
    const bool removes = letter == 'R' || letter == 'r';
    if (removes) {  // a runner that was not made is neither run nor destroyed
      expect(letter == 'R' ? call + 3 : call + 1, usual.size());
    } else {
      const auto removal = letters.find('R', call);
      const bool guarded = std::strchr("Sipxcnt", letter) || letters.compare(call, 2, "eR") == 0;
      if (guarded) expect(removal, letters.find_first_not_of("Rr~", removal));
      expected.push_back("log Failed to run generator, reason=[boom]");
      for (std::size_t made = call; made-- > 0;)
        if (letters[made] == 'S') expected.push_back("~" + usual[made]);
    }
    EXPECT_EQ(Run(call + 1, {}, removes ? 0 : 1), expected) << usual[call];
  }
}

TEST_F(WholeRun, GoesOnAfterACallThatFails) {
  for (std::size_t call = 0; call < usual.size(); ++call) {
    const Kind& kind = KindOf(usual[call]);
    if (!std::islower(kind.letter)) continue;
    Lines expected(&usual[0], &usual[call + 1]);
    if (!kind.logged.empty())
      for (const string& line :
           Split(std::regex_replace(usual[call], std::regex(kind.pattern), kind.logged), '\n'))
        expected.push_back(line);
    // A package that is not taken is not asked about, makes no unit, and needs no threads.
    const bool leftOut = std::strchr("iw", kind.letter);
    const auto startup = letters.find('U'), end = letters.find('f');
    for (auto next = kind.next ? letters.find(kind.next, call) : call + 1; next < usual.size();
         ++next)
      if (!leftOut || !((next >= startup && next < end) || std::strchr("HwT", letters[next])))
        expected.push_back(usual[next]);
    const auto answer = [&](const string&, int result) {
      return recording.calls.size() != call + 1 ? result : result == 0 ? -1 : 0;
    };
    EXPECT_EQ(Run(0, answer, 0), expected) << usual[call];
    EXPECT_EQ(
        std::filesystem::exists("/run/systemd/system/pkg-install-high-priority-builtin.service"),
        letters.find('m') != call);
  }
}

}  // namespace

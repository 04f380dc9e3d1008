#include <cstring>
#include <optional>
#include <regex>

#include "support.h"

int GeneratorMain(int argc, char** argv);

namespace {

using std::string;

/// What a call's line tells of it: a letter; its failing result, if it can fail; what is logged
/// then ($1 is what the pattern caught); and the letter of the call with which the run goes on.
struct Kind {
  char letter;
  string pattern;
  std::optional<int> failure = {};
  string logged = "";
  char next = '\0';
};

const string kUntar = "log Failed to untar INFO file from [/.VexaUpgradePackages/Alpha.vpk]";
const string kExtract = "log Failed to extract file [INFO] from [/.VexaUpgradePackages/Alpha.vpk].";
const string kNoUnit = "log Failed to generate systemd unit, pkg=[Alpha]";
const Kind kKinds[] = {
    {'L', "log .*", -1},
    {'S', "(Configuration|Setting|Vpk)Service"},
    {'i', R"(ExtractFile ".*/Alpha.vpk" "DIR1" "INFO")", 1, kExtract + "\n" + kUntar, 'R'},
    {'p', R"(PMSLoadPKGInfoFile "DIR1" null 1075838976)", 0, kUntar},
    {'R', R"(ProcessRunner "/bin/rm" "/bin/rm" "-rf" "DIR[12]" null null null null null null)"},
    {'r', "run true false", -1},
    {'H', R"(IsHighPriorityPackage "Alpha")"},
    {'W', R"(ShouldInstallPackage "Alpha" true)", 0},
    {'h', "hardware_concurrency"},
    {'M', R"(VLIBCExec "/bin/mkdir" "-p" "/run/systemd/system" null null)", -1,
     "VLIBCErrGet\nVLIBCErrorGetFile\nVLIBCErrorGetLine\n"
     "log Failed to mkdir, path=[/run/systemd/system] [0x00AB exec.cpp:77]"},
    {'E', R"x(EnableInGenerator "(pkg-install-(high|low)-priority-builtin\.service)")x", 0,
     "log Failed to enable unit in generator, unit=[$1]"},
    {'U', "UnitGenerator"},
    {'x', R"(ExtractFile ".*/Alpha.vpk" "DIR2" "INFO")", 1, kExtract, 'R'},
    {'c', R"(ExtractFile ".*/Alpha.vpk" "DIR2" "conf")", 1},
    {'n', R"(Init "Alpha" "DIR2")", 0, kNoUnit, 'R'},
    {'t', "ToFile", 0, kNoUnit, 'R'},
    {'e', R"(EnableInGenerator "pkgctl-Alpha.service")", 0,
     "log Failed to enable unit in generator, unit=[pkgctl-Alpha.service]"},
    {'F', R"x(VLIBCFileTouch "(/run/\.vexapkg_(generate_install_units|correct_cfg))")x", 1,
     "log Failed to touch flag [$1]"},
    {'C', R"(VLIBCExec "/usr/vexa/sbin/vexapkgctl" "correct-cfg" "--config-only" null null)", 1,
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

  WholeRun() {
    for (const string& call : usual) letters += KindOf(call).letter;
  }

  static Lines Run(std::size_t throwAt, decltype(recording.answer) answer, int status) {
    StartAnew();
    recording.throwAt = throwAt;
    recording.answer = answer;
    std::ofstream{"/var/.UpgradeBootup"};
    AddArchive("Alpha.vpk", "Alpha").highPriority = true;
    const string calls = CallsOfProcess([] { return GeneratorMain(4, nullptr); }, status);
    Lines lines;
    return boost::split(lines, calls, [](char c) { return c == '\n'; });
  }

  Lines Usual(std::size_t begin, std::size_t end) const {
    return {usual.begin() + std::ptrdiff_t(begin), usual.begin() + std::ptrdiff_t(end)};
  }
};

void Append(Lines& lines, const Lines& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

TEST_F(WholeRun, MakesItsCallsInOrder) {
  EXPECT_EQ(letters, "LLSSSipRr~HWLhMEMELUxcnteRr~~FLCFDDD") << boost::join(usual, "\n");
  for (const auto& dir : std::filesystem::directory_iterator("/tmp"))
    EXPECT_EQ(dir.status().permissions(), std::filesystem::perms::owner_all);
}

TEST_F(WholeRun, IsEndedByACallThatThrowsUnlessItRemovesADirectory) {
  for (std::size_t call = 0; letters[call] != 'D'; ++call) {
    const char letter = letters[call];
    if (letter == '~' || letter == 'h') continue;  // can't throw
    Lines expected = Usual(0, call + 1);
    const bool removes = letter == 'R' || letter == 'r';
    if (removes) {  // a runner that was not made is neither run nor destroyed
      Append(expected, Usual(letter == 'R' ? call + 3 : call + 1, usual.size()));
    } else {
      const auto removal = letters.find('R', call);
      if (std::strchr("Sipxcnte", letter))
        Append(expected, Usual(removal, letters.find_first_not_of("Rr~", removal)));
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
    if (!kind.failure) continue;
    Lines expected = Usual(0, call + 1), logged;
    if (!kind.logged.empty())
      boost::split(logged, std::regex_replace(usual[call], std::regex(kind.pattern), kind.logged),
                   [](char c) { return c == '\n'; });
    Append(expected, logged);
    // A package that is not taken is not asked about, makes no unit, and needs no threads.
    const bool leftOut = kind.letter == 'i' || kind.letter == 'W';
    bool inStartup = false;
    for (auto next = kind.next ? letters.find(kind.next, call) : call + 1; next < usual.size();
         ++next) {
      inStartup = (inStartup || letters[next] == 'U') && letters[next] != 'F';
      if (!leftOut || !(inStartup || std::strchr("HWh", letters[next])))
        expected.push_back(usual[next]);
    }
    const auto answer = [&](const string&, int result) {
      return recording.calls.size() == call + 1 ? *kind.failure : result;
    };
    EXPECT_EQ(Run(0, answer, 0), expected) << usual[call];
    EXPECT_EQ(
        std::filesystem::exists("/run/systemd/system/pkg-install-high-priority-builtin.service"),
        letters.find('M') != call);
  }
}

}  // namespace

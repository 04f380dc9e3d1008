#include <sstream>

#include "support.h"
#include "whole_run_calls.h"

namespace {

const std::vector<std::string> kLines = [] {
  std::istringstream text(kWholeRun);
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}();

const std::vector<std::size_t> kCallsThatCanThrow = [] {
  std::vector<std::size_t> calls;
  for (std::size_t i = 0; i < kLines.size(); ++i)
    if (kLines[i][0] != '~') calls.push_back(i);
  return calls;
}();

std::string ExpectedCalls(std::size_t begin = 0, std::size_t end = kLines.size()) {
  std::string calls;
  for (; begin < end; ++begin) calls += kLines[begin].substr(2) + "\n";
  return calls;
}

/// After an upgrade, with one package of each priority, the low one without conf and not to be
/// enabled, one archive without INFO, and a package that is not wanted; the second mkdir and
/// every removal fail.
struct WholeRun : Generator, testing::WithParamInterface<std::size_t> {
  WholeRun() {
    std::ofstream{"/var/.UpgradeBootup"};
    AddArchive("Alpha.vpk", "Alpha").highPriority = true;
    AddArchive("Beta.vpk", "Beta").enable = false;
    AddArchive("broken.vpk", "");
    AddArchive("gamma.vpk", "Gamma").install = false;
    recording.answer = [mkdirs = 0](const std::string& call, int usual) mutable {
      const auto has = [&](const char* part) { return call.find(part) != std::string::npos; };
      if (has("/bin/mkdir")) return ++mkdirs == 2 ? -1 : usual;
      return has("run ") || has("broken.vpk\" ") || (has("Beta") && has("\"conf\"")) ? 1 : usual;
    };
  }
};

TEST_F(WholeRun, MakesExactlyTheseCalls) {
  EXPECT_EQ(GeneratorMain(4, nullptr), 0);
  EXPECT_EQ(Calls(), ExpectedCalls());
  EXPECT_NE(ReadFile("/run/systemd/system/pkg-install-high-priority-builtin.service"), "");
  EXPECT_EQ(ReadFile("/run/systemd/system/pkg-install-low-priority-builtin.service"), "");
}

TEST_P(WholeRun, IsEndedByAThrowingCallUnlessItRemovesADirectory) {
  std::string letters;
  for (const std::string& line : kLines) letters += line[0];
  const std::size_t call = GetParam(), removal = letters.find('c', call);
  const bool ends = letters[call] == '.' || letters[call] == 'g';
  std::string expected = ExpectedCalls(0, call + 1);
  if (letters[call] == 'g')
    expected += ExpectedCalls(removal, letters.find_first_of(".g", removal));
  if (!ends) expected += ExpectedCalls(letters[call] == 'c' ? call + 3 : call + 1);
  if (ends) expected += "log Failed to run generator, reason=[boom]\n";
  recording.throwAt = call + 1;
  EXPECT_EQ(GeneratorMain(4, nullptr), ends ? 1 : 0);
  EXPECT_EQ(Calls(), expected);
}
INSTANTIATE_TEST_SUITE_P(Call, WholeRun, testing::ValuesIn(kCallsThatCanThrow));

TEST_F(WholeRun, GoesOnAfterAFailureOfTheLastSteps) {
  for (const auto& [failing, expected] : std::vector<std::pair<const char*, const char*>>{
           {"install_units\"", "[/run/.vexapkg_generate_install_units]\nlog end processing"},
           {"correct-cfg\"", "null null\nlog Failed to correct package unit\nEND"},
           {"correct_cfg\"", "\nlog Failed to touch flag [/run/.vexapkg_correct_cfg]\nEND"}}) {
    Answer(failing, 1);
    EXPECT_EQ(GeneratorMain(4, nullptr), 0);
    EXPECT_NE((Calls() + "END").find(expected), std::string::npos) << Calls();
  }
}

TEST_F(WholeRun, DestroysServicesInReverseOrderAtExit) {
  std::atexit([] {
    for (auto& call : recording.calls) std::cerr << call << '\n';
  });
  EXPECT_EXIT(std::exit(GeneratorMain(4, nullptr)), testing::ExitedWithCode(0),
              "correct_cfg\"\n~VpkService\n~SettingService\n~ConfigurationService\n$");
}

}  // namespace

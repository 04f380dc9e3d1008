#include <boost/property_tree/ptree.hpp>

#include "support.h"
#include "units/install_unit.h"
#include "units/startup_unit.h"
#include "units/unit_file.h"

namespace {

using boost::property_tree::ptree;
using std::string;
using Units = Generator;

const string kFile = "/run/systemd/system/x.service";
const string kMkdir = "VLIBCExec \"/bin/mkdir\" \"-p\" \"/run/systemd/system\" null null\n";
const string kEnable = "EnableInGenerator \"x.service\"\n";

ptree Unit(const char* addedKey = nullptr) {
  ptree unit;
  unit.put("A.k", "-\"v w\"");
  unit.put("B.l", "");
  if (addedKey) unit.add(addedKey, "");
  return unit;
}

TEST_F(Units, RefusedTreesLeaveWhatWasWrittenBefore) {
  const string a = "[A]\nk=-\"v w\"\n", whole = a + "[B]\nl=\n";
  ptree rootData = Unit(), twoSections = Unit(), mixed = Unit();
  rootData.data() = "data";
  twoSections.push_back(twoSections.front());
  mixed.put("B", "data");
  const std::pair<ptree, string> rows[] = {
      {rootData, ""}, {twoSections, ""}, {Unit("B.l"), a}, {mixed, a}, {Unit("B.m.deep"), whole}};
  for (const auto& [unit, written] : rows) {
    StartAnew();
    Answer("/bin/mkdir", 1);  // only a negative result is a failure
    WriteAndEnableUnit("x.service", Unit());
    EXPECT_EQ(ReadFile(kFile), whole);
    string found = "nothing logged";
    recording.answer = [&](const string& call, int usual) {
      if (call.find("Failed") != string::npos) found = ReadFile(kFile);
      return usual;
    };
    WriteAndEnableUnit("x.service", unit);
    EXPECT_EQ(found, written);
    const string line = "log Failed to write unit, path=[" + kFile + "]\n";
    EXPECT_EQ(Calls(), kMkdir + kEnable + kMkdir + line + kEnable);
  }
}

TEST_F(Units, AFileThatCannotBeOpenedIsUnlinkedAndThenLogged) {
  std::filesystem::create_symlink("/nowhere/x", kFile);
  bool linked = true;
  recording.answer = [&](const string& call, int) {
    if (call.find("Failed to open") != string::npos) linked = std::filesystem::is_symlink(kFile);
    return 0;
  };
  WriteAndEnableUnit("x.service", Unit());
  EXPECT_FALSE(linked);
  EXPECT_EQ(Calls(), kMkdir + "log Failed to open file, path=[" + kFile + "]\n" + kEnable +
                         "log Failed to enable unit in generator, unit=[x.service]\n");
}

TEST_F(Units, HighPriorityPackagesAreInstalledAtOnceFromFourThreadsOn) {
  const BuiltinPackage high{true, "/a", "", {}, {true}}, low{false, "/b", "", {}, {true}};
  for (const int threads : {0, 1, 2, 3, 4, 5, 256}) {
    StartAnew();
    Answer("hardware_concurrency", threads);
    GenBuiltinInstallUnit(true, {low});
    GenBuiltinInstallUnit(false, {low, high});
    EXPECT_EQ(recording.calls.size(), 4u) << "asked for the number of threads without need";
    GenBuiltinInstallUnit(true, {low, high});
    EXPECT_EQ(recording.calls.size(), 7u);
    const string unit = ReadFile("/run/systemd/system/pkg-install-high-priority-builtin.service");
    EXPECT_EQ(unit.find("/a & wait; ") != string::npos, threads >= 4) << threads << unit;
  }
}

TEST_F(Units, StartupUnitsStopAtWhatFailsAndLeaveNoDirectory) {
  const string noUnit = "log Failed to generate systemd unit, pkg=[A]\n";
  const std::tuple<string, int, string> rows[] = {
      {"INFO", -1, "\"INFO\"\nlog Failed to extract file [INFO] from [/a].\n"},
      {"Init", 0, "\"DIR1\"\n" + noUnit},
      {"ToFile", 0, "ToFile\n" + noUnit},
      {"Enable", 0, "log Failed to enable unit in generator, unit=[pkgctl-A.service]\n"}};
  for (const auto& [failing, result, expected] : rows) {
    StartAnew();
    Answer(failing, result);
    GenBuiltinStartupUnit("/a", AddArchive("a.vpk", "A").info, true);
    EXPECT_NE(Calls().find(expected + "ProcessRunner"), string::npos) << Calls();
  }
}

}  // namespace

#include <boost/property_tree/ptree.hpp>

#include "support.h"
#include "units/install_unit.h"
#include "units/unit_file.h"

namespace {

using boost::property_tree::ptree;
using std::string;
using Units = Generator;

const string kFile = "/run/systemd/system/x.service";

string ReadFile(const string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

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
    string found = "nothing logged";
    recording.answer = [&](const string& call, int usual) {
      if (call.find("Failed to write unit, path=[" + kFile + "]'") != string::npos)
        found = ReadFile(kFile);
      return call.find("/bin/mkdir") != string::npos ? 1 : usual;  // only a negative one is failure
    };
    WriteAndEnableUnit("x.service", Unit());
    EXPECT_EQ(ReadFile(kFile), whole);
    WriteAndEnableUnit("x.service", unit);
    EXPECT_EQ(found, written);
    EXPECT_EQ(recording.calls.back(), "EnableInGenerator \"x.service\"");
  }
}

TEST_F(Units, AFileThatCannotBeOpenedIsUnlinkedAndThenLogged) {
  std::filesystem::create_symlink("/nowhere/x", kFile);
  bool linked = true;
  recording.answer = [&](const string& call, int usual) {
    if (call.find("Failed to open") != string::npos) linked = std::filesystem::is_symlink(kFile);
    return usual;
  };
  WriteAndEnableUnit("x.service", Unit());
  EXPECT_FALSE(linked);
}

TEST_F(Units, HighPriorityPackagesAreInstalledAtOnceFromFourThreadsOn) {
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

}  // namespace

#include <boost/algorithm/string/split.hpp>

#include "intake/builtin_package_list.h"
#include "intake/package_archive.h"
#include "support.h"

namespace {

using std::string;
using Intake = Generator;

BuiltinPackageList Collect() {
  recording.calls.clear();
  BuiltinPackageList list;
  CollectBuiltinPackages(list);
  return list;
}

TEST_F(Intake, RefusesNamesBeforeThePolicyIsAsked) {
  const string x(240, 'x');
  // Accepted or not, a package's name or a prerequisite unit's, values.
  const std::tuple<bool, bool, string> rows[] = {
      {true, true, "A|a:b-c_d.e@f|0|_-|.a|a@|" + x},
      {false, true, "-a|.|..|a b|a/b|a;b|a'b|a\"b|a$b|a%b|a\\b|a\nb|a\x7F|\xC3\xA4|x" + x},
      {true, false, "b.service|b.socket|b.target|b.device|b.mount|b.automount|b.swap|b.timer"},
      {true, false,
       "b.path|b.slice|b.scope|-.mount|a@b@c.service|a@b@.service|1234567" + x + ".service"},
      {true, false, "A-b_c:d.e.service|a\\x2d.mount"},
      {false, false, "|b|service|.service|b.|b.unit|b.Service|b.service |b@.service|@b.service"},
      {false, false, "b c.mount|b/c.mount|b$.mount|b;.mount|b\n.mount|b'.mount|b\".mount"},
      {false, false, "b%.mount|\xC3\xA4.mount|12345678" + x + ".service"}};
  for (const auto& [accepted, isPackage, text] : rows) {
    std::vector<string> values;
    for (const string& value : boost::split(values, text, [](char c) { return c == '|'; })) {
      ScriptedPackage& package = AddArchive("x.vpk", isPackage ? value : "A");
      package.info.extra.prerequisiteUnits = {"a.service", isPackage ? "b.service" : value};
      EXPECT_EQ(Collect().size(), accepted ? 1u : 0u) << value;
      EXPECT_EQ(Calls().find("HighPriority") != string::npos, accepted) << value;
      EXPECT_EQ(recording.calls.back().find("to accept package, pkg=[x.vpk] ") == string::npos,
                accepted);
    }
  }
}

TEST_F(Intake, PutsWhateverHasANameToThePolicy) {
  AddArchive("1.vpk", "Left").loads = false;
  AddArchive("2.vpk", "");
  AddArchive("3.vpk", "Same").info.placement = "x";
  AddArchive("4.vpk", "Same").info.placement = "y";
  string list;
  for (const BuiltinPackage& package : Collect())
    list += package.fileName + ' ' + package.info.name + package.info.placement + '\n';
  EXPECT_EQ(list, "1.vpk Left\n3.vpk Samex\n4.vpk Samey\n");
  EXPECT_NE(Calls().find("untar INFO file from [/.VexaUpgradePackages/1.vpk]\n"), string::npos);
  EXPECT_EQ(Calls().find("Package \"\""), string::npos) << "asked about a package without name";
}

TEST_F(Intake, ExtractsIntoAPrivateDirectoryOrNotAtAll) {
  AddArchive("1.vpk", "A");
  auto mode = std::filesystem::perms::none;
  recording.answer = [&](const string& call, int usual) {
    if (call.starts_with("ExtractFile"))
      mode = std::filesystem::status(call.substr(call.find("/tmp/"), 19)).permissions();
    return usual;
  };
  EXPECT_EQ(Collect().size(), 1u);
  EXPECT_EQ(mode, std::filesystem::perms::owner_all);
  std::filesystem::remove_all("/tmp");
  EXPECT_EQ(Collect().size(), 0u);
  EXPECT_EQ(
      Calls(),
      "log Load info, pkg=[1.vpk]\nlog Failed to mkdtemp under /tmp [No such file or directory]\n"
      "log Failed to untar INFO file from [/.VexaUpgradePackages/1.vpk]\nProcessRunner \"/bin/rm\" "
      "\"/bin/rm\" \"-rf\" \"\" null null null null null null\nrun true false\n~ProcessRunner\n");
}

TEST_F(Intake, TriesAgainToMakeAServiceThatThrew) {
  for (const std::size_t failing : {2u, 4u}) {
    recording.throwAt = failing;
    EXPECT_THROW(ExtractPackageFile("/a", "m", "/d", false), std::runtime_error);
  }
  EXPECT_TRUE(ExtractPackageFile("/a", "m", "/d", false));
  EXPECT_EQ(Calls(),
            "ConfigurationService\nSettingService\nSettingService\nVpkService\nVpkService\n"
            "ExtractFile \"/a\" \"/d\" \"m\"\n");
}

}  // namespace

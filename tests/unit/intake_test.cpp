#include "intake/builtin_package_list.h"
#include "intake/package_archive.h"
#include "support.h"
#include "units/startup_unit.h"

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
  const auto collect = [&] {
    for (const auto& [accepted, isPackage, text] : rows) {
      Lines values;
      for (const string& value : boost::split(values, text, [](char c) { return c == '|'; })) {
        ScriptedPackage& package = AddArchive("x.vpk", isPackage ? value : "A");
        package.info.extra.prerequisiteUnits = {"a.service", isPackage ? "b.service" : value};
        EXPECT_EQ(Collect().size(), accepted ? 1u : 0u) << value;
        EXPECT_EQ(Calls().find("HighPriority") != string::npos, accepted) << value;
        EXPECT_EQ(Calls().find("to accept package, pkg=[x.vpk] ") == string::npos, accepted);
      }
    }
    return HasFailure();
  };
  CallsOfProcess(collect, 0);
}

TEST_F(Intake, WithoutATemporaryDirectoryNothingIsExtracted) {
  AddArchive("1.vpk", "A");
  std::filesystem::remove_all("/tmp");
  EXPECT_EQ(Collect().size(), 0u);
  GenBuiltinStartupUnit("/a", {}, true);
  const string failed = "log Failed to mkdtemp under /tmp [No such file or directory]\n";
  const string removal =
      "ProcessRunner \"/bin/rm\" \"/bin/rm\" \"-rf\" \"\" null null null null null null\n"
      "run true false\n~ProcessRunner\n";
  EXPECT_EQ(Calls(), "log Load info, pkg=[1.vpk]\n" + failed +
                         "log Failed to untar INFO file from [/.VexaUpgradePackages/1.vpk]\n" +
                         removal + "UnitGenerator\n" + failed + removal + "~UnitGenerator");
}

TEST_F(Intake, TriesAgainToMakeAServiceThatThrew) {
  const auto extract = [] {
    for (const std::size_t failing : {2u, 4u}) {
      recording.throwAt = failing;
      EXPECT_THROW(ExtractPackageFile("/a", "m", "/d", false), std::runtime_error);
    }
    return ExtractPackageFile("/a", "m", "/d", false) && !HasFailure() ? 0 : 1;
  };
  EXPECT_EQ(CallsOfProcess(extract, 0),
            "ConfigurationService\nSettingService\nSettingService\nVpkService\nVpkService\n"
            "ExtractFile \"/a\" \"/d\" \"m\"\n"
            "~VpkService\n~SettingService\n~ConfigurationService");
}

}  // namespace

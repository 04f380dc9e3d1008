// INFO of any content: it is taken as a whole or not at all, and a unit made of it has its own
// lines and no others.
#include <vexapkg/unit_generator.h>

#include "fuzz.h"
#include "intake/package_names.h"
#include "intake/unit_names.h"

void Check(const std::string& input) {
  std::ofstream("/tmp/INFO") << input;
  VEXAPackageTool::PackageInfo info{"old", "old", {{"old"}}, {}};
  if (!VEXAPackageTool::PMSLoadPKGInfoFile("/tmp", info, nullptr, 0x40200000)) {
    Expect(info.name == "old" && info.placement == "old" && info.document.isNull() &&
               info.extra.prerequisiteUnits == std::set<std::string>{"old"},
           "a failed load leaves the record as it was");
  } else if (ProblemWithNames(info).empty()) {
    VEXAPackageTool::Service::UnitGenerator generator;
    Expect(generator.Init(info.name, "/tmp") && generator.ToFile(), "the unit is written");
    const std::string path = "/run/systemd/system/" + StartupUnitName(info.name);
    std::ifstream unit(path);
    std::string keys;
    for (std::string line; std::getline(unit, line);) keys += line.substr(0, line.find('=')) + " ";
    Expect(keys ==
               "[Unit] Description IgnoreOnIsolate Requires Requisite After [Service] Type "
               "RemainAfterExit ExecStart ExecStop Slice [Install] WantedBy ",
           "it has the lines that it should have");
    std::remove(path.c_str());
  }
}

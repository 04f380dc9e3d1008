// A unit file of any content: enabling it makes links to it in the places for links, and no more.
#include <vexasystemd/vexasystemd.h>

#include <filesystem>

#include "fuzz.h"

namespace fs = std::filesystem;

static const fs::path kDir = "/run/systemd/system", kName = "pkgctl-fuzz.service";

static std::size_t CheckedLinks() {
  std::size_t links = 0;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(kDir)) {
    const fs::path place = entry.path().lexically_relative(kDir), type = place.extension();
    if (entry.is_symlink()) {
      Expect(fs::read_symlink(entry) == kDir / kName, "a link points to the unit");
      Expect(place.has_parent_path() ? place.filename() == kName : type == ".service",
             "it has the unit's name, or is an alias of the same type");
      ++links;
    } else {
      Expect(entry.is_directory() ? (type == ".wants" || type == ".requires") : place == kName,
             "a directory is for links, and there is no other file");
    }
  }
  return links;
}

void Check(const std::string& input) {
  fs::remove_all(kDir);
  fs::create_directories(kDir);
  std::ofstream(kDir / kName) << input;
  const bool enabled = VEXASystemdEnableInGenerator(kName);
  const std::size_t links = CheckedLinks();
  Expect(VEXASystemdEnableInGenerator(kName) == enabled, "enabling again has the same result");
  Expect(CheckedLinks() == links, "and changes nothing");
}

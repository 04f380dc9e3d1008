// usage: measure ROUNDS [-- UPGRADE_DIR PROGRAM ARGUMENT...]...
// Runs the programs in turn, so that other work of the machine slows all of them, each with
// UPGRADE_DIR linked in as the upgrade directory and nothing left of an earlier pass. Prints a line
// for each one: the medians of wall time and of the processor time of the program without its
// children, both in nanoseconds, and the peak memory in KiB of the program or its largest child.
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Case {
  std::string upgradeDir;
  std::vector<char*> argv;
  std::vector<long> wall, own, peak;
};

long Median(std::vector<long> values) {
  const auto middle = values.begin() + static_cast<long>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Undoes an earlier pass, links the archives in, and lays out the temporary directories that the
/// floor has removed: two for each package, as a pass leaves them to rm, the second one with conf.
void Prepare(const std::string& upgradeDir) {
  fs::remove("/run/.vexapkg_generate_install_units");
  fs::remove_all("/run/systemd");
  fs::remove("/.VexaUpgradePackages");
  fs::create_symlink(upgradeDir, "/.VexaUpgradePackages");
  if (!fs::exists(upgradeDir)) return;
  const auto count = std::distance(fs::directory_iterator(upgradeDir), {});
  for (long i = 1; i <= 2 * count; ++i) {
    const std::string dir = "/tmp/vexapkg_" + std::to_string(1000000 + i).substr(1);
    fs::create_directory(dir);
    std::ofstream(dir + "/INFO") << "{}";
    if (i > count) std::ofstream(dir + "/conf") << "[Service]";
  }
}

/// The process must have ended and not have been waited for.
long OwnTime(pid_t pid) {
  long time = 0;
  if (!(std::ifstream("/proc/" + std::to_string(pid) + "/schedstat") >> time))
    throw std::runtime_error("no schedstat of the ended process");
  return time;
}

void Run(Case& run) {
  Prepare(run.upgradeDir);
  const auto start = std::chrono::steady_clock::now();
  pid_t pid;
  if (posix_spawn(&pid, run.argv[0], nullptr, nullptr, run.argv.data(), environ) != 0)
    throw std::runtime_error(run.argv[0]);
  siginfo_t ended;
  waitid(P_PID, static_cast<id_t>(pid), &ended, WEXITED | WNOWAIT);
  run.wall.push_back((std::chrono::steady_clock::now() - start).count());
  run.own.push_back(OwnTime(pid));
  int status;
  rusage usage;
  if (wait4(pid, &status, 0, &usage) != pid || status != 0)
    throw std::runtime_error(std::string(run.argv[0]) + " failed");
  run.peak.push_back(usage.ru_maxrss);
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<Case> cases;
  for (int i = 2; i < argc; ++i) {
    if (argv[i] == std::string("--"))
      cases.push_back({argv[++i], {}, {}, {}, {}});
    else
      cases.back().argv.push_back(argv[i]);
  }
  for (Case& run : cases) run.argv.push_back(nullptr);
  for (int round = std::stoi(argv[1]); round > 0; --round)
    for (Case& run : cases) Run(run);
  for (const Case& run : cases)
    std::cout << Median(run.wall) << " " << Median(run.own) << " " << Median(run.peak) << "\n";
}

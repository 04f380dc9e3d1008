// usage: floor COUNT
// Starts, one after the other, the processes of a pass over COUNT packages (scripts/bench compares
// the two), in the manner in which the platform starts them, and does nothing else.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

posix_spawn_file_actions_t devNull;

void Run(std::initializer_list<const char*> words) {
  std::vector<char*> argv;
  for (const char* word : words) argv.push_back(const_cast<char*>(word));
  argv.push_back(nullptr);
  pid_t pid;
  if (posix_spawn(&pid, argv[0], &devNull, nullptr, argv.data(), environ) != 0 ||
      waitpid(pid, nullptr, 0) != pid)
    throw std::runtime_error(argv[0]);
}

void Log(const std::string& message) {
  const std::string command = "echo 'vexa-pkg-generator: " + message + "' > /dev/kmsg";
  Run({"/bin/bash", "-c", command.c_str()});
}

void RemoveTempDir(int number) {
  const std::string dir = "/tmp/vexapkg_" + std::to_string(1000000 + number).substr(1);
  Run({"/bin/rm", "-rf", dir.c_str()});
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc == 2 ? std::atoi(argv[1]) : 0;
  posix_spawn_file_actions_init(&devNull);
  posix_spawn_file_actions_addopen(&devNull, STDIN_FILENO, "/dev/null", O_RDWR, 0);
  posix_spawn_file_actions_adddup2(&devNull, STDIN_FILENO, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&devNull, STDIN_FILENO, STDERR_FILENO);
  Log("begin processing builtin package");
  for (int i = 1; i <= count; ++i) {
    Log("Load info, pkg=[p" + std::to_string(10000 + i).substr(1) + ".vpk]");
    RemoveTempDir(i);
  }
  Log("Generate builtin pkg install units");
  for (int unit = 0; unit < 2; ++unit) Run({"/bin/mkdir", "-p", "/run/systemd/system"});
  Log("Generate builtin pkg startup units");
  for (int i = 1; i <= count; ++i) RemoveTempDir(count + i);
  Log("end processing builtin package");
}

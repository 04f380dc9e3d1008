#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vexacore/spawn.h>
#include <vexacore/vexacore.h>

#include <cerrno>
#include <initializer_list>

#include "error.h"

namespace {

int SpawnOnDevNull(pid_t& pid, const char* program, const char* const* argv) {
  posix_spawn_file_actions_t actions;
  if (const int error = posix_spawn_file_actions_init(&actions)) return error;
  int error = posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDWR, 0);
  for (const int fd : {STDOUT_FILENO, STDERR_FILENO})
    if (error == 0) error = posix_spawn_file_actions_adddup2(&actions, STDIN_FILENO, fd);
  if (error == 0)
    error = posix_spawn(&pid, program, &actions, nullptr, const_cast<char* const*>(argv), environ);
  posix_spawn_file_actions_destroy(&actions);
  return error;
}

}  // namespace

int VexaSpawnAndWait(const char* program, const char* const* argv) {
  pid_t pid;
  if (const int error = SpawnOnDevNull(pid, program, argv))
    return VexaRecordError(error, __FILE__, __LINE__);
  int status;
  while (waitpid(pid, &status, 0) < 0)
    if (errno != EINTR) return VexaRecordError(errno, __FILE__, __LINE__);
  if (WIFSIGNALED(status)) return VexaRecordError(0x200 + WTERMSIG(status), __FILE__, __LINE__);
  if (WEXITSTATUS(status) != 0)
    return VexaRecordError(0x100 + WEXITSTATUS(status), __FILE__, __LINE__);
  return 0;
}

int VLIBCExec(const char* program, const char* arg1, const char* arg2, const char* arg3,
              const char* arg4) {
  const char* const argv[] = {program, arg1, arg2, arg3, arg4, nullptr};
  return VexaSpawnAndWait(program, argv);
}

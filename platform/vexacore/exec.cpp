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

/// Standard input, output and error on /dev/null. Made once per process, since the C library spends
/// a system call on every descriptor that is added, but anew after a failure.
int MakeDevNullActions(posix_spawn_file_actions_t& actions) {
  int error = posix_spawn_file_actions_init(&actions);
  if (error != 0) return error;
  error = posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDWR, 0);
  for (const int fd : {STDOUT_FILENO, STDERR_FILENO})
    if (error == 0) error = posix_spawn_file_actions_adddup2(&actions, STDIN_FILENO, fd);
  if (error != 0) posix_spawn_file_actions_destroy(&actions);
  return error;
}

int SpawnOnDevNull(pid_t& pid, const char* program, const char* const* argv) {
  static posix_spawn_file_actions_t devNull;
  static int error = -1;
  if (error != 0) error = MakeDevNullActions(devNull);
  if (error != 0) return error;
  return posix_spawn(&pid, program, &devNull, nullptr, const_cast<char* const*>(argv), environ);
}

}  // namespace

int VexaSpawnAndWait(const char* program, const char* const* argv) {
  pid_t pid;
  if (const int error = SpawnOnDevNull(pid, program, argv))
    return VexaRecordError(error, __FILE__, __LINE__);
  int status;
  while (waitpid(pid, &status, 0) == -1)
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

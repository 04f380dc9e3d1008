// Preloaded into a program, makes one of the allocations after the start of main fail: number
// FAIL_AT, or with FAIL_ON=1 that one and all after it; none when FAIL_AT is 0. How many there
// were, the program writes into /allocations when it ends.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t number, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
int __libc_start_main(int (*main)(int, char**, char**), int argc, char** argv, void (*init)(),
                      void (*fini)(), void (*loaderFini)(), void* stackEnd);
}

namespace {

int (*realMain)(int, char**, char**);
bool counting = false, failOn = false;
long count = 0, failAt = 0;

bool Fails() {
  if (!counting || (failOn ? ++count < failAt : ++count != failAt)) return false;
  errno = ENOMEM;
  return true;
}

int CountedMain(int argc, char** argv, char** environment) {
  failAt = std::atol(std::getenv("FAIL_AT"));
  failOn = std::getenv("FAIL_ON")[0] == '1';
  unsetenv("LD_PRELOAD");  // for the programs that it starts
  counting = true;
  return realMain(argc, argv, environment);
}

__attribute__((destructor)) void WriteCount() {
  counting = false;
  const int fd = open("/allocations", O_WRONLY | O_CREAT | O_TRUNC, 0600);
  dprintf(fd, "%ld\n", count);
  close(fd);
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) { return Fails() ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t number, std::size_t size) {
  return Fails() ? nullptr : __libc_calloc(number, size);
}
void* realloc(void* old, std::size_t size) { return Fails() ? nullptr : __libc_realloc(old, size); }

int __libc_start_main(int (*main)(int, char**, char**), int argc, char** argv, void (*init)(),
                      void (*fini)(), void (*loaderFini)(), void* stackEnd) {
  realMain = main;
  const auto start =
      reinterpret_cast<decltype(&__libc_start_main)>(dlsym(RTLD_NEXT, "__libc_start_main"));
  return start(CountedMain, argc, argv, init, fini, loaderFini, stackEnd);
}
}

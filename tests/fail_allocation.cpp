// Preloaded into a program, makes one of the allocations after the start of main fail: number
// FAIL_AT, or with FAIL_ON=1 that one and all after it. Then it makes the file /failed. All files
// are read and written in small pieces.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

static long left = 0;  // allocations up to the one that fails; 0 when none does
static int (*realMain)(int, char**, char**);

static bool Fails() {
  if (left == 0 || --left > 0) return false;
  left = std::atol(std::getenv("FAIL_ON"));
  close(open("/failed", O_WRONLY | O_CREAT, 0600));
  errno = ENOMEM;
  return true;
}

static int CountedMain(int argc, char** argv, char** environment) {
  unsetenv("LD_PRELOAD");  // for the programs that it starts
  left = std::atol(std::getenv("FAIL_AT"));
  return realMain(argc, argv, environment);
}

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t number, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
ssize_t __read(int fd, void* to, std::size_t size);
ssize_t __write(int fd, const void* from, std::size_t size);
void* malloc(std::size_t size) { return Fails() ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t n, std::size_t size) { return Fails() ? nullptr : __libc_calloc(n, size); }
void* realloc(void* old, std::size_t size) { return Fails() ? nullptr : __libc_realloc(old, size); }
ssize_t read(int fd, void* p, std::size_t n) { return __read(fd, p, n < 99 ? n : 99); }
ssize_t write(int fd, const void* p, std::size_t n) { return __write(fd, p, n < 99 ? n : 99); }
int __libc_start_main(decltype(realMain) main, int argc, char** argv, void (*init)(),
                      void (*fini)(), void (*end)(), void* stack) {
  realMain = main;
  const auto start =
      reinterpret_cast<decltype(&__libc_start_main)>(dlsym(RTLD_NEXT, "__libc_start_main"));
  return start(CountedMain, argc, argv, init, fini, end, stack);
}
}

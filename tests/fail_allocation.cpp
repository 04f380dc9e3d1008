// Preloaded into a program, makes one of the allocations after the start of main fail: number
// FAIL_AT, or with FAIL_ON=1 that one and all after it. Then it makes the file /failed.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

using Main = int (*)(int, char**, char**);
using Hook = void (*)();

namespace {

Main realMain;
long left = 0;  // allocations up to the one that fails; 0 when none does
bool failOn = false;

bool Fails() {
  if (left == 0 || --left > 0) return false;
  left = failOn ? 1 : 0;
  close(open("/failed", O_WRONLY | O_CREAT, 0600));
  errno = ENOMEM;
  return true;
}

int CountedMain(int argc, char** argv, char** environment) {
  failOn = std::getenv("FAIL_ON")[0] == '1';
  unsetenv("LD_PRELOAD");  // for the programs that it starts
  left = std::atol(std::getenv("FAIL_AT"));
  return realMain(argc, argv, environment);
}

}  // namespace

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t number, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
void* malloc(std::size_t size) { return Fails() ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t n, std::size_t size) { return Fails() ? nullptr : __libc_calloc(n, size); }
void* realloc(void* old, std::size_t size) { return Fails() ? nullptr : __libc_realloc(old, size); }
int __libc_start_main(Main main, int argc, char** argv, Hook init, Hook fini, Hook end, void* sp) {
  realMain = main;
  void* const start = dlsym(RTLD_NEXT, "__libc_start_main");
  return reinterpret_cast<decltype(&__libc_start_main)>(start)(CountedMain, argc, argv, init, fini,
                                                               end, sp);
}
}

// Preloaded into a program, makes allocation number FAIL_AT fail, or with FAIL_ON=1 that one and
// all after it; none when FAIL_AT is 0. The program then leaves the number of all in /allocations.
#include <cerrno>
#include <cstdio>
#include <cstdlib>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t number, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
}

static long count = 0, failAt = 0;
static bool failOn = false;

static bool Fails() {
  ++count;
  const bool fails = failAt != 0 && (failOn ? count >= failAt : count == failAt);
  if (fails) errno = ENOMEM;
  return fails;
}

__attribute__((constructor)) static void Start() {
  failAt = std::atol(std::getenv("FAIL_AT"));
  failOn = std::getenv("FAIL_ON")[0] == '1';
  unsetenv("LD_PRELOAD");  // for the programs that it starts
}

__attribute__((destructor)) static void WriteCount() {
  if (failAt != 0) return;
  std::FILE* file = std::fopen("/allocations", "w");
  std::fprintf(file, "%ld\n", count);
  std::fclose(file);
}

extern "C" {
void* malloc(std::size_t size) { return Fails() ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t number, std::size_t size) {
  return Fails() ? nullptr : __libc_calloc(number, size);
}
void* realloc(void* old, std::size_t size) { return Fails() ? nullptr : __libc_realloc(old, size); }
}

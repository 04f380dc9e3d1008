#pragma once

#include <unistd.h>

#include <cstring>
#include <fstream>
#include <iostream>
#include <string>

/// Every target defines this; it gets one input, and what it expects of it holds or ends the run.
void Check(const std::string& input);

extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
  Check({data, size});
  return 0;
}

/// Without /proc, as in a chroot, sanitizers don't find the bounds of the stack.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  if (access("/proc/self", F_OK) == 0) return 0;
  std::cerr << "SKIPPED: the fuzzers need /proc in the throw-away root" << std::endl;
  std::_Exit(77);
}

inline void Expect(bool holds, const char* what) {
  if (!holds) std::cerr << "does not hold: " << what << std::endl, std::abort();
}

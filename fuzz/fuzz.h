#pragma once

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

inline void Expect(bool holds, const char* what) {
  if (!holds) std::cerr << "does not hold: " << what << std::endl, std::abort();
}

#pragma once

#include <array>

namespace VEXAUtils {

/// One program to run: its path and its argument vector, which starts with the program's own name
/// and ends at the first null pointer. The strings must outlive the runner.
class ProcessRunner {
 public:
  ProcessRunner(const char* program, const char* arg0, const char* arg1, const char* arg2,
                const char* arg3, const char* arg4, const char* arg5, const char* arg6,
                const char* arg7, const char* arg8);
  ~ProcessRunner();
  ProcessRunner(const ProcessRunner&) = delete;
  ProcessRunner& operator=(const ProcessRunner&) = delete;

  /// Runs the program and waits for it. Both flags belong to the interface and change nothing.
  /// Returns 0 when it exited with status 0, a negative value for everything else.
  int run(bool, bool);

 private:
  const char* program_;
  std::array<const char*, 10> argv_;
};

}  // namespace VEXAUtils

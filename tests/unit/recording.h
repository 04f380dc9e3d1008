#pragma once

#include <functional>
#include <string>
#include <vector>

/// What the platform that records was called for, and how it answers.
struct Recording {
  /// One line per call: its name, or that of the class for a constructor, and its arguments, byte
  /// for byte and a "|" behind each. Destructors are not recorded.
  std::vector<std::string> calls;
  /// Decides from a call's line and its usual result (success) what it returns; it may throw, too.
  std::function<int(const std::string&, int)> answer = [](const auto&, int usual) { return usual; };
  int directories = 0;  ///< How many temporary ones were made; the last is named by this number.
};

/// The one recording of the process.
inline Recording recording;

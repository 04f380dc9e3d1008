#pragma once

#include <functional>
#include <string>
#include <vector>

/// What the platform that records was called for, and how it answers.
struct Recording {
  /// The name of each call (a constructor's is that of its class; destructors are not recorded) and
  /// its arguments, byte for byte, with a "|" after each.
  std::vector<std::string> calls;
  /// Decides from a call and its usual result, success, what it returns; it may throw, too.
  std::function<int(const std::string&, int)> answer = [](const auto&, int usual) { return usual; };
};

/// The one recording of the process.
inline Recording recording;

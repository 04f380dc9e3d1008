#pragma once

#include <vexapkg/package_info.h>

#include <functional>
#include <string>
#include <vector>

/// What the platform that records was called for, and how it answers.
struct Recording {
  /// One line per call: name and arguments, texts in double quotes and byte for byte. A constructor
  /// has the name of its class, a destructor that name after "~".
  std::vector<std::string> calls;
  /// When set, decides from a call's line and its usual result (success) what the call returns.
  std::function<int(const std::string& call, int usual)> answer;
  /// When not 0, the call of that number throws std::runtime_error("boom").
  std::size_t throwAt = 0;
  /// What every archive's INFO says.
  VEXAPackageTool::PackageInfo info;
};

/// The one recording of the process. Never destroyed, since the services end after main.
inline Recording& recording = *new Recording;

#pragma once

#include <vexapkg/package_info.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

/// What the platform says about a package. `info` is left in the record also when loading fails.
struct ScriptedPackage {
  VEXAPackageTool::PackageInfo info;
  bool loads = true, highPriority = false, install = true, enable = true;
};

struct Recording {
  /// One line per call: name and arguments, texts in double quotes and byte for byte. A constructor
  /// has the name of its class, a destructor that name after "~".
  std::vector<std::string> calls;
  /// By archive path. INFO and policy are those of the archive that was extracted from last.
  std::map<std::string, ScriptedPackage> packages;
  /// When set, decides from a call's line and its usual result (success) what the call returns.
  std::function<int(const std::string& call, int usual)> answer;
  /// When not 0, the call of that number throws std::runtime_error("boom").
  std::size_t throwAt = 0;
};

/// The one recording of the process. Never destroyed, since the services end after main.
inline Recording& recording = *new Recording;

#pragma once

#include <functional>
#include <string>
#include <vector>

/// What a platform that records was called for: a name for each function (a constructor's is that
/// of its class; destructors are not recorded) and its arguments, with a "|" after each.
inline std::vector<std::string> calls;

/// Decides from a call and its usual result, success, what it returns; it may throw, too.
inline std::function<int(const std::string&, int)> answer;

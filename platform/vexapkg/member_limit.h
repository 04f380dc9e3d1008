#pragma once

#include <cstddef>

/// The longest INFO or conf, and the longest policy file, that is read.
inline constexpr std::size_t kMaxMemberBytes = 16 * 1024 * 1024;

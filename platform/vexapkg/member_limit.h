#pragma once

#include <cstddef>

/// The longest member that is extracted, and the longest conf and policy file that is read.
inline constexpr std::size_t kMaxMemberBytes = std::size_t{16} * 1024 * 1024;

/// The longest INFO that is parsed: parsed, it can take a hundred times as much memory.
inline constexpr std::size_t kMaxInfoBytes = std::size_t{1024} * 1024;

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// UNIT_NAME_MAX of systemd, less the NUL.
inline constexpr std::size_t kMaxUnitNameBytes = 255;

/// True when `text` has only ASCII letters, ASCII digits and characters of `others`.
bool ConsistsOfLettersDigitsAnd(std::string_view others, std::string_view text);

/// True when systemd accepts `name` for a unit of a known type that can be active: no template.
bool IsUnitName(std::string_view name);

/// The name of a package's startup unit: "pkgctl-" + package name + ".service".
std::string StartupUnitName(const std::string& packageName);

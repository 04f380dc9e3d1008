#pragma once

#include <vexapkg/package_info.h>

#include <string>
#include <string_view>

/// True when `text` has only ASCII letters, ASCII digits and characters of `others`.
bool ConsistsOfLettersDigitsAnd(std::string_view others, std::string_view text);

/// The name of a package's startup unit, which the package name must leave room for: "pkgctl-" +
/// package name + ".service".
std::string StartupUnitName(const std::string& packageName);

/// Tells why a package can't be taken: its name, which becomes a part of a unit name and a word of
/// a command line run by root, or one of its prerequisite units is not what it must be. The text
/// names the value; it is empty when there is nothing wrong. A prerequisite unit must be a name
/// that systemd accepts for a unit of a known type, and no template.
std::string ProblemWithNames(const VEXAPackageTool::PackageInfo& info);

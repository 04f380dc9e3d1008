#pragma once

#include <vexapkg/package_info.h>

#include <string>

/// Tells why a package can't be taken: its name, which becomes a part of a unit name and a word of
/// a command line run by root, or one of its prerequisite units (unit_names.h) is not what it must
/// be. The text names the value; it is empty when there is nothing wrong.
std::string ProblemWithNames(const VEXAPackageTool::PackageInfo& info);

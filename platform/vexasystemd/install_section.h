#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What the "Install" sections of a unit file ask for.
struct InstallSection {
  std::vector<std::string> wantedBy, requiredBy, alias;
};

/// Reads unit file text by systemd's rules: comments, continued lines, repeated sections and keys,
/// and an empty value that takes back the values before it. Other lines are ignored.
InstallSection ParseInstallSection(std::string_view text);

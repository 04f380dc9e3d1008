#pragma once

#include <string>

/// Enables `unit` from within a systemd generator: looks it up by name in /etc/systemd/system,
/// /run/systemd/system and /usr/lib/systemd/system, in this order, and makes the links that
/// WantedBy, RequiredBy and Alias in its "Install" section ask for, under /run/systemd/system. True
/// when every link is there and points to the unit. False when the name is not that of a unit that
/// can be enabled (a template can't), the unit is not found, masked or asks for no link, or a link
/// could not be made; the other links are made all the same. Logs nothing.
bool VEXASystemdEnableInGenerator(const std::string& unit);

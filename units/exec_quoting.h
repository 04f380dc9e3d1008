#pragma once

#include <string>

/// The word of a bash command line that stands for exactly `text`: `text` itself when it consists
/// of letters, digits and / . _ - + : @ , = alone, else its ANSI-C quotation $'…', in printable
/// ASCII.
std::string QuoteForBash(const std::string& text);

/// What must stand between double quotes in a unit's ExecStart for systemd to pass on exactly
/// `argument`, which must not hold control characters.
std::string EscapeForExecStart(const std::string& argument);

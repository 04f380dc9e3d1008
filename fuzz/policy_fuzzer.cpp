// A policy of any content is taken, or refused with the one exception that is promised.
#include <vexapkg/policy_text.h>

#include <stdexcept>

#include "fuzz.h"

void Check(const std::string& input) try {
  for (const auto& [name, entry] : PackageBuiltin::ParsePolicy(input))
    Expect(entry.install || input.find("false") != std::string::npos, "no \"false\", installed");
} catch (const std::runtime_error& error) {
  Expect(std::string(error.what()).starts_with("/usr/vexa/etc/builtin-policy.json: "), "its name");
}

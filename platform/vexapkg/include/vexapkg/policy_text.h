#pragma once

/// The form of the policy file. Apart from the calls that read the file, for the fuzzer.

#include <map>
#include <optional>
#include <string>

namespace PackageBuiltin {

/// What the policy says of one package; a default entry is that of a package without one.
struct PolicyEntry {
  bool highPriority = false;
  bool install = true;
  std::optional<bool> enable;
};

using Policy = std::map<std::string, PolicyEntry>;

/// Parses the text of the policy file. Throws std::runtime_error, naming the file and the problem,
/// when it is not of the form that platform/README.md gives.
Policy ParsePolicy(const std::string& text);

}  // namespace PackageBuiltin

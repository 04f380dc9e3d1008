#pragma once

#include <string>

/// The policy for builtin packages, from /usr/vexa/etc/builtin-policy.json, which is read once per
/// process, when first asked. Without that file every package is low priority and installed.
/// Both calls throw std::runtime_error, naming the file and what is wrong with it, when it can't be
/// read or is not of the form that platform/README.md gives.
namespace PackageBuiltin {

struct BuiltinConfig {
  bool enable;  ///< Enable the package after installing it.
};

/// True when the builtin package of that name is high priority.
bool IsHighPriorityPackage(const std::string& name);

/// True when the builtin package of that name is to be installed at this boot. Sets `config.enable`
/// when the policy says so and leaves it alone otherwise.
bool ShouldInstallPackage(const std::string& name, BuiltinConfig& config);

}  // namespace PackageBuiltin

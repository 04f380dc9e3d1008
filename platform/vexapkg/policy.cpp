#include <sys/stat.h>
#include <vexacore/file.h>
#include <vexapkg/builtin_policy.h>
#include <vexapkg/policy_text.h>

#include <cerrno>
#include <cstring>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>

#include "json.h"
#include "member_limit.h"

namespace PackageBuiltin {
namespace {

const char kPolicyFile[] = "/usr/vexa/etc/builtin-policy.json";

[[noreturn]] void ThrowPolicyError(const std::string& problem) {
  throw std::runtime_error(std::string(kPolicyFile) + ": " + problem);
}

bool BoolOf(const Json::Value& value, const std::string& where) {
  if (!value.isBool()) ThrowPolicyError(where + " is neither true nor false");
  return value.asBool();
}

PolicyEntry EntryOf(const Json::Value& object, const std::string& name) {
  if (!object.isObject()) ThrowPolicyError("the entry of " + name + " is not an object");
  PolicyEntry entry;
  for (const std::string& key : object.getMemberNames()) {
    const Json::Value& value = object[key];
    const std::string where = key + " of " + name;
    if (key == "priority") {
      if (value != "high" && value != "low") ThrowPolicyError(where + " is neither high nor low");
      entry.highPriority = value == "high";
    } else if (key == "install") {
      entry.install = BoolOf(value, where);
    } else if (key == "enable") {
      entry.enable = BoolOf(value, where);
    } else {
      ThrowPolicyError("unknown key " + where);
    }
  }
  return entry;
}

Policy LoadPolicy() {
  std::string text;
  const int error = VexaReadFile(kPolicyFile, kMaxMemberBytes, text);
  if (error == ENOENT || error == ENOTDIR) {
    struct stat info;
    if (lstat(kPolicyFile, &info) == -1) return {};
    ThrowPolicyError("a link to nothing");
  }
  if (error != 0) ThrowPolicyError(error == EINVAL ? "not a regular file" : std::strerror(error));
  return ParsePolicy(text);
}

const PolicyEntry& EntryFor(const std::string& name) {
  static const Policy policy = LoadPolicy();
  static const PolicyEntry defaults;
  const auto found = policy.find(name);
  return found == policy.end() ? defaults : found->second;
}

}  // namespace

Policy ParsePolicy(const std::string& text) {
  Json::Value document;
  std::string problem;
  if (!ParseJsonObject(text, document, problem)) ThrowPolicyError(problem);
  Policy policy;
  for (const std::string& name : document.getMemberNames())
    policy.emplace(name, EntryOf(document[name], name));
  return policy;
}

bool IsHighPriorityPackage(const std::string& name) { return EntryFor(name).highPriority; }

bool ShouldInstallPackage(const std::string& name, BuiltinConfig& config) {
  const PolicyEntry& entry = EntryFor(name);
  config.enable = entry.enable.value_or(config.enable);
  return entry.install;
}

}  // namespace PackageBuiltin

#include <vexacore/file.h>
#include <vexapkg/package_info.h>

#include <set>
#include <string>
#include <utility>

#include "json.h"
#include "member_limit.h"

namespace VEXAPackageTool {
namespace {

/// A NUL, which JSON can hold as an escape, would cut the text short wherever it is used.
bool TakeText(const Json::Value& value, std::string& text) {
  if (!value.isString()) return false;
  text = value.asString();
  return text.find('\0') == std::string::npos;
}

/// A missing key leaves `text` as it is.
bool ReadString(const Json::Value& fields, const char* key, std::string& text) {
  if (!fields.isMember(key)) return true;
  return TakeText(fields[key], text);
}

/// A missing key leaves `texts` as it is.
bool ReadStrings(const Json::Value& fields, const char* key, std::set<std::string>& texts) {
  if (!fields.isMember(key)) return true;
  if (!fields[key].isArray()) return false;
  for (const Json::Value& element : fields[key]) {
    std::string text;
    if (!TakeText(element, text)) return false;
    texts.insert(text);
  }
  return true;
}

}  // namespace

bool PMSLoadPKGInfoFile(const std::string& dir, PackageInfo& info, const char*,
                        unsigned long long) {
  std::string text, problem;
  PackageInfo loaded;
  if (VexaReadFile(dir + "/INFO", kMaxInfoBytes, text) != 0 ||
      !ParseJsonObject(text, loaded.document, problem))
    return false;
  const Json::Value& fields = loaded.document;
  if (!ReadString(fields, "name", loaded.name) || loaded.name.empty() ||
      !ReadString(fields, "placement", loaded.placement) ||
      !ReadStrings(fields, "prerequisite_units", loaded.extra.prerequisiteUnits))
    return false;
  info = std::move(loaded);
  return true;
}

}  // namespace VEXAPackageTool

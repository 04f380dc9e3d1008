#include "json.h"

#include <json/reader.h>

#include <boost/locale/utf.hpp>
#include <exception>
#include <memory>

namespace {

bool IsUtf8WithoutNul(const std::string& text) {
  using Utf8 = boost::locale::utf::utf_traits<char>;
  for (auto at = text.begin(); at != text.end();) {
    const auto codePoint = Utf8::decode(at, text.end());
    if (codePoint == 0 || !boost::locale::utf::is_valid_codepoint(codePoint)) return false;
  }
  return true;
}

/// Even a strict reader of jsoncpp accepts comments between the members of an object and
/// between the elements of an array. Outside of strings JSON has no other use for a slash.
bool HoldsComment(const std::string& text) {
  bool inString = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (inString && text[i] == '\\')
      ++i;
    else if (text[i] == '"')
      inString = !inString;
    else if (!inString && text[i] == '/')
      return true;
  }
  return false;
}

/// Made once: making it costs more than reading an INFO with it.
Json::CharReader& StrictReader() {
  static const std::unique_ptr<Json::CharReader> reader = [] {
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    return std::unique_ptr<Json::CharReader>(builder.newCharReader());
  }();
  return *reader;
}

}  // namespace

bool ParseJsonObject(const std::string& text, Json::Value& object, std::string& problem) {
  if (!IsUtf8WithoutNul(text)) {
    problem = "not UTF-8 text";
    return false;
  }
  if (HoldsComment(text)) {
    problem = "a comment, or a slash outside of a string";
    return false;
  }
  try {
    if (!StrictReader().parse(text.data(), text.data() + text.size(), &object, &problem))
      return false;
  } catch (const Json::Exception& error) {  // nesting beyond the reader's limit
    problem = error.what();
    return false;
  }
  if (!object.isObject()) problem = "not an object";
  return object.isObject();
}

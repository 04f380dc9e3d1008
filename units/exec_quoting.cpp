#include "units/exec_quoting.h"

#include <string_view>

#include "intake/unit_names.h"

std::string QuoteForBash(const std::string& text) {
  if (!text.empty() && ConsistsOfLettersDigitsAnd("/._-+:@,=", text)) return text;
  constexpr std::string_view hex = "0123456789abcdef";
  std::string word = "$'";
  for (const char c : text) {
    if (c == '\\' || c == '\'') {
      word += {'\\', c};
    } else if (c >= ' ' && c <= '~') {
      word += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      word += {'\\', 'x', hex[byte >> 4], hex[byte & 0xf]};
    }
  }
  return word + "'";
}

std::string EscapeForExecStart(const std::string& argument) {
  std::string escaped;
  for (const char c : argument) {
    if (c == '"' || c == '\\') escaped += '\\';
    if (c == '%' || c == '$') escaped += c;
    escaped += c;
  }
  return escaped;
}

#include "install_section.h"

#include <algorithm>
#include <boost/algorithm/string/split.hpp>
#include <boost/algorithm/string/trim.hpp>

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

bool IsComment(std::string_view line) {
  const auto start = std::find_if_not(line.begin(), line.end(), IsBlank);
  return start != line.end() && (*start == '#' || *start == ';');
}

/// Takes one logical line off the front of `text`: a backslash at a line's end joins the next line
/// to it with a blank, and comments in between do not count.
std::string TakeLine(std::string_view& text) {
  std::string line;
  bool continued = true;
  while (continued && !text.empty()) {
    const auto end = text.find('\n');
    std::string_view piece = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (IsComment(piece)) {
      continued = !line.empty();
      continue;
    }
    continued = piece.ends_with('\\');
    if (continued) piece.remove_suffix(1);
    line.append(piece).append(continued ? " " : "");
  }
  boost::algorithm::trim_if(line, IsBlank);
  return line;
}

void AddValues(std::vector<std::string>& list, std::string value) {
  boost::algorithm::trim_if(value, IsBlank);
  if (value.empty()) {
    list.clear();
    return;
  }
  std::vector<std::string> words;
  boost::algorithm::split(words, value, IsBlank, boost::token_compress_on);
  list.insert(list.end(), words.begin(), words.end());
}

}  // namespace

InstallSection ParseInstallSection(std::string_view text) {
  InstallSection install;
  bool inInstall = false;
  while (!text.empty()) {
    const std::string line = TakeLine(text);
    if (line.starts_with('[')) inInstall = line == "[Install]";
    const auto equals = line.find('=');
    if (!inInstall || equals == std::string::npos) continue;
    std::string key = line.substr(0, equals);
    boost::algorithm::trim_right_if(key, IsBlank);
    if (key == "WantedBy") AddValues(install.wantedBy, line.substr(equals + 1));
    if (key == "RequiredBy") AddValues(install.requiredBy, line.substr(equals + 1));
    if (key == "Alias") AddValues(install.alias, line.substr(equals + 1));
  }
  return install;
}

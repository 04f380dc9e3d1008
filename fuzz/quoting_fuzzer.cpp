// Archive paths of any bytes in an install command: taken apart by the rules of systemd and then of
// bash, it gives the words that went in. Both models refuse what has no place here.
#include <vector>

#include "fuzz.h"
#include "units/exec_quoting.h"

/// The argument that systemd makes of the text between double quotes.
static std::string SystemdArgument(const std::string& text) {
  std::string argument;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    Expect(c >= ' ' && c <= '~' && c != '"', "one printable line, up to the closing quote");
    if ((c == '\\' || c == '%' || c == '$') && text[++i] != c)
      Expect(c == '\\' && text[i] == '"', "systemd expands nothing");
    argument += text[i];
  }
  return argument;
}

/// The words of a bash command line; ";" stands for itself.
static std::vector<std::string> BashWords(const std::string& text) {
  std::vector<std::string> words(1);
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (quoted && c == '\\' && text.at(++i) == 'x') {
      words.back() += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else if (quoted && c == '\\') {
      Expect(text[i] == '\\' || text[i] == '\'', "bash knows the escape");
      words.back() += text[i];
    } else if (quoted ? c == '\'' : text.compare(i, 2, "$'") == 0) {
      i += quoted ? 0 : 1;
      quoted = !quoted;
    } else if (!quoted && (c == ' ' || c == ';')) {
      words.emplace_back(c == ';' ? ";" : "");
    } else {
      Expect(quoted || !std::strchr("\\\"'`$*?[]{}()<>|&!#~^%", c), "bash expands nothing");
      words.back() += c;
    }
  }
  return words;
}

void Check(const std::string& input) {
  const std::string path = "/.VexaUpgradePackages/" + input.substr(0, input.find('\0'));
  const std::string other = input.substr(input.find('\0') + 1).c_str();
  const std::string script = "install " + QuoteForBash(path) + " " + QuoteForBash(other) + "; true";
  Expect(BashWords(SystemdArgument(EscapeForExecStart(script))) ==
             std::vector<std::string>{"install", path, other, ";", "true"},
         "the words are those that went in");
}

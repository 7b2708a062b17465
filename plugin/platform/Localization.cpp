#include "platform/Localization.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <utility>

#include "platform/Registry.h"
#include "platform/Surroundings.h"

namespace vorn {

namespace {

using Table = std::map<std::string, std::string, std::less<>>;

// Reads a table of texts: `"key" = "value";` and comments. What does not fit costs its own line and no more.
class StringsParser {
 public:
  explicit StringsParser(std::string_view text) : m_text(text) {}

  Table run() {
    Table table;
    while (skipToEntry()) {
      const std::size_t begin = m_at;
      std::optional<std::string> key = quoted();
      std::optional<std::string> value = key && sign('=') ? quoted() : std::nullopt;
      if (value && sign(';')) {
        table.insert_or_assign(std::move(*key), std::move(*value));
      } else {
        m_at = begin;
        skipLine();
      }
    }
    return table;
  }

 private:
  bool skipToEntry() {
    for (skipBlanks(); m_at < m_text.size() && m_text[m_at] != '"'; skipBlanks()) {
      if (m_text.substr(m_at, 2) == "/*") {
        const std::size_t end = m_text.find("*/", m_at + 2);
        m_at = end == std::string_view::npos ? m_text.size() : end + 2;
      } else {
        skipLine();
      }
    }
    return m_at < m_text.size();
  }

  void skipBlanks() { m_at = std::min(m_text.find_first_not_of(" \t\r\n", m_at), m_text.size()); }
  void skipBlanksInLine() { m_at = std::min(m_text.find_first_not_of(" \t", m_at), m_text.size()); }

  void skipLine() {
    const std::size_t end = m_text.find('\n', m_at);
    m_at = end == std::string_view::npos ? m_text.size() : end + 1;
  }

  bool sign(char expected) {
    skipBlanksInLine();
    if (m_at == m_text.size() || m_text[m_at] != expected) return false;
    ++m_at;
    return true;
  }

  // A line break inside a text is written as an escape, so that a forgotten quote swallows one line only.
  std::optional<std::string> quoted() {
    if (!sign('"')) return std::nullopt;
    std::string content;
    while (m_at < m_text.size() && m_text[m_at] != '\n') {
      const char c = m_text[m_at++];
      if (c == '"') return content;
      content += c == '\\' && m_at < m_text.size() ? unescaped(m_text[m_at++]) : c;
    }
    return std::nullopt;
  }

  static char unescaped(char letter) {
    switch (letter) {
      case 'n': return '\n';
      case 'r': return '\r';
      case 't': return '\t';
      default: return letter;
    }
  }

  std::string_view m_text;
  std::size_t m_at = 0;
};

struct LocalizedTexts {
  Table table;

  LocalizedTexts() {
    Surroundings* surroundings = Registry::platform().surroundings;
    if (!surroundings) return;
    if (const auto content = surroundings->resource("Localizable", "strings"))
      table = StringsParser(*content).run();
  }
};

}  // namespace

std::string localizedString(std::string_view key) {
  const Table& table = Registry::shared<LocalizedTexts>().table;
  const auto found = table.find(key);
  return found == table.end() ? std::string(key) : found->second;
}

std::string formatText(std::string_view format, std::initializer_list<std::string_view> arguments) {
  std::string text;
  const std::string_view* argument = arguments.begin();
  for (std::size_t at = 0; at < format.size(); ++at) {
    const std::string_view two = format.substr(at, 2);
    if (two == "%@") {
      if (argument != arguments.end()) text += *argument++;
      ++at;
    } else {
      text += format[at];
      if (two == "%%") ++at;
    }
  }
  return text;
}

}  // namespace vorn

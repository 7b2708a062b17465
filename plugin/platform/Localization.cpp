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
  explicit StringsParser(std::string_view text) : text_(text) {}

  Table run() {
    Table table;
    while (skipToEntry()) {
      const std::size_t begin = at_;
      std::optional<std::string> key = quoted();
      std::optional<std::string> value = key && sign('=') ? quoted() : std::nullopt;
      if (value && sign(';')) {
        table.insert_or_assign(std::move(*key), std::move(*value));
      } else {
        at_ = begin;
        skipLine();
      }
    }
    return table;
  }

 private:
  bool skipToEntry() {
    for (skipBlanks(); at_ < text_.size() && text_[at_] != '"'; skipBlanks()) {
      if (text_.substr(at_, 2) == "/*") {
        const std::size_t end = text_.find("*/", at_ + 2);
        at_ = end == std::string_view::npos ? text_.size() : end + 2;
      } else {
        skipLine();
      }
    }
    return at_ < text_.size();
  }

  void skipBlanks() { at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size()); }
  void skipBlanksInLine() { at_ = std::min(text_.find_first_not_of(" \t", at_), text_.size()); }

  void skipLine() {
    const std::size_t end = text_.find('\n', at_);
    at_ = end == std::string_view::npos ? text_.size() : end + 1;
  }

  bool sign(char expected) {
    skipBlanksInLine();
    if (at_ == text_.size() || text_[at_] != expected) return false;
    ++at_;
    return true;
  }

  // A line break inside a text is written as an escape, so that a forgotten quote swallows one line only.
  std::optional<std::string> quoted() {
    if (!sign('"')) return std::nullopt;
    std::string content;
    while (at_ < text_.size() && text_[at_] != '\n') {
      const char c = text_[at_++];
      if (c == '"') return content;
      content += c == '\\' && at_ < text_.size() ? unescaped(text_[at_++]) : c;
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

  std::string_view text_;
  std::size_t at_ = 0;
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

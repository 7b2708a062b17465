#include "lab/shell/scenario/ScenarioText.h"

#include <algorithm>

namespace vornlab {
namespace {

constexpr std::string_view kBlanks = " \t\r";

class LineSplitter {
 public:
  LineSplitter(std::string_view line, std::string place) : m_line(line), m_place(std::move(place)) {}

  std::vector<ScenarioWord> words() {
    std::vector<ScenarioWord> found;
    while (skipBlanks() && m_line[m_at] != '#') found.push_back(m_line[m_at] == '"' ? quoted() : plain());
    return found;
  }

 private:
  bool skipBlanks() {
    m_at = std::min(m_line.find_first_not_of(kBlanks, m_at), m_line.size());
    return m_at < m_line.size();
  }

  ScenarioWord plain() {
    const std::size_t end = std::min(m_line.find_first_of(kBlanks, m_at), m_line.size());
    const std::string_view word = m_line.substr(m_at, end - m_at);
    if (word.find('"') != std::string_view::npos) fail("a blank before the quote in " + std::string(word));
    m_at = end;
    return {std::string(word), false};
  }

  ScenarioWord quoted() {
    ScenarioWord word{"", true};
    for (++m_at; m_at < m_line.size(); ++m_at) {
      if (m_line[m_at] == '"') {
        ++m_at;
        if (m_at < m_line.size() && kBlanks.find(m_line[m_at]) == std::string_view::npos) {
          fail("a blank behind the closing quote");
        }
        return word;
      }
      word.text += m_line[m_at] == '\\' ? escaped() : m_line[m_at];
    }
    fail("a closing quote");
  }

  char escaped() {
    ++m_at;
    const char c = m_at < m_line.size() ? m_line[m_at] : '\0';
    if (c == 'n') return '\n';
    if (c != '"' && c != '\\') fail("\\n, \\\" or \\\\ behind the backslash");
    return c;
  }

  [[noreturn]] void fail(const std::string& expected) const {
    throw ScenarioError(m_place + "expected " + expected);
  }

  std::string_view m_line;
  std::string m_place;
  std::size_t m_at = 0;
};

}  // namespace

std::vector<ScenarioLine> readScenarioText(std::string_view text, const std::string& file) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::vector<ScenarioLine> lines;
  std::size_t number = 0;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const std::string_view line = text.substr(begin, end - begin);
    begin = end + 1;
    ++number;
    ScenarioLine read;
    read.number = number;
    read.words = LineSplitter(line, file + ":" + std::to_string(number) + ": ").words();
    if (read.words.empty()) continue;
    const std::size_t first = line.find_first_not_of(kBlanks);
    read.text = line.substr(first, line.find_last_not_of(kBlanks) + 1 - first);
    lines.push_back(std::move(read));
  }
  return lines;
}

}  // namespace vornlab

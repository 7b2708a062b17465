#include "lab/shell/scenario/ScenarioText.h"

#include <algorithm>

namespace vornlab {
namespace {

constexpr std::string_view kBlanks = " \t\r";

class LineSplitter {
 public:
  LineSplitter(std::string_view line, std::string place) : line_(line), place_(std::move(place)) {}

  std::vector<ScenarioWord> words() {
    std::vector<ScenarioWord> found;
    while (skipBlanks() && line_[at_] != '#') found.push_back(line_[at_] == '"' ? quoted() : plain());
    return found;
  }

 private:
  bool skipBlanks() {
    at_ = std::min(line_.find_first_not_of(kBlanks, at_), line_.size());
    return at_ < line_.size();
  }

  ScenarioWord plain() {
    const std::size_t end = std::min(line_.find_first_of(kBlanks, at_), line_.size());
    const std::string_view word = line_.substr(at_, end - at_);
    if (word.find('"') != std::string_view::npos) fail("a blank before the quote in " + std::string(word));
    at_ = end;
    return {std::string(word), false};
  }

  ScenarioWord quoted() {
    ScenarioWord word{"", true};
    for (++at_; at_ < line_.size(); ++at_) {
      if (line_[at_] == '"') {
        ++at_;
        if (at_ < line_.size() && kBlanks.find(line_[at_]) == std::string_view::npos) {
          fail("a blank behind the closing quote");
        }
        return word;
      }
      word.text += line_[at_] == '\\' ? escaped() : line_[at_];
    }
    fail("a closing quote");
  }

  char escaped() {
    ++at_;
    const char c = at_ < line_.size() ? line_[at_] : '\0';
    if (c == 'n') return '\n';
    if (c != '"' && c != '\\') fail("\\n, \\\" or \\\\ behind the backslash");
    return c;
  }

  [[noreturn]] void fail(const std::string& expected) const {
    throw ScenarioError(place_ + "expected " + expected);
  }

  std::string_view line_;
  std::string place_;
  std::size_t at_ = 0;
};

}  // namespace

std::vector<ScenarioLine> readScenarioText(std::string_view text, const std::string& file) {
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

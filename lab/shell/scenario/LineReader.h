#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "lab/shell/scenario/ScenarioText.h"

namespace vornlab {

// Reads one line of a scenario word by word. Whatever is not there as expected throws ScenarioError, with the way
// in which the command is written.
class LineReader {
 public:
  LineReader(const ScenarioLine& line, std::string file) : m_line(line), m_file(std::move(file)) {}

  // How the command is written, for messages from now on.
  void setUsage(std::string_view usage) { m_usage = usage; }
  const std::string& file() const { return m_file; }

  bool atEnd() const { return m_at == m_line.words.size(); }
  // The word that comes next, or "" at the end; a text in quotes is none.
  std::string_view ahead() const;
  // Takes the next word when it is this one. Several words in a row are given with blanks between.
  bool take(std::string_view keywords);
  void need(std::string_view keywords);

  // A single word or a text in quotes; `what` tells in words what is expected.
  std::string text(std::string_view what);
  // A text that has to stand in quotes.
  std::string quoted();
  bool isQuotedAhead() const { return !atEnd() && m_line.words[m_at].isQuoted; }
  std::int64_t number(std::string_view what);
  // Seconds since 1970, of a time in UTC such as 2026-11-23T09:00.
  double time();
  // Of "60 min".
  double minutes();
  // Of "0.3 s".
  double seconds();
  void needEnd();

  // Fails with what was expected where the reader stands.
  [[noreturn]] void fail(const std::string& expected) const;
  // Fails with a sentence of its own.
  [[noreturn]] void refuse(const std::string& why) const;

 private:
  double amount(std::string_view unit);

  const ScenarioLine& m_line;
  std::string m_file;
  std::string m_usage;
  std::size_t m_at = 0;
};

}  // namespace vornlab

#include "lab/shell/scenario/LineReader.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <ctime>

#include "lab/shell/Words.h"

namespace vornlab {
namespace {

template <typename Number>
bool readNumber(const std::string& word, Number& number) {
  const char* end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, number);
  return error == std::errc{} && stop == end;
}

}  // namespace

std::string_view LineReader::ahead() const {
  return atEnd() || m_line.words[m_at].isQuoted ? std::string_view() : std::string_view(m_line.words[m_at].text);
}

bool LineReader::take(std::string_view keywords) {
  std::size_t at = m_at;
  for (std::size_t begin = 0; begin <= keywords.size();) {
    const std::size_t end = std::min(keywords.find(' ', begin), keywords.size());
    const bool isThere = at < m_line.words.size() && !m_line.words[at].isQuoted &&
                         m_line.words[at].text == keywords.substr(begin, end - begin);
    if (!isThere) return false;
    ++at;
    begin = end + 1;
  }
  m_at = at;
  return true;
}

void LineReader::need(std::string_view keywords) {
  if (!take(keywords)) fail("\"" + std::string(keywords) + "\"");
}

std::string LineReader::text(std::string_view what) {
  if (atEnd()) fail(std::string(what));
  return m_line.words[m_at++].text;
}

std::string LineReader::quoted() {
  if (!isQuotedAhead()) fail("a text in quotes");
  return m_line.words[m_at++].text;
}

std::int64_t LineReader::number(std::string_view what) {
  std::int64_t value = 0;
  if (!readNumber(std::string(ahead()), value)) fail(std::string(what));
  ++m_at;
  return value;
}

double LineReader::time() {
  const std::string word(ahead());
  std::tm parts{};
  const bool isRead = std::sscanf(word.c_str(), "%4d-%2d-%2dT%2d:%2d", &parts.tm_year, &parts.tm_mon,
                                  &parts.tm_mday, &parts.tm_hour, &parts.tm_min) == 5;
  parts.tm_year -= 1900;
  parts.tm_mon -= 1;
  const auto seconds = static_cast<double>(timegm(&parts));
  // What is no day of the calendar, or written in another way, comes back as something else.
  if (!isRead || timeInWords(seconds, "%Y-%m-%dT%H:%M") != word) fail("a time such as 2026-11-23T09:00");
  ++m_at;
  return seconds;
}

double LineReader::minutes() { return amount("min"); }

double LineReader::seconds() { return amount("s"); }

double LineReader::amount(std::string_view unit) {
  double value = 0;
  // Asked so that what is no number at all, "nan", fails too.
  if (!readNumber(std::string(ahead()), value) || !(value >= 0 && value <= 100000)) {
    fail("a number of " + std::string(unit));
  }
  ++m_at;
  need(unit);
  return value;
}

void LineReader::needEnd() {
  if (!atEnd()) fail("nothing more");
}

void LineReader::fail(const std::string& expected) const {
  std::string found = "the line ends";
  // A text in quotes may be a passcode.
  if (!atEnd()) found = isQuotedAhead() ? "found a text in quotes" : "found \"" + m_line.words[m_at].text + "\"";
  refuse("expected " + expected + ", " + found);
}

void LineReader::refuse(const std::string& why) const {
  std::string message = m_file + ":" + std::to_string(m_line.number) + ": " + why;
  if (!m_usage.empty()) message += "\n  it is written: " + m_usage;
  throw ScenarioError(message);
}

}  // namespace vornlab

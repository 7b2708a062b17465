#include "lab/desktop/JournalTail.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <string_view>
#include <utility>

#include "util/Text.h"
#include "util/Value.h"
#include "util/vStringUtils.h"

namespace vornlab {
namespace {

using vorn::Value;

constexpr std::size_t kMostShown = 400;

std::string shortened(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  if (text.size() <= kMostShown) return text;
  std::size_t end = kMostShown;
  // Not within a character.
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return text.substr(0, end) + " …";
}

// Empty for what is no event.
std::string inWords(const std::string& line) {
  const Value event = vorn::vStringUtils::toArrayOrNSDictionary(line);
  const std::string name = event["event"].text();
  if (name.empty()) return {};
  char time[16];
  std::snprintf(time, sizeof time, "%8.2f", event["seconds"].realValue());
  std::string words = std::string(time) + "  ";
  if (name == "request") {
    words += "→ " + std::to_string(event["action"].integerValue());
    if (!event["operation"].isAbsent()) words += "." + std::to_string(event["operation"].integerValue());
  } else if (name == "reply") {
    words += "← " + std::to_string(event["action"].integerValue());
  } else {
    words += "· " + name;
  }
  const std::string content = event["content"].text();
  if (!content.empty()) words += "  " + content;
  for (const Value& fault : event["faults"].items()) words += "  [" + fault.text() + "]";
  return shortened(std::move(words));
}

}  // namespace

std::vector<std::string> JournalTail::takeLines() {
  std::ifstream journal(m_journal, std::ios::binary);
  journal.seekg(static_cast<std::streamoff>(m_read));
  std::vector<std::string> lines;
  for (std::string line; std::getline(journal, line);) {
    m_read += line.size();
    m_rest += line;
    if (journal.eof()) break;
    ++m_read;
    if (std::string words = inWords(std::exchange(m_rest, {})); !words.empty()) lines.push_back(std::move(words));
  }
  return lines;
}

}  // namespace vornlab

#include "lab/shell/scenario/TextExpectation.h"

#include <algorithm>

namespace vornlab {
namespace {

std::size_t occurrences(const std::string& text, const std::string& part) {
  if (part.empty()) return 0;
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

}  // namespace

TextExpectation TextExpectation::read(LineReader& line) {
  TextExpectation read;
  const std::pair<const char*, Form> forms[] = {{"contains", Form::contains}, {"lacks", Form::lacks},
                                                {"once", Form::once},         {"starts", Form::starts},
                                                {"none", Form::none},         {"any", Form::any}};
  for (const auto& [word, form] : forms) {
    if (!line.take(word)) continue;
    read.m_form = form;
    read.m_words = word;
    if (form == Form::none || form == Form::any) return read;
    break;
  }
  if (read.m_words.empty() && line.take("empty")) {
    read.m_texts = {""};
    read.m_words = "empty";
    return read;
  }
  if (read.m_words.empty()) line.take("is");
  do {
    read.m_texts.push_back(line.text("a text"));
    read.m_words += (read.m_words.empty() ? "" : " ") + ("\"" + read.m_texts.back() + "\"");
  } while (read.m_form != Form::is && !line.atEnd());
  return read;
}

void TextExpectation::check(const std::string& what, const std::optional<std::string>& text) const {
  // What is not there lacks everything.
  const bool isAsExpected =
      text ? m_form != Form::none && holds(*text) : m_form == Form::none || m_form == Form::lacks;
  if (isAsExpected) return;
  throw Mismatch(what + " " + m_words, text ? "\"" + *text + "\"" : "none");
}

bool TextExpectation::holds(const std::string& text) const {
  if (m_form == Form::any) return !text.empty();
  return std::all_of(m_texts.begin(), m_texts.end(), [&](const std::string& part) {
    switch (m_form) {
      case Form::is: return text == part;
      case Form::contains: return text.find(part) != std::string::npos;
      case Form::lacks: return text.find(part) == std::string::npos;
      case Form::once: return occurrences(text, part) == 1;
      default: return text.starts_with(part);
    }
  });
}

}  // namespace vornlab

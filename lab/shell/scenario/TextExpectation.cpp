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
    read.form_ = form;
    read.words_ = word;
    if (form == Form::none || form == Form::any) return read;
    break;
  }
  if (read.words_.empty() && line.take("empty")) {
    read.texts_ = {""};
    read.words_ = "empty";
    return read;
  }
  if (read.words_.empty()) line.take("is");
  do {
    read.texts_.push_back(line.text("a text"));
    read.words_ += (read.words_.empty() ? "" : " ") + ("\"" + read.texts_.back() + "\"");
  } while (read.form_ != Form::is && !line.atEnd());
  return read;
}

void TextExpectation::check(const std::string& what, const std::optional<std::string>& text) const {
  // What is not there lacks everything.
  const bool isAsExpected =
      text ? form_ != Form::none && holds(*text) : form_ == Form::none || form_ == Form::lacks;
  if (isAsExpected) return;
  throw Mismatch(what + " " + words_, text ? "\"" + *text + "\"" : "none");
}

bool TextExpectation::holds(const std::string& text) const {
  if (form_ == Form::any) return !text.empty();
  return std::all_of(texts_.begin(), texts_.end(), [&](const std::string& part) {
    switch (form_) {
      case Form::is: return text == part;
      case Form::contains: return text.find(part) != std::string::npos;
      case Form::lacks: return text.find(part) == std::string::npos;
      case Form::once: return occurrences(text, part) == 1;
      default: return text.starts_with(part);
    }
  });
}

}  // namespace vornlab

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lab/shell/scenario/LineReader.h"
#include "lab/shell/scenario/Mismatch.h"

namespace vornlab {

// What a scenario says of a text: is, contains, lacks, starts, once, with one text or several; or empty, none,
// any.
class TextExpectation {
 public:
  // Reads the rest of the line.
  static TextExpectation read(LineReader& line);

  // Throws Mismatch when the text is not so; an absent text is "none". `what` names the text for the report.
  void check(const std::string& what, const std::optional<std::string>& text) const;

 private:
  enum class Form { is, contains, lacks, once, starts, none, any };

  bool holds(const std::string& text) const;

  Form m_form = Form::is;
  std::vector<std::string> m_texts;
  std::string m_words;
};

}  // namespace vornlab

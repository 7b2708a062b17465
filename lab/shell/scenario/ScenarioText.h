#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "lab/shell/LabError.h"

namespace vornlab {

// A line that cannot be read. The message begins with the file and the line, and says what was expected.
class ScenarioError : public UsageError {
 public:
  using UsageError::UsageError;
};

struct ScenarioWord {
  std::string text;
  bool isQuoted = false;
};

// One command of a scenario, with the place where it stands. A line has at least one word.
struct ScenarioLine {
  std::size_t number = 0;
  std::string text;
  std::vector<ScenarioWord> words;
};

// Splits a scenario into its lines: words between blanks, and texts in double quotes with \n, \" and \\ in them.
// Empty lines and what stands behind a # outside quotes are left out. Throws ScenarioError; `file` stands in its
// message.
std::vector<ScenarioLine> readScenarioText(std::string_view text, const std::string& file);

}  // namespace vornlab

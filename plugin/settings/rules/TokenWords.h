#pragma once

// The words in a field of tokens. Pure functions; time linear in the text.

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/TokenText.h"

namespace vorn::panel_rules {

// The plain text between the caret and the chip before it, or the start.
struct CurrentToken {
  std::string text{};
  TextRange range{};

  bool operator==(const CurrentToken&) const = default;
};

// Absent while something is selected, and at the start of the text. "" right behind a chip.
std::optional<CurrentToken> currentToken(const TokenText& tokens);

// Without blanks and new lines at both ends.
std::string trimmed(std::string_view text);
// A blank or a semicolon ends a word.
bool holdsSeparator(std::string_view text);
// The last word of the text is at its end.
bool endsWithSeparator(std::string_view text);
// The word of a token: without blanks and new lines at both ends, and without semicolons.
std::string wordOf(std::string_view token);
// The one word of a text: without separators at both ends. Absent when a semicolon stands inside: taken out, it
// would join two words to one that nobody wrote.
std::optional<std::string> onlyWordOf(std::string_view text);

// What a text holds beside its chips that the test does not know as a word, such as the beginning of one.
std::string unknownWords(const TokenText& tokens, const std::function<bool(const std::string&)>& isKnown);

}  // namespace vorn::panel_rules

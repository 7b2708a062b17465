#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vornlab {

// Texts on a terminal, measured in its columns: an East Asian wide character or an emoji takes two, a mark that
// joins the character before it takes none. All in time linear in the text.

// The text fit for one line of a terminal: a blank in place of each control character, line break, mark of
// direction and byte that is no UTF-8, so that nothing in it moves the cursor or speaks to the terminal.
std::string onTerminal(std::string_view text);

// The same for JSON, in which such a character is written as an escape.
std::string jsonOnTerminal(std::string_view json);

std::size_t columnsOf(std::string_view text);

// As much of the text's beginning as has room, with "…" at its end when something was cut.
std::string cutToColumns(std::string_view text, std::size_t columns);

// The same, filled up with blanks to exactly that many columns.
std::string filledToColumns(std::string_view text, std::size_t columns);

}  // namespace vornlab

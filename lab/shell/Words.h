#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vornlab {

// The small things that many commands say, each in one way.

// As much of the beginning of a text as has room in that many bytes, with no character cut in two.
std::string_view beginningOf(std::string_view text, std::size_t bytes);

// The same, with " ..." behind a text that was cut.
std::string shortened(std::string_view text, std::size_t bytes);

// The text with a blank in place of each control character, so that it keeps to its line.
std::string onOneLine(std::string text);

// A moment in UTC, in the form of strftime, from seconds since 1970.
std::string timeInWords(double seconds, const char* form);

// A number of seconds, such as "1 second" or "0.5 seconds".
std::string secondsInWords(double seconds);

}  // namespace vornlab

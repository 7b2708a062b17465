#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace vornlab {

// The one place where the laboratory prints. Passcodes, join tokens and addresses are covered here, whoever has
// written the text, and nothing in it speaks to a terminal. Nothing else of the laboratory's shell writes to
// standard output or standard error, but for what draws (ProgressBar, WatchScreen) and what hands bytes on as they
// are.

// Prints one line; a line break within it is a blank.
void say(std::string_view line);
// Prints one line of which nothing is covered any more: it was covered in a larger context, or it is what the
// person asked for, such as the join URLs of meet.
void sayAsIs(std::string_view line);
// Prints a text of several lines to standard error, under the program's name when it is given.
void complain(std::string_view text, std::string_view program = {});
// The same to standard output, such as a command's help.
void sayLines(std::string_view text);

// One object on a line of its own, printed at once. What is not UTF-8 comes out as U+FFFD, so that each line is
// JSON whatever a file holds.
void sayJsonLine(const nlohmann::ordered_json& object);
void sayJsonLineAsIs(const nlohmann::ordered_json& object);

// Prints bytes of which nothing is changed.
void sayBytes(std::string_view bytes);

// Brings what was printed to where standard output goes.
void flushOutput();
// The system's error with which standard output failed first; 0 when nothing has failed.
int outputError();

}  // namespace vornlab

#pragma once

#include <string>

namespace vornlab {

// What the values of options have to be. Each check answers what is wrong with a value, in words that tell what
// was expected, or "".

std::string complaintOfFile(const std::string& path);
std::string complaintOfFolder(const std::string& path);

// A file of meetings that can be read, if it is there; ":memory:" is no file.
std::string complaintOfMeetings(const std::string& path);
// The same of one that can be written, too, or made where it is missing.
std::string complaintOfDatabase(const std::string& path);

// Anything but "".
std::string complaintOfNothing(const std::string& text);

// A number of seconds, from a thousandth of one to a day.
std::string complaintOfSeconds(const std::string& text);

// The number of a process.
std::string complaintOfProcess(const std::string& text);

}  // namespace vornlab

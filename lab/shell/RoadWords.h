#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "util/Value.h"

namespace vornlab {

// The steps that the plug-in tells, in words for people. What it tells is covered already; whoever shows the words
// of a step that is not known here covers them again.

// One line for a step, without its own name, such as "5 VnCmdUpdate".
std::string wordsOfStep(std::string_view step, const vorn::Value& facts);

// The number that most meeting requests share; the operation stands at the head of their content.
inline constexpr std::int64_t kMeetingRequests = 3;

// What is asked for in a request, and what a reply answers, such as "get a meeting": the same words for a request
// and for its reply.
std::string requestName(const vorn::Value& facts);
std::string replyName(const vorn::Value& facts);

// The host's operation of that number, such as "save and close"; the number itself when it has no name.
std::string operationName(std::int64_t number);

// An envelope's content on one line, with each run of blanks as one.
std::string closedUp(std::string_view text);

}  // namespace vornlab

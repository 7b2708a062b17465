#pragma once

#include <string>

#include "data/CVnUserProfileProtoParse.h"
#include "data/OptionBits.h"

// How the profile reader asks the account's message. Main thread only; for the reader's own sources.

namespace vorn {

// The message's answer; false without a parser.
inline bool messageSays(bool (CVnUserProfileProtoParse::*question)() const) {
  const CVnUserProfileProtoParse* parser = userProfileProtoParse().get();
  return parser && (parser->*question)();
}

// The message's text; "" without a parser.
inline std::string messageText(std::string (CVnUserProfileProtoParse::*question)() const) {
  const CVnUserProfileProtoParse* parser = userProfileProtoParse().get();
  return parser ? (parser->*question)() : std::string();
}

// The message's number; 0 without a parser.
inline std::int64_t messageWord(std::int64_t (CVnUserProfileProtoParse::*question)() const) {
  const CVnUserProfileProtoParse* parser = userProfileProtoParse().get();
  return parser ? (parser->*question)() : 0;
}

}  // namespace vorn

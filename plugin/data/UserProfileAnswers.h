#pragma once

#include "data/CVnUserProfileProtoParse.h"

namespace vorn {

// What the account's message answers to a question; false, 0, "" or absent without a parser. Main thread only; for
// the profile reader.
template <typename Answer>
Answer messageAnswer(Answer (CVnUserProfileProtoParse::*question)() const) {
  const CVnUserProfileProtoParse* parser = userProfileProtoParse().get();
  return parser ? (parser->*question)() : Answer();
}

}  // namespace vorn

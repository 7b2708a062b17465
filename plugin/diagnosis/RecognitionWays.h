#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/proxies/vnECCalendarEvent.h"

namespace vorn {

// One way in which the meeting behind an appointment can be recognised, and what came of it.
struct RecognitionWay {
  enum class Result { found, none, broken, noKey };

  // Its name for programs, and for people.
  std::string_view key;
  std::string_view words;
  Result result = Result::none;
  // What was found or would be, "" for nothing.
  std::string number = {};
  // Where exactly the number stands, or why there is none.
  std::string reason = {};
  // False when an earlier way has decided, and this one is not looked at.
  bool isAsked = true;
  // True for a number that anybody may have written.
  bool isGuess = false;
};

std::string_view nameOf(RecognitionWay::Result result);

// All ways in their order. The first that is asked and has found something is the appointment's, but for the last
// one, which counts only for the window in which the appointment is opened. Main thread only.
std::vector<RecognitionWay> waysOfRecognition(const vnECCalendarEvent& event);

}  // namespace vorn

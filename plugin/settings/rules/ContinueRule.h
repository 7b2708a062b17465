#pragma once

#include <string>
#include <string_view>

namespace vorn {

// What can keep the panel's Continue from being used. A part of the panel that is not shown keeps nothing.
struct ContinueFacts {
  bool isPasscodeShown = false;
  bool isPasscodeOn = false;
  std::string passcode{};
  // One of the fields that tell of a fault is on the screen.
  bool isErrorShown = false;
  bool isTrackingShown = false;
  bool missedRequiredTrackingFields = false;
  bool isAlternateHostShown = false;
  bool hasAlternateHostError = false;
  bool areCountriesShown = false;
  bool areCountriesEmpty = false;
  // The client has been asked for something that the panel needs.
  bool awaitsReply = false;
};

// What keeps it: in words for people who give support, and the key of the text for the user. Both are "" when
// nothing does.
struct HeldBack {
  std::string_view reason{};
  std::string_view noteKey{};
};

// Time linear in the passcode.
HeldBack whatHoldsContinueBack(const ContinueFacts& facts);
inline bool mayContinue(const ContinueFacts& facts) { return whatHoldsContinueBack(facts).reason.empty(); }

}  // namespace vorn

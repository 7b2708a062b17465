#include "settings/rules/ContinueRule.h"

#include "util/vnOLUtils.h"

namespace vorn {

namespace {

// Spaces and new lines count for nothing wherever they stand, so one other character is enough.
bool isBlank(const std::string& text) { return vnOLUtils::trimAllSpaceAndNewLine(text).value_or("").empty(); }

}  // namespace

std::string_view whatHoldsContinueBack(const ContinueFacts& facts) {
  if (facts.isPasscodeShown && facts.isPasscodeOn && isBlank(facts.passcode)) return "the passcode is missing";
  if (facts.isErrorShown) return "the panel tells of a fault";
  if (facts.isTrackingShown && facts.missedRequiredTrackingFields) return "a required tracking field is empty";
  if (facts.isAlternateHostShown && facts.hasAlternateHostError) return "an alternate host is no e-mail address";
  if (facts.areCountriesShown && facts.areCountriesEmpty) return "no dial-in country is chosen";
  return facts.awaitsReply ? "the client has not answered yet" : "";
}

}  // namespace vorn

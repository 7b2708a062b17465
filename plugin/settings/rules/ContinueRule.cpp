#include "settings/rules/ContinueRule.h"

#include "util/vnOLUtils.h"

namespace vorn {

namespace {

// Spaces and new lines count for nothing wherever they stand, so one other character is enough.
bool isBlank(const std::string& text) { return vnOLUtils::trimAllSpaceAndNewLine(text).value_or("").empty(); }

}  // namespace

HeldBack whatHoldsContinueBack(const ContinueFacts& facts) {
  if (facts.isPasscodeShown && facts.isPasscodeOn && isBlank(facts.passcode))
    return {"the passcode is missing", "LN_Schedule_Note_PasscodeMissing"};
  if (facts.isErrorShown) return {"the panel tells of a fault", "LN_Schedule_Note_Fault"};
  if (facts.isTrackingShown && facts.missedRequiredTrackingFields)
    return {"a required tracking field is empty", "LN_Schedule_Note_TrackingFieldEmpty"};
  if (facts.isAlternateHostShown && facts.hasAlternateHostError)
    return {"an alternate host is no e-mail address", "LN_Schedule_Note_AlternateHostNoEmail"};
  if (facts.areCountriesShown && facts.areCountriesEmpty)
    return {"no dial-in country is chosen", "LN_Schedule_Note_NoDialInCountry"};
  if (facts.awaitsReply) return {"the client has not answered yet", "LN_Schedule_Note_AwaitsClient"};
  return {};
}

}  // namespace vorn

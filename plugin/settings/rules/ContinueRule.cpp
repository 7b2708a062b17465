#include "settings/rules/ContinueRule.h"

#include "util/vnOLUtils.h"

namespace vorn {

namespace {

// Spaces and new lines count for nothing wherever they stand, so one other character is enough.
bool isBlank(const std::string& text) { return vnOLUtils::trimAllSpaceAndNewLine(text).value_or("").empty(); }

}  // namespace

bool mayContinue(const ContinueFacts& facts) {
  if (facts.isPasscodeShown && facts.isPasscodeOn && isBlank(facts.passcode)) return false;
  if (facts.isErrorShown) return false;
  if (facts.isTrackingShown && facts.missedRequiredTrackingFields) return false;
  if (facts.isAlternateHostShown && facts.hasAlternateHostError) return false;
  if (facts.areCountriesShown && facts.areCountriesEmpty) return false;
  return !facts.awaitsReply;
}

}  // namespace vorn

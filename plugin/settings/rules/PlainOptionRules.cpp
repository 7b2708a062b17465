#include "settings/rules/PlainOptionRules.h"

namespace vorn {

SwitchState stateOf(const PlainOption& option, const OptionFacts& facts, const MeetingOptions& record) {
  const bool isLocked = option.policy->isLocked(facts.account);
  return {.isShown = option.isShown(facts, *option.policy),
          .isLocked = isLocked,
          .isOn = record.*option.field || (isLocked && option.lockMeansOn)};
}

}  // namespace vorn

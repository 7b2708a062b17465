#include "settings/rules/JoinBeforeHost.h"

#include <algorithm>
#include <array>

#include "data/OptionPolicy.h"

namespace vorn::panel_rules {

namespace {

constexpr const OptionPolicy& kJoinBeforeHost = policyOf(vn_Setting_EnableJBH);

// In the popup's order; 0 is any time.
constexpr std::array<std::int64_t, 4> kMinutes = {5, 10, 15, 0};

std::string timeText(std::int64_t minutes, const TextSource& texts) {
  if (minutes == 0) return texts("LN_Schedule_JBH_TimeLimit_AnyTime_126364", {});
  return std::to_string(minutes) + " " + texts("LN_Schedule_JBH_TimeLimit_Min_126364", {});
}

int indexOfTime(std::int64_t minutes) {
  const auto found = std::find(kMinutes.begin(), kMinutes.end(), minutes);
  return found == kMinutes.end() ? 0 : static_cast<int>(found - kMinutes.begin());
}

JoinTimes joinTimes(const JoinBeforeHostQuestion& question, const AccountFacts& account,
                    const ClientGates& client) {
  if (!client.isVornClientSupport464Tasks || !policyOf(vn_Setting_JBHPriorTime).isOffered(account))
    return JoinTimes::none;
  if (question.usePMI || question.isEnableRecurrence) return JoinTimes::none;
  const bool isFixed = kJoinBeforeHost.isGiven(account) && kJoinBeforeHost.isLocked(account);
  return isFixed ? JoinTimes::fixed : JoinTimes::chosen;
}

}  // namespace

JoinBeforeHost joinBeforeHost(const JoinBeforeHostQuestion& question, const AccountFacts& account,
                              const ClientGates& client, const TextSource& texts) {
  JoinBeforeHost result{.times = joinTimes(question, account, client)};
  if (result.times == JoinTimes::none) {
    result.title = texts("LN_Schedule_EnableJoinBeforeHost_ForPMI_126364", {});
    return result;
  }
  result.title = texts("LN_Schedule_EnableJoinBeforeHost_126364", {});
  if (result.times == JoinTimes::fixed) {
    result.title +=
        " " + timeText(question.jbhPriorTime, texts) + " " + texts("LN_Schedule_JBH_TimeLimit_Options_126364", {});
    return result;
  }
  for (const std::int64_t minutes : kMinutes) result.items.push_back(timeText(minutes, texts));
  result.index = indexOfTime(question.jbhPriorTime);
  return result;
}

bool joinTimeIsEnabled(bool isJoinBeforeHostOn, const AccountFacts& account) {
  return isJoinBeforeHostOn && !policyOf(vn_Setting_JBHPriorTime).isLocked(account);
}

void commitJoinBeforeHost(MeetingOptions& options, const JoinBeforeHostChoice& choice,
                          const AccountFacts& account) {
  options.enableJBH = !choice.buttonIsHidden && choice.buttonIsOn;
  if (!choice.popupIsHidden) {
    const auto index = static_cast<std::size_t>(choice.index);
    options.jbhPriorTime = choice.index >= 0 && index < kMinutes.size() ? kMinutes[index] : options.jbhPriorTime;
  } else if (!options.enableJBH || !policyOf(vn_Setting_JBHPriorTime).isLocked(account)) {
    options.jbhPriorTime = 0;
  }
}

}  // namespace vorn::panel_rules

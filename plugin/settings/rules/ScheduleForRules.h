#pragma once

// Whom a meeting is scheduled for. Pure functions; time linear in the list.

#include <string>
#include <vector>

#include "platform/controls/Control.h"
#include "util/Value.h"

namespace vorn::panel_rules {

// The popup: oneself, and then the people in the order of the account.
struct ScheduleForChoice {
  std::vector<ControlItem> items{};
  // Of the people; that of entry i + 1 is the i-th.
  std::vector<std::string> emails{};
  int index = 0;
};

// The person with the e-mail is chosen, ignoring case and the last of several; oneself when there is none.
ScheduleForChoice scheduleForChoice(const Value& bossesInfo, const std::string& myself,
                                    const std::string& scheduleForEmail);

}  // namespace vorn::panel_rules

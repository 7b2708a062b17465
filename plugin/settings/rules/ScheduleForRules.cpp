#include "settings/rules/ScheduleForRules.h"

#include "data/vnProfileKeys.h"
#include "settings/rules/LongTexts.h"
#include "util/Text.h"

namespace vorn::panel_rules {

ScheduleForChoice scheduleForChoice(const Value& bossesInfo, const std::string& myself,
                                    const std::string& scheduleForEmail) {
  ScheduleForChoice choice;
  choice.items.emplace_back(myself);
  const std::string chosen = caseFolded(scheduleForEmail);
  for (const Value& person : bossesInfo.items()) {
    const std::string& email = person[vn_Boss_Email].text();
    const std::string& name = person[vn_Boss_DisplayName].text();
    const ShownText shown = shownText(LongText::popupItem, name.empty() ? email : name + " (" + email + ")");
    choice.items.emplace_back(shown.text, shown.toolTip);
    choice.emails.push_back(email);
    if (!chosen.empty() && caseFolded(email) == chosen) choice.index = static_cast<int>(choice.emails.size());
  }
  return choice;
}

}  // namespace vorn::panel_rules

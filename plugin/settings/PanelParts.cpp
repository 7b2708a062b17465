#include "settings/PanelParts.h"

#include "data/vnSettingData.h"
#include "platform/Localization.h"

namespace vorn {

OptionalText shownPerson(const vnSettingData& record, const PanelSteps& steps) {
  return record.usePMI() ? OptionalText(steps.getUIScheduleForEmail()) : std::nullopt;
}

std::string panelText(std::string_view key, std::initializer_list<std::string_view> values) {
  return formatText(localizedString(key), values);
}

}  // namespace vorn

#include "settings/PanelParts.h"

#include "platform/Localization.h"

namespace vorn {

std::string panelText(std::string_view key, std::initializer_list<std::string_view> values) {
  return formatText(localizedString(key), values);
}

}  // namespace vorn

#include "settings/rules/LongTexts.h"

#include "util/vnOLUtils.h"

namespace vorn {

ShownText shownText(LongText place, const std::string& text) {
  std::string shown = vnOLUtils::formatByEllipsis(text, static_cast<std::int32_t>(place)).value_or("");
  std::string toolTip = shown == text ? "" : text;
  return {std::move(shown), std::move(toolTip)};
}

}  // namespace vorn

#include "settings/rules/LongTexts.h"

#include "util/Utf16.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

// In points.
constexpr double kLineWidth = 490;
constexpr double kLetterWidth = 6.5;

}  // namespace

ShownText shownText(LongText place, const std::string& text) {
  std::string shown = vnOLUtils::formatByEllipsis(text, static_cast<std::int32_t>(place)).value_or("");
  std::string toolTip = shown == text ? "" : text;
  return {std::move(shown), std::move(toolTip)};
}

bool fitInOneLine(std::initializer_list<std::string_view> texts) {
  std::size_t letters = 0;
  for (const std::string_view text : texts) letters += utf16Length(text);
  return static_cast<double>(letters) * kLetterWidth <= kLineWidth;
}

}  // namespace vorn

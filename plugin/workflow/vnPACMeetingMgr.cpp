#include "workflow/vnPACMeetingMgr.h"

#include <string>
#include <string_view>

#include "data/vnGetPACHelper.h"
#include "util/TextSearch.h"
#include "util/vnOLUtils.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

namespace {

bool isEmpty(const OptionalText& text) { return !text || text->empty(); }

// How the helper writes the id of a conference that has none.
constexpr std::string_view kNoMeetingID = "0";

std::string withoutNumber(std::string_view text, const std::string& number) {
  if (number.empty()) return std::string(text);
  return replacingAll(replacingAll(text, number + ",", ""), number, "");
}

std::string withoutNumbers(std::string text, std::string_view numbers) {
  for (;;) {
    const std::size_t comma = numbers.find(',');
    text = withoutNumber(text, std::string(numbers.substr(0, comma)));
    if (comma == std::string_view::npos) return text;
    numbers.remove_prefix(comma + 1);
  }
}

}  // namespace

OptionalText vnPACMeetingMgr::getNewLocationForPAC(const OptionalText& location) const {
  const OptionalText own = getOLUserInputString(location);
  const OptionalText dialIn =
      getLocationWithPACAccountNo(m_pMeetingMgr ? m_pMeetingMgr->meetingDataMgr()->pacAccountNo() : 0);
  if (!own || !dialIn) return own ? own : dialIn;
  return *own + " " + *dialIn;
}

OptionalText vnPACMeetingMgr::getLocationWithPACAccountNo(std::uint64_t account) const {
  const vnGetPACHelper& conferences = vnGetPACHelper::sharedInstance();
  const auto index = static_cast<std::int64_t>(account);
  const OptionalText dedicated = conferences.dedicatedDailinNumber(index);
  if (!isEmpty(dedicated)) return dedicated;
  const OptionalText place = conferences.pacLocation(index);
  if (!isEmpty(place)) return place;
  const OptionalText numbers = conferences.pacDialInNumberWithCommaSeparator(index);
  if (isEmpty(numbers)) return std::nullopt;
  return *numbers + ", " + conferences.pacMeetingID(index).value_or("");
}

OptionalText vnPACMeetingMgr::getOLUserInputString(const OptionalText& location) const {
  if (isEmpty(location)) return std::nullopt;
  const vnGetPACHelper& conferences = vnGetPACHelper::sharedInstance();
  std::string text = *location;
  for (std::int64_t account = 1; account <= conferences.pacCount(); ++account) {
    text = withoutNumbers(std::move(text), conferences.pacDialInNumberWithCommaSeparator(account).value_or(""));
    const std::string id = conferences.pacMeetingID(account).value_or(std::string(kNoMeetingID));
    if (id != kNoMeetingID) text = withoutNumber(text, id);
  }
  return vnOLUtils::trimRLSpace(text);
}

}  // namespace vorn

#include "workflow/OwnerCheck.h"

#include "channel/discovery/vnPluginBuildMgr.h"
#include "host/proxies/vnOLPropertyKeys.h"
#include "util/vnOLUtils.h"
#include "workflow/vnMeetingDataMgr.h"
#include "workflow/vnOnbehalfData.h"

namespace vorn {

bool OwnerCheck::checkScheduleOwnerMatched(MeetingWindow& window) const {
  const auto& bar = window.bar();
  if (!bar || !bar->currentIsVornMeeting() || !bar->isSupportVorn()) return true;
  if (!window.proxy().isValidConnection() || !needCheckOwnerMatched(window) ||
      !vnPluginBuildMgr::supportScheduleFor()) {
    return true;
  }
  const std::string current = window.proxy().currentEmailAddress().value_or("");
  const bool onBehalf = window.proxy().isOnBehalf();
  if (onBehalf && !current.empty() && !vnOnbehalfData::sharedInstance().hasSchedulePermission(current))
    return true;
  const std::string scheduledFor = m_data.scheduleForEmail().value_or("");
  // For a meeting of somebody else no mismatch is ever found: the comparison only confirms what already stands.
  return scheduledFor.empty() ? !onBehalf : true;
}

bool OwnerCheck::needCheckOwnerMatched(MeetingWindow& window) {
  const vnECCalendarEvent* event = window.event();
  if (!event) return true;
  const Value record = vnOLUtils::toArrayOrNSDictionary(event->getVnOIData().optionalText());
  return !record.contains(vn_OLProperty_MeetingKey);
}

}  // namespace vorn

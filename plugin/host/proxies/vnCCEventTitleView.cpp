#include "host/proxies/vnCCEventTitleView.h"

#include "host/proxies/HostViews.h"
#include "host/proxies/MeetingOwners.h"
#include "host/proxies/vnDelegateBase.h"
#include "host/proxies/vnECCalendarEvent.h"
#include "platform/Registry.h"

namespace vorn {

vnCCEventTitleView& vnCCEventTitleView::sharedInstance() { return Registry::shared<vnCCEventTitleView>(); }

bool vnCCEventTitleView::isVnEventTitleViewController(const HostObject& controller) const {
  const HostObject event = askHost(controller, "content").object();
  if (!event || !vnECCalendarEvent(event).isValidHostAppointment()) return false;
  return !meetingOwners().meetingKeyForEvent(event).empty();
}

bool vnCCEventTitleView::isVnEventTitleView(const HostObject& view) const {
  return isVnEventTitleViewController(askHost(view, "viewController").object());
}

HostObject vnCCEventTitleView::concealingCombinedImageViewInEventTileView(const HostObject& view) const {
  return firstSubviewOfKind(view, "ConcealingCombinedImageView");
}

bool vnCCEventTitleView::addVnButtonToEventTitleView(const HostObject&, const HostObject&) const { return true; }

}  // namespace vorn

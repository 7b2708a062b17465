#include "host/surface/vnErageAppDelegate.h"

#include "host/proxies/HostViews.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "workflow/ThreadDictionary.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

void vnErageAppDelegate::autoAddVornToAppointment(const Value& argument) const {
  openNewMeeting(keyFlagAutoAddToVnMeeting, argument);
}

void vnErageAppDelegate::autoAddPACToAppointment(const Value& argument) const {
  openNewMeeting(keyFlagAutoAddToPACMeeting, argument);
}

void vnErageAppDelegate::openNewMeeting(std::string_view flag, const Value& argument) const {
  ThreadDictionary& left = ThreadDictionary::sharedInstance();
  left.set(flag, true);
  if (argument.isDictionary()) left.set(keyFlagVnMeetingArgument, argument);
  activateHostApplication();
  // The delegate may be gone by then; a copy of the proxy then sends nothing.
  const auto target = reinterpret_cast<const void*>(delegate().address());
  Registry::platform().runLoop->performAfter(
      0, target, "newCalendarMeeting:", [proxy = *this] { proxy.newCalendarMeeting(Value()); });
}

}  // namespace vorn

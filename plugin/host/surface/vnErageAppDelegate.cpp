#include "host/surface/vnErageAppDelegate.h"

#include "host/proxies/HostViews.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "workflow/ThreadDictionary.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

void forgetHandOver() {
  ThreadDictionary& left = ThreadDictionary::sharedInstance();
  for (const std::string_view key :
       {keyFlagAutoAddToVnMeeting, keyFlagAutoAddToPACMeeting, keyFlagVnMeetingArgument}) {
    left.remove(key);
  }
}

}  // namespace

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
  RunLoop& loop = *Registry::platform().runLoop;
  loop.performAfter(0, target, "newCalendarMeeting:", [proxy = *this, target] {
    proxy.newCalendarMeeting(Value());
    // The step that a window takes when it opens is under way now, and fetches what was left for it. What is still
    // there behind it waits for a window that never opened, and must not reach the next one.
    // The host may have ended this system inside its call.
    if (RunLoop* next = Registry::platform().runLoop) {
      next->performAfter(0, target, "forgetHandOver", &forgetHandOver);
    }
  });
}

}  // namespace vorn

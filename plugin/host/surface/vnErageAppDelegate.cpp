#include "host/surface/vnErageAppDelegate.h"

#include "host/proxies/HostViews.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "workflow/ThreadDictionary.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

constexpr std::string_view kNewMeeting = "newCalendarMeeting:";
constexpr std::string_view kForgetHandOver = "forgetHandOver";
// A host that is busy opens its window a little later.
constexpr double kPatience = 5;

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
  // One command at a time: what an earlier one has left would otherwise go to the window of this one.
  forgetHandOver();
  ThreadDictionary& left = ThreadDictionary::sharedInstance();
  left.set(flag, true);
  if (argument.isDictionary()) left.set(keyFlagVnMeetingArgument, argument);
  activateHostApplication();
  // The delegate may be gone by then; a copy of the proxy then sends nothing.
  const auto target = reinterpret_cast<const void*>(delegate().address());
  RunLoop& loop = *Registry::platform().runLoop;
  loop.cancelPrevious(target, kNewMeeting);
  loop.cancelPrevious(target, kForgetHandOver);
  loop.performAfter(0, target, kNewMeeting, [proxy = *this] { proxy.newCalendarMeeting(Value()); });
  // The step that the window takes when it opens fetches what was left for it. What is still there later waits for
  // a window that never opened, and must not reach another one.
  loop.performAfter(kPatience, target, kForgetHandOver, &forgetHandOver);
}

}  // namespace vorn

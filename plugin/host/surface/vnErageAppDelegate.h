#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The delegate of the host's application, which opens new meetings.
class vnErageAppDelegate : public vnDelegateBase {
 public:
  explicit vnErageAppDelegate(const HostObject& delegate) : vnDelegateBase(ownClassName(delegate), delegate) {}

  void newCalendarMeeting(const Value& sender) const { getOLItemID("newCalendarMeeting:", sender); }

  // Opens a new meeting whose bar then adds an online meeting, or a personal audio conference, by itself. A
  // dictionary as the argument is left for that bar as well. The host opens the meeting when the present call has
  // unwound.
  void autoAddVornToAppointment(const Value& argument) const;
  void autoAddPACToAppointment(const Value& argument) const;

 private:
  void openNewMeeting(std::string_view flag, const Value& argument) const;
};

}  // namespace vorn

#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The controller of a calendar grid.
class vnCCGridViewController : public vnDelegateBase {
 public:
  explicit vnCCGridViewController(const HostObject& delegate) : vnDelegateBase("CCGridViewController", delegate) {}

  HostObject view() const { return object("view"); }
  HostObject selectedEvent() const { return object("selectedEvent"); }
  // The window of the view.
  HostObject gridWindow() const;
  HostObject ecCalendarEvent() const { return selectedEvent(); }
};

}  // namespace vorn

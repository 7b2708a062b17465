#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The host's wrapper of a calendar grid.
class vnOLCalendarGridViewWrapper : public vnDelegateBase {
 public:
  explicit vnOLCalendarGridViewWrapper(const HostObject& delegate)
      : vnDelegateBase("OLCalendarGridViewWrapper", delegate) {}

  // The grid's controller; among several, the first that has a selected event.
  HostObject gridViewController() const;
};

}  // namespace vorn

#pragma once

#include "util/HostObject.h"

namespace vorn {

// Questions about the title views of events on the calendar.
class vnCCEventTitleView {
 public:
  static vnCCEventTitleView& sharedInstance();

  // True when the controller shows an appointment of this user that has a meeting.
  bool isVnEventTitleViewController(const HostObject& controller) const;
  bool isVnEventTitleView(const HostObject& view) const;
  HostObject concealingCombinedImageViewInEventTileView(const HostObject& view) const;
  // Always true: these views get no button.
  bool addVnButtonToEventTitleView(const HostObject& view, const HostObject& controller) const;
};

}  // namespace vorn

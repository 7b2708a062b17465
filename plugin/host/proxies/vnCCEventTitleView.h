#pragma once

#include "util/HostObject.h"

namespace vorn {

// Questions about the title views of events on the calendar. No caller here: these views get no button.
class vnCCEventTitleView {
 public:
  static vnCCEventTitleView& sharedInstance();

  // True when the controller shows an appointment of this user that has a meeting.
  bool isVnEventTitleViewController(const HostObject& controller) const;
  bool isVnEventTitleView(const HostObject& view) const;
  HostObject concealingCombinedImageViewInEventTileView(const HostObject& view) const;
  // Always true, and nothing is added.
  bool addVnButtonToEventTitleView(const HostObject& view, const HostObject& controller) const;
};

}  // namespace vorn

#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// The calendar's grid: an event that is dragged, resized or renamed there takes its meeting along.
class vnHookOLCalendarGridViewWrapper : public vnHookRoot {
 public:
  static Value vn_OLCalendarGridViewWrapper_dragResizedEvent(HookCall& call);
  static Value vn_OLCalendarGridViewWrapper_performDragFrom(HookCall& call);
  static Value vn_OLCalendarGridViewWrapper_subjectChanged(HookCall& call);
};

}  // namespace vorn

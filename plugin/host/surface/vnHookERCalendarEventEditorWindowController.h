#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// The editor's windows: whatever opens one leads to its bar.
class vnHookERCalendarEventEditorWindowController : public vnHookRoot {
 public:
  static Value vn_ERCalendarEventEditorWindowController_showWindow(HookCall& call);
};

}  // namespace vorn

#pragma once

#include "host/surface/vnHookRoot.h"

namespace vorn {

// The main window: the channel to the desktop client lives as long as it does.
class vnHookERageMainWindowController : public vnHookRoot {
 public:
  // Starts the channel and asks for the version of the client; false when this version of the host is too old.
  static bool prepare();
  // Puts two items into the toolbar of a host of the version 14.5, and makes the commands of the main window work.
  static void finish();
  static Value vn_ERageMainWindowController_toolbarItem(HookCall& call);
  static Value vn_ERageMainWindowController_loadPane(HookCall& call);
  static Value vn_ERageMainWindowController_windowDidBecomeMain(HookCall& call);
  static Value vn_ERageMainWindowController_windowWillClose(HookCall& call);
};

}  // namespace vorn

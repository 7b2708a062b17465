#pragma once

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// An action bar as this room needs it.
class ApptBar {
 public:
  virtual ~ApptBar() = default;
  // The window id of the appointment's window; absent when the bar has left its window.
  virtual OptionalText getAppointmentWindowID() = 0;
  // The window that shows the editor's view; absent likewise.
  virtual HostObject editorViewWindow() = 0;
};

// Who knows the open appointment windows. The workflow implements it; until then there is none.
class ApptWindowDirectory {
 public:
  virtual ~ApptWindowDirectory() = default;
  // The bar that lives in the window; null when there is none. The bar stays the directory's.
  virtual ApptBar* barByWindow(const HostObject& window) = 0;
  // The host's main window; absent when it is not open.
  virtual HostObject mainWindow() = 0;
};

}  // namespace vorn

#pragma once

#include "channel/commands/vnProgressWindowController.h"
#include "util/HostObject.h"

namespace vorn {

// One command's own progress sheet: shown at most once at a time, however often it is asked for. Main thread only.
class vnProgressUIMgr {
 public:
  vnProgressUIMgr() = default;
  // Closes a sheet that is still open, since nobody else could.
  ~vnProgressUIMgr() { closeCommunication(); }
  vnProgressUIMgr(const vnProgressUIMgr&) = delete;
  vnProgressUIMgr& operator=(const vnProgressUIMgr&) = delete;

  void showCommunication(const HostObject& parentWindow);
  void closeCommunication();
  bool showProgressWindow() const { return m_showProgressWindow; }

 private:
  vnProgressWindowController m_progressWindow;
  bool m_showProgressWindow = false;
};

}  // namespace vorn

#pragma once

#include <memory>
#include <vector>

#include "workflow/MeetingBar.h"

namespace vorn {

// The live action bars, and the ways to find one from an object of the host.
//
// All lookups compare window ids, first match wins, and null means that there is no such bar. Main thread
// only.
class vnActionAdditionViewMonitor {
 public:
  static vnActionAdditionViewMonitor& sharedInstance();

  void addVnActionAdditionViewInstance(const std::shared_ptr<MeetingBar>& bar);
  void removeVnActionAdditionViewInstance(const MeetingBar* bar);

  std::shared_ptr<MeetingBar> getVnActionAdditionViewByEditorWinCtrl(const HostObject& windowController) const;
  std::shared_ptr<MeetingBar> getVnActionAdditionViewByEditorViewCtrl(const HostObject& editor) const;
  std::shared_ptr<MeetingBar> getVnActionAdditionViewByECCalendarEvent(const HostObject& event) const;
  std::shared_ptr<MeetingBar> getVnActionAdditionViewByWindowIdentify(const OptionalText& windowId) const;
  std::shared_ptr<MeetingBar> getVnActionAdditionViewByWindow(const HostObject& window) const;
  std::shared_ptr<MeetingBar> getVnActionAdditionViewByApptWindowID(const OptionalText& windowId) const;

 private:
  std::vector<std::shared_ptr<MeetingBar>> g_vnAdditionViewList;
};

// The bar of the window in which the host's editor is; null without one.
std::shared_ptr<MeetingBar> barOfEditor(const HostObject& editor);

}  // namespace vorn

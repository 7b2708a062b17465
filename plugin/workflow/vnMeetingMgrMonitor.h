#pragma once

#include <memory>
#include <vector>

#include "workflow/MeetingBar.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

// Pairs each bar with its manager for the life of the window, and keeps both alive meanwhile.
//
// The lookups by an object of the host fall back to the shared manager when no bar is found; the lookup by a bar
// does not: an unlisted bar has no manager. Main thread only.
class vnMeetingMgrMonitor {
 public:
  struct Pair {
    std::shared_ptr<vnMeetingMgr> vnMeetingMgrInstance;
    std::shared_ptr<MeetingBar> vnActionAdditionViewInstance;
  };

  static vnMeetingMgrMonitor& sharedInstance();

  // Does nothing unless both are there.
  void addInstanceToList(const std::shared_ptr<vnMeetingMgr>& manager, const std::shared_ptr<MeetingBar>& bar);
  void removeInstanceByVnMeetingMgr(const vnMeetingMgr* manager);
  void removeInstanceByVnView(const MeetingBar* bar);

  static Pair getDataByVnMeetingMgr(const vnMeetingMgr* manager);
  static Pair getDataByVnView(const MeetingBar* bar);
  static std::shared_ptr<vnMeetingMgr> getMeetingMgrByVnView(const MeetingBar* bar);
  static std::shared_ptr<vnMeetingMgr> getMeetingMgrByOlWindow(const HostObject& window);
  static std::shared_ptr<vnMeetingMgr> getMeetingMgrByApptWindowID(const OptionalText& windowId);
  static std::shared_ptr<vnMeetingMgr> getMeetingMgrByECCalendarEvent(const HostObject& event);
  static std::shared_ptr<vnMeetingMgr> getMeetingMgrByEditorViewCtrl(const HostObject& editor);
  static std::shared_ptr<MeetingBar> getVnViewByMeetingMgr(const vnMeetingMgr* manager);

 private:
  std::vector<Pair> m_pairs;
};

}  // namespace vorn

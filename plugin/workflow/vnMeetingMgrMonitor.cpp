#include "workflow/vnMeetingMgrMonitor.h"

#include <algorithm>

#include "platform/Registry.h"
#include "workflow/vnActionAdditionViewMonitor.h"

namespace vorn {

namespace {

vnActionAdditionViewMonitor& bars() { return vnActionAdditionViewMonitor::sharedInstance(); }

// An unknown object of the host belongs to the shared manager; a bar that is not listed belongs to none.
std::shared_ptr<vnMeetingMgr> managerOf(const std::shared_ptr<MeetingBar>& bar) {
  return bar ? vnMeetingMgrMonitor::getDataByVnView(bar.get()).vnMeetingMgrInstance
             : vnMeetingMgr::sharedInstance();
}

}  // namespace

vnMeetingMgrMonitor& vnMeetingMgrMonitor::sharedInstance() { return Registry::shared<vnMeetingMgrMonitor>(); }

void vnMeetingMgrMonitor::addInstanceToList(const std::shared_ptr<vnMeetingMgr>& manager,
                                            const std::shared_ptr<MeetingBar>& bar) {
  if (manager && bar) m_pairs.push_back(Pair{manager, bar});
}

void vnMeetingMgrMonitor::removeInstanceByVnMeetingMgr(const vnMeetingMgr* manager) {
  std::erase_if(m_pairs, [manager](const Pair& pair) { return pair.vnMeetingMgrInstance.get() == manager; });
}

void vnMeetingMgrMonitor::removeInstanceByVnView(const MeetingBar* bar) {
  std::erase_if(m_pairs, [bar](const Pair& pair) { return pair.vnActionAdditionViewInstance.get() == bar; });
}

vnMeetingMgrMonitor::Pair vnMeetingMgrMonitor::getDataByVnMeetingMgr(const vnMeetingMgr* manager) {
  for (const Pair& pair : sharedInstance().m_pairs) {
    if (manager && pair.vnMeetingMgrInstance.get() == manager) return pair;
  }
  return {};
}

vnMeetingMgrMonitor::Pair vnMeetingMgrMonitor::getDataByVnView(const MeetingBar* bar) {
  for (const Pair& pair : sharedInstance().m_pairs) {
    if (bar && pair.vnActionAdditionViewInstance.get() == bar) return pair;
  }
  return {};
}

std::shared_ptr<vnMeetingMgr> vnMeetingMgrMonitor::getMeetingMgrByVnView(const MeetingBar* bar) {
  return bar ? getDataByVnView(bar).vnMeetingMgrInstance : vnMeetingMgr::sharedInstance();
}

std::shared_ptr<vnMeetingMgr> vnMeetingMgrMonitor::getMeetingMgrByOlWindow(const HostObject& window) {
  return managerOf(bars().getVnActionAdditionViewByWindow(window));
}

std::shared_ptr<vnMeetingMgr> vnMeetingMgrMonitor::getMeetingMgrByApptWindowID(const OptionalText& windowId) {
  return managerOf(bars().getVnActionAdditionViewByApptWindowID(windowId));
}

std::shared_ptr<vnMeetingMgr> vnMeetingMgrMonitor::getMeetingMgrByECCalendarEvent(const HostObject& event) {
  return managerOf(bars().getVnActionAdditionViewByECCalendarEvent(event));
}

std::shared_ptr<vnMeetingMgr> vnMeetingMgrMonitor::getMeetingMgrByEditorViewCtrl(const HostObject& editor) {
  return managerOf(bars().getVnActionAdditionViewByEditorViewCtrl(editor));
}

std::shared_ptr<MeetingBar> vnMeetingMgrMonitor::getVnViewByMeetingMgr(const vnMeetingMgr* manager) {
  return getDataByVnMeetingMgr(manager).vnActionAdditionViewInstance;
}

}  // namespace vorn

#include "workflow/WorkflowDirectory.h"

#include "channel/store/vnMeetingCommon.h"
#include "invitation/vnICalendarContentParse.h"
#include "platform/Registry.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnCalendarActionMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"

namespace vorn {

WorkflowDirectory& WorkflowDirectory::sharedInstance() { return Registry::shared<WorkflowDirectory>(); }

void WorkflowDirectory::install() {
  vnMeetingCommon::setApptWindowDirectory(this);
  setMeetingOwners(this);
}

ApptBar* WorkflowDirectory::barByWindow(const HostObject& window) {
  // The monitor keeps the bar; it leaves the list only when its window closes.
  return vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByWindow(window).get();
}

HostObject WorkflowDirectory::mainWindow() { return vnCalendarActionMgr::sharedInstance().mainWindow(); }

std::string WorkflowDirectory::meetingKeyForEvent(const HostObject& event) {
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByECCalendarEvent(event);
  return manager ? manager->getVornMeetingKey().value_or("") : std::string();
}

bool WorkflowDirectory::isOpenFromVornClient(const HostObject& editor) {
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByEditorViewCtrl(editor);
  return manager && manager->openFromVornClient();
}

HostObject WorkflowDirectory::wordMailEditorForEditor(const HostObject& editor) {
  const auto bar = vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByEditorViewCtrl(editor);
  return bar ? bar->olWordMailEditor() : HostObject();
}

OptionalText WorkflowDirectory::mailBodyWithVornContent(const HostObject& editor, const OptionalText& sourceBody,
                                                        const OptionalText& invitation, bool isHTML) {
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByEditorViewCtrl(editor);
  if (!manager) return std::nullopt;
  return manager->emailBodyMgr()->getMailBodyContentWithVorn(sourceBody, invitation, isHTML);
}

void WorkflowDirectory::noteNewBody(const OptionalText& body) {
  vnApptDataForSaveRecord::sharedInstance().setOLNewBody(body);
}

OptionalText WorkflowDirectory::uuidInCalendarText(const OptionalText& calendarText) {
  return vnICalendarContentParse(calendarText).getUUID();
}

OptionalText WorkflowDirectory::meetingNumberInCalendarText(const OptionalText& calendarText) {
  return vnICalendarContentParse(calendarText).getMeetingNumberFromDescription();
}

}  // namespace vorn

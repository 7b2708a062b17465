#include "workflow/WorkflowDirectory.h"

#include "channel/store/vnMeetingCommon.h"
#include "invitation/vnBodyHelper.h"
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
  // An event without a window comes to the shared manager. During an edit on the calendar, that one's key is the
  // edited appointment's; taken for the key of whatever else is touched meanwhile, it would move the wrong
  // meeting.
  if (!manager || (manager == vnMeetingMgr::sharedInstance() && manager->isDragAndMove())) return {};
  return manager->getVornMeetingKey().value_or("");
}

bool WorkflowDirectory::isOpenFromVornClient(const HostObject& editor) {
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByEditorViewCtrl(editor);
  return manager && manager->openFromVornClient();
}

HostObject WorkflowDirectory::wordMailEditorForEditor(const HostObject& editor) {
  const auto bar = barOfEditor(editor);
  return bar ? bar->olWordMailEditor() : HostObject();
}

OptionalText WorkflowDirectory::mailBodyWithVornContent(const HostObject& editor, const OptionalText& sourceBody,
                                                        const OptionalText& invitation, bool isHTML) {
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByEditorViewCtrl(editor);
  const vnEmailBodyMgr& bodies = manager ? *manager->emailBodyMgr() : vnEmailBodyMgr::sharedInstance();
  return bodies.getMailBodyContentWithVorn(sourceBody, invitation, isHTML);
}

OptionalText WorkflowDirectory::getMailBodyWithVornContentFor1520(const HostObject& editor,
                                                                  const OptionalText& sourceBody,
                                                                  const OptionalText& vnEmailBody,
                                                                  bool isHTMLBody) {
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByEditorViewCtrl(editor);
  if (!manager) return std::nullopt;
  return manager->getMailBodyWithVornContentFor1520(sourceBody, vnEmailBody, isHTMLBody);
}

OptionalText WorkflowDirectory::mailBodyWithPACText(const OptionalText& sourceBody, const OptionalText& text,
                                                    bool isHTML) {
  return vnBodyHelper::sharedInstance().updateBodyForPAC(sourceBody, text, isHTML);
}

void WorkflowDirectory::noteNewBody(const HostObject& editor, const OptionalText& body) {
  const auto bar = barOfEditor(editor);
  if (bar) vnApptDataForSaveRecord::sharedInstance().of(bar).setOLNewBody(body);
}

OptionalText WorkflowDirectory::uuidInCalendarText(const OptionalText& calendarText) {
  return vnICalendarContentParse(calendarText).getUUID();
}

OptionalText WorkflowDirectory::meetingNumberInCalendarText(const OptionalText& calendarText) {
  return vnICalendarContentParse(calendarText).getMeetingNumberFromDescription();
}

}  // namespace vorn

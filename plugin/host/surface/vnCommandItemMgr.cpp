#include "host/surface/vnCommandItemMgr.h"

#include "channel/store/vnCommon.h"
#include "host/proxies/HostViews.h"
#include "platform/Registry.h"
#include "platform/Workspace.h"
#include "workflow/MeetingNumbers.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

vnCommandItemMgr& vnCommandItemMgr::sharedInstance() { return Registry::shared<vnCommandItemMgr>(); }

void vnCommandItemMgr::initPluginInstance() {
  m_appDelegate.emplace(askHost(hostApplication(), "delegate").object());
}

const vnErageAppDelegate* vnCommandItemMgr::appDelegate() {
  // The application may have got its delegate, or another one, only after we were loaded.
  if (m_appDelegate && !m_appDelegate->isValidConnection()) initPluginInstance();
  return m_appDelegate && m_appDelegate->isValidConnection() ? &*m_appDelegate : nullptr;
}

int vnCommandItemMgr::SendToolbarItemCommand(std::int32_t command, const Value& data) {
  switch (command) {
    case kStartInstantMeeting: startInstantMeeting(data); break;
    case kScheduleNewMeeting: scheduleNewMeeting(data); break;
    case kScheduleNewPACMeeting: scheduleNewPACMeeting(data); break;
    case kOpenLogFolder: openLogFolder(); break;
    default: break;
  }
  return 0;
}

void vnCommandItemMgr::startInstantMeeting(const Value& data) {
  const bool withVideo = data[kPara_StartWithVideo].boolValue();
  vnMeetingMgr::sharedInstance()->sendVnMeetingCommand(withVideo ? VnCmdStartWithVideo : VnCmdStartWithoutVideo,
                                                       HostObject());
}

// A host that cannot open an appointment must not leave word for the next one that somebody opens.
void vnCommandItemMgr::scheduleNewMeeting(const Value& data) {
  if (const vnErageAppDelegate* delegate = appDelegate()) delegate->autoAddVornToAppointment(data);
}

void vnCommandItemMgr::scheduleNewPACMeeting(const Value& data) {
  if (const vnErageAppDelegate* delegate = appDelegate()) delegate->autoAddPACToAppointment(data);
}

void vnCommandItemMgr::openLogFolder() {
  Registry::platform().workspace->openFolder(vnCommon::getDocumentOutlookPluginRootPath());
}

}  // namespace vorn

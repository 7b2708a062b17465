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
  if (m_appDelegate && m_appDelegate->isValidConnection()) m_appDelegate->autoAddVornToAppointment(data);
}

void vnCommandItemMgr::scheduleNewPACMeeting(const Value& data) {
  if (m_appDelegate && m_appDelegate->isValidConnection()) m_appDelegate->autoAddPACToAppointment(data);
}

void vnCommandItemMgr::openLogFolder() {
  Registry::platform().workspace->openFolder(vnCommon::getDocumentOutlookPluginRootPath());
}

}  // namespace vorn

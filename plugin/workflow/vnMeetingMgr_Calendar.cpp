// An edit on the calendar's surface. The stored key of the appointment may be stale, so the service is first asked
// which meeting it knows by the appointment's UUID; the edit is parked until that has been answered. Without an
// answer it stays parked until the next edit takes its place: the host keeps the user's change, and the service
// does not hear of it.

#include "channel/commands/vnAPIKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

constexpr std::string_view kParkedCommand = "cmd";
constexpr std::string_view kParkedMeetingData = "meetingData";

}  // namespace

int vnMeetingMgr::getMeetingByApptUUIDForUpdateOnCalendar(std::uint64_t command, const Value& meetingData) {
  setIsDragAndMove(meetingData[keyDragAndMoveOnCalendar].boolValue());
  const auto bar = barOfReply(meetingData);
  if (bar && isDragAndMove()) bar->setOLUIAction(VnApptActionCalendarEdit);
  const Value& apptInfo = meetingData[vn_Outlook_ApptInfo];
  m_meetingDataMgr->setSavedApptInfo(apptInfo);
  m_meetingDataMgr->setMeetingKey(meetingData[vn_MeetingKey].optionalText());
  // After the manager's end there is no place to park an edit in any more.
  if (m_updatedMeetingDataOnCalendar.isPresent()) {
    m_parkedEditIsAlone = m_updatedMeetingDataOnCalendar.count() == 0;
    m_updatedMeetingDataOnCalendar =
        Value::dictionaryFromPairs({{kParkedCommand, command}, {kParkedMeetingData, meetingData}});
  }
  setState(VnStateUpdateOnCalendar);
  m_askedUUID = apptInfo[vn_ApptInfo_OlApptUUID].optionalText();
  Value request = Value::dictionary();
  request.set(vn_ApptInfo_OlApptUUID, m_askedUUID);
  request.set(vn_API_Call_Para_ShowCommunicationDlg, false);
  const HostObject ownerWindow = meetingData[keyEventOwnerWindow].object();
  return m_apiMgr->getMeetingByApptUUID(ownerWindow, request) != 0 ? 1 : 0;
}

void vnMeetingMgr::replayUpdateOnCalendar() {
  const Value parked = m_updatedMeetingDataOnCalendar;
  const Value& command = parked[kParkedCommand];
  Value meetingData = parked[kParkedMeetingData];
  if (!command.isPresent() || !meetingData.isPresent()) return;
  m_updatedMeetingDataOnCalendar = Value::dictionary();
  // The key in the appointment may be stale: what the service knows by the UUID counts. A reply that names no UUID
  // may be the answer to an edit that was parked before.
  const bool namesUUID = m_getMeetingHelper->getExtInfoNodeValue(vn_ApptInfo_OlApptUUID).isPresent();
  const Value info = m_getMeetingHelper->getMeetingInfo();
  if (!info[vn_MeetingKey].text().empty() && !isReplyToAnotherUUID() && (namesUUID || m_parkedEditIsAlone)) {
    meetingData.set(vn_MeetingKey, info[vn_MeetingKey]);
  }
  sendVnMeetingCommand(static_cast<std::uint64_t>(command.integerValue()), meetingData);
}

}  // namespace vorn

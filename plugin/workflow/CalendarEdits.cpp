#include "workflow/CalendarEdits.h"

#include "channel/commands/vnAPIKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "workflow/MeetingWindow.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {

namespace {

constexpr std::string_view kParkedCommand = "cmd";
constexpr std::string_view kParkedMeetingData = "meetingData";

}  // namespace

int CalendarEdits::getMeetingByApptUUIDForUpdateOnCalendar(std::uint64_t command, const Value& meetingData) {
  // An item of a series has no UUID to ask by. One that comes here has a meeting of its own, which the key that it
  // stores tells as well as can be. It is not parked: the answer to an edit that waits would get to it.
  const Value& apptInfo = meetingData[vn_Outlook_ApptInfo];
  const bool hasUUID = !apptInfo[vn_ApptInfo_OlApptUUID].text().empty();
  if (!hasUUID && !meetingData[vn_MeetingKey].text().empty()) return sendVnMeetingCommand(command, meetingData);

  m_manager.setIsDragAndMove(meetingData[keyDragAndMoveOnCalendar].boolValue());
  const MeetingWindow window = MeetingWindow::ofReply(meetingData);
  if (window.bar() && m_manager.isDragAndMove()) window.bar()->setOLUIAction(VnApptActionCalendarEdit);
  m_manager.meetingDataMgr()->setSavedApptInfo(apptInfo);
  m_manager.meetingDataMgr()->setMeetingKey(meetingData[vn_MeetingKey].optionalText());
  m_editUnderWay = window.bar() ? Value() : meetingData;
  // After the manager's end there is no place to park an edit in any more.
  if (m_updatedMeetingDataOnCalendar.isPresent()) {
    m_parkedEditIsAlone = !m_manager.apiMgr()->isWaitingForMeetingByApptUUID();
    m_updatedMeetingDataOnCalendar =
        Value::dictionaryFromPairs({{kParkedCommand, command}, {kParkedMeetingData, meetingData}});
  }
  m_manager.setState(VnStateUpdateOnCalendar);
  m_askedUUID = apptInfo[vn_ApptInfo_OlApptUUID].optionalText();
  Value request = Value::dictionary();
  request.set(vn_ApptInfo_OlApptUUID, m_askedUUID);
  request.set(vn_API_Call_Para_ShowCommunicationDlg, false);
  const HostObject ownerWindow = meetingData[keyEventOwnerWindow].object();
  if (m_manager.apiMgr()->getMeetingByApptUUID(ownerWindow, request) == 0) return 0;
  // The host makes no edit that was refused. Nor may the answer to another window's question, which is heard here
  // too, make it at the service later.
  if (m_updatedMeetingDataOnCalendar.isPresent()) m_updatedMeetingDataOnCalendar = Value::dictionary();
  endEdit();
  return 1;
}

void CalendarEdits::replayUpdateOnCalendar() {
  const Value parked = m_updatedMeetingDataOnCalendar;
  const Value& command = parked[kParkedCommand];
  Value meetingData = parked[kParkedMeetingData];
  if (!command.isPresent() || !meetingData.isPresent()) return;
  m_updatedMeetingDataOnCalendar = Value::dictionary();
  endEdit();
  // The key in the appointment may be stale: what the service knows by the UUID counts. A reply that names no UUID
  // may be the answer to an edit that was parked before.
  const vnGetMeetingHelper& meeting = *m_manager.getMeetingHelper();
  const bool namesUUID = meeting.getExtInfoNodeValue(vn_ApptInfo_OlApptUUID).isPresent();
  const Value info = m_manager.getMeetingHelper()->getMeetingInfo();
  if (!info[vn_MeetingKey].text().empty() && !MeetingOpening::isReplyToAnotherUUID(meeting, m_askedUUID) &&
      (namesUUID || m_parkedEditIsAlone)) {
    meetingData.set(vn_MeetingKey, info[vn_MeetingKey]);
  }
  sendVnMeetingCommand(static_cast<std::uint64_t>(command.integerValue()), meetingData);
}

int CalendarEdits::sendVnMeetingCommand(std::uint64_t command, const Value& meetingData) {
  const HostObject ownerWindow = meetingData[keyEventOwnerWindow].object();
  m_manager.setIsDragAndMove(meetingData[keyDragAndMoveOnCalendar].boolValue());
  const MeetingWindow window = MeetingWindow::ofReply(meetingData);
  if (window.bar() && m_manager.isDragAndMove()) window.bar()->setOLUIAction(VnApptActionCalendarEdit);
  m_manager.meetingDataMgr()->setSavedApptInfo(meetingData[vn_Outlook_ApptInfo]);
  m_manager.meetingDataMgr()->setMeetingKey(meetingData[vn_MeetingKey].optionalText());

  // The host makes no edit that was refused, and the answer to another window must not make it at the service
  // later.
  int refused = 0;
  if (command == VnCmdDelete) {
    // The owner window and not the parent: a delete on the calendar is answered to the calendar.
    refused = m_manager.apiMgr()->deleteMeeting(ownerWindow, meetingData);
    // Unless one before it waits, of which the user has to hear whether the service refused it.
    if (refused != 0 && !m_manager.apiMgr()->isWaitingForDelete()) m_manager.apiMgr()->letGoOfDelete();
  } else if (command == VnCmdUpdate) {
    m_manager.setState(VnStateCommitting);
    m_editUnderWay = window.bar() ? Value() : meetingData;
    refused = m_manager.apiMgr()->getMeeting(window.bar() ? window.parentWindow() : ownerWindow, meetingData);
    if (refused != 0) {
      m_manager.apiMgr()->letGoOfMeeting();
      endEdit();
    }
  }
  return refused != 0 ? 1 : 0;
}

}  // namespace vorn

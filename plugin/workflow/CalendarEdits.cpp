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

// Whether a reply by UUID is about the appointment that was asked for. A reply carries no number of its request,
// so one to an earlier edit of another appointment may come first: a reply that names a UUID has to name this one,
// and one that names none is only believed when no other edit was waiting.
bool isAboutAppointment(const Value& meetingInfo, const OptionalText& uuid, bool wasAskedAlone) {
  const OptionalText told = meetingInfo[vn_Outlook_ApptInfo][vn_ApptInfo_OlApptUUID].optionalText();
  return told ? told == uuid : wasAskedAlone;
}

}  // namespace

int CalendarEdits::getMeetingByApptUUIDForUpdateOnCalendar(std::uint64_t command, const Value& meetingData) {
  m_manager.setIsDragAndMove(meetingData[keyDragAndMoveOnCalendar].boolValue());
  const MeetingWindow window = MeetingWindow::ofReply(meetingData);
  if (window.bar() && m_manager.isDragAndMove()) window.bar()->setOLUIAction(VnApptActionCalendarEdit);
  const Value& apptInfo = meetingData[vn_Outlook_ApptInfo];
  m_manager.meetingDataMgr()->setSavedApptInfo(apptInfo);
  m_manager.meetingDataMgr()->setMeetingKey(meetingData[vn_MeetingKey].optionalText());
  // After the manager's end there is no place to park an edit in any more.
  if (m_updatedMeetingDataOnCalendar.isPresent()) {
    m_parkedEditIsAlone = m_updatedMeetingDataOnCalendar.count() == 0;
    m_updatedMeetingDataOnCalendar =
        Value::dictionaryFromPairs({{kParkedCommand, command}, {kParkedMeetingData, meetingData}});
  }
  m_manager.setState(VnStateUpdateOnCalendar);
  Value request = Value::dictionary();
  request.set(vn_ApptInfo_OlApptUUID, apptInfo[vn_ApptInfo_OlApptUUID]);
  request.set(vn_API_Call_Para_ShowCommunicationDlg, false);
  const HostObject ownerWindow = meetingData[keyEventOwnerWindow].object();
  return m_manager.apiMgr()->getMeetingByApptUUID(ownerWindow, request) != 0 ? 1 : 0;
}

void CalendarEdits::replayUpdateOnCalendar() {
  const Value parked = m_updatedMeetingDataOnCalendar;
  const Value& command = parked[kParkedCommand];
  Value meetingData = parked[kParkedMeetingData];
  if (!command.isPresent() || !meetingData.isPresent()) return;
  m_updatedMeetingDataOnCalendar = Value::dictionary();
  // The key in the appointment may be stale: what the service knows by the UUID counts.
  const Value info = m_manager.getMeetingHelper()->getMeetingInfo();
  const OptionalText uuid = meetingData[vn_Outlook_ApptInfo][vn_ApptInfo_OlApptUUID].optionalText();
  if (!info[vn_MeetingKey].text().empty() && isAboutAppointment(info, uuid, m_parkedEditIsAlone)) {
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

  int refused = 0;
  if (command == VnCmdDelete) {
    // The owner window and not the parent: a delete on the calendar is answered to the calendar.
    refused = m_manager.apiMgr()->deleteMeeting(ownerWindow, meetingData);
  } else if (command == VnCmdUpdate) {
    m_manager.setState(VnStateCommitting);
    refused = m_manager.apiMgr()->getMeeting(window.bar() ? window.parentWindow() : ownerWindow, meetingData);
  }
  return refused != 0 ? 1 : 0;
}

}  // namespace vorn

#include "workflow/MeetingOpening.h"

#include "channel/commands/vnAPIKeys.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnOLPropertyKeys.h"
#include "invitation/vnICalendarContentParse.h"
#include "platform/ClassRuntime.h"
#include "platform/Registry.h"
#include "util/Text.h"
#include "util/vnOLUtils.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

bool MeetingOpening::loadOIProperty(MeetingWindow& window, const HostObject& event) {
  vnECCalendarEvent proxy(event);
  if (loadOIPropertyAsStoreLocation(proxy, true)) return true;
  if (loadOIPropertyAsStoreLocation(proxy, false)) return true;
  if (loadICSDataForClientSchedule(window, proxy)) return true;
  if (!needGetMeetingWithApptUUID(proxy)) return false;
  if (window.bar()) window.bar()->getMeetingByApptUUID();
  return true;
}

Value MeetingOpening::meetingRecord(const Value& stored) {
  // The host may hold a placeholder here that is no text.
  Value record = vnOLUtils::toArrayOrNSDictionary(stored.optionalText());
  return record.contains(vn_OLProperty_MeetingKey) ? record : Value();
}

bool MeetingOpening::loadOIPropertyAsStoreLocation(vnECCalendarEvent& event, bool isFromUCInband) {
  const bool hasInband = Registry::platform().classRuntime->respondsTo(event.delegate(), "olmUCInband");
  const Value stored = isFromUCInband && hasInband ? event.olmUCInband() : event.olmUCCapabilities();
  const Value record = meetingRecord(stored);
  if (record.isAbsent()) return false;

  m_manager.meetingDataMgr()->setMeetingKey(record[vn_OLProperty_MeetingKey].optionalText());
  const OptionalText digest = record[vn_OLProperty_EncodeMailBody].optionalText();
  m_manager.meetingDataMgr()->setEncodeMailBody(digest);
  m_manager.writeBack().startFromRecord(digest);
  m_manager.meetingDataMgr()->setJoinUrl(record[vn_Meeting_JoinUrl].optionalText());
  if (const Value& include = record[vn_Setting_ForceIncludeJoinurlInLocation]; include.isPresent()) {
    m_manager.meetingDataMgr()->setOldForceIncludeJoinurlInLocation(include.boolValue());
  }
  if (const Value& language = record[vn_Setting_SelectInvitationLanguage]; language.isPresent()) {
    m_manager.meetingDataMgr()->setInvitationLanguage(language.optionalText());
  }
  return true;
}

bool MeetingOpening::loadICSDataForClientSchedule(MeetingWindow& window, vnECCalendarEvent& event) {
  const auto& bar = window.bar();
  vnICalendarContentParse calendar(event.iCalendarRepresentation());
  const OptionalText number = calendar.getMeetingNumberForClientSchedule();
  if (!bar || !number || number->empty() || !calendar.isFromClientSchedule()) return false;

  if (calendar.isGetMeetingNumberFromInvitation()) m_manager.settingsFlow().prepareUserProfile(window, true);
  m_manager.setOpenFromVornClient(true);
  m_manager.meetingDataMgr()->setMeetingKey(number);
  if (const OptionalText location = event.getVnMeetingData()[vn_ApptInfo_Location].optionalText()) {
    // The client puts nothing but the join URL into the location.
    m_manager.meetingDataMgr()->setJoinUrl(location);
    vnApptDataForSaveRecord::sharedInstance().of(bar).setJoinURLFromProperty(location);
  }
  bar->setAutoUpdateVornMeetingFlag();
  bar->autoAddToVnMeeting();
  return true;
}

// With what the window knew of the item, the next save would tell the item's meeting of it, or nobody, and give
// the series what was chosen for the item; and an answer that the item waited for would make the series a meeting,
// or send it the item's dial-in text.
void MeetingOpening::forgetItem() {
  vnMeetingDataMgr& working = *m_manager.meetingDataMgr();
  working.setMeetingKey("");
  working.setEncodeMailBody("");
  working.setSavedApptInfo(Value::dictionary());
  working.setOccurrenceIsSingleVornMeeting(false);
  m_manager.writeBack().startOver();
  m_manager.settingsFlow().commitStands();
  m_manager.apiMgr()->letGoOfTheService();
  m_manager.getMeetingHelper()->forgetMeeting();
  m_manager.getMeetingHelper()->setIsForGetMeetingByUUID(true);
  m_manager.setState(VnStateIdle);
}

bool MeetingOpening::needGetMeetingWithApptUUID(vnECCalendarEvent& event) {
  if (!event.isValidHostAppointment() || !event.UUID()) return false;
  vnICalendarContentParse calendar(event.iCalendarRepresentation());
  return !calendar.getMeetingNumberFromDescription().value_or("").empty();
}

void MeetingOpening::getMeetingByApptUUID(MeetingWindow& window) {
  m_askedUUID = window.getApptUUID();
  Value request = Value::dictionary();
  request.set(vn_ApptInfo_OlApptUUID, m_askedUUID);
  request.set(vn_API_Call_Para_ShowCommunicationDlg, false);
  m_manager.apiMgr()->getMeetingByApptUUID(window.parentWindow(), request);
}

bool MeetingOpening::isReplyToAnotherUUID(const vnGetMeetingHelper& meeting, const OptionalText& asked) {
  const Value told = meeting.getExtInfoNodeValue(vn_ApptInfo_OlApptUUID);
  return told.isPresent() && !equalIgnoringCase(told.text(), asked.value_or(""));
}

void MeetingOpening::onGetMeetingByApptUUIDActionFinished(const Value& data) {
  vnGetMeetingHelper& meeting = *m_manager.getMeetingHelper();
  // A reply without a readable meeting tells nothing, nor does another window's; the bar stays as it is.
  if (!meeting.hasMeetingInfo()) return;
  if (isReplyToAnotherUUID(meeting, m_askedUUID)) {
    // Or the settings of a meeting that is added here would start from it.
    meeting.forgetMeeting();
    return;
  }
  if (m_manager.state() != VnStateLoadByApptUUID) {
    // The user has begun something else since it was asked for, such as to add a meeting, and that starts afresh.
    if (!m_manager.isForUpdateVornMeeting()) meeting.forgetMeeting();
    return;
  }
  const Value info = meeting.getMeetingInfo();
  vnMeetingDataMgr& working = *m_manager.meetingDataMgr();
  working.setMeetingKey(info[vn_MeetingKey].optionalText());
  working.setJoinUrl(info[vn_Meeting_JoinUrl].optionalText());

  const MeetingWindow window = MeetingWindow::ofReply(data);
  const auto& bar = window.bar();
  if (!bar) return;
  vnApptDataForSaveRecord::sharedInstance().of(bar).setJoinURLFromProperty(
      info[vn_Meeting_JoinUrl].optionalText());
  if (const HostObject event = bar->ecCalendarEvent()) {
    working.setOccurrenceIsSingleVornMeeting(vnECCalendarEvent(event).occurrenceIsSingleVornMeeting());
    bar->updateSupportVornButtonFlag(event);
  }
  bar->onUIChanged(VnUIMeeting);
  if (!vnUserProfileHelper::sharedInstance().hasUserProfile()) {
    m_manager.apiMgr()->getUserProfile(window.parentWindow(), Value());
  }
}

}  // namespace vorn

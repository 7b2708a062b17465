// Finding out, when an appointment opens, whether a meeting already stands behind it.

#include "channel/commands/vnAPIKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnOLPropertyKeys.h"
#include "invitation/vnICalendarContentParse.h"
#include "platform/ClassRuntime.h"
#include "platform/Registry.h"
#include "util/Text.h"
#include "util/vnOLUtils.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

bool vnMeetingMgr::loadOIProperty(const HostObject& event) {
  vnECCalendarEvent proxy(event);
  if (loadOIPropertyAsStoreLocation(proxy, true)) return true;
  if (loadOIPropertyAsStoreLocation(proxy, false)) return true;
  if (loadICSDataForClientSchedule(proxy)) return true;
  if (!needGetMeetingWithApptUUID(proxy)) return false;
  if (const auto bar = ownBar()) bar->getMeetingByApptUUID();
  return true;
}

bool vnMeetingMgr::loadOIPropertyAsStoreLocation(vnECCalendarEvent& event, bool isFromUCInband) {
  const bool hasInband = Registry::platform().classRuntime->respondsTo(event.delegate(), "olmUCInband");
  // The host may hold a placeholder here that is no text.
  const Value stored = isFromUCInband && hasInband ? event.olmUCInband() : event.olmUCCapabilities();
  if (!stored.isText() || stored.text().empty()) return false;
  const Value record = vnOLUtils::toArrayOrNSDictionary(stored.optionalText());
  if (!record.contains(vn_OLProperty_MeetingKey)) return false;

  m_meetingDataMgr->setMeetingKey(record[vn_OLProperty_MeetingKey].optionalText());
  m_meetingDataMgr->setEncodeMailBody(record[vn_OLProperty_EncodeMailBody].optionalText());
  m_meetingDataMgr->setJoinUrl(record[vn_Meeting_JoinUrl].optionalText());
  if (const Value& include = record[vn_Setting_ForceIncludeJoinurlInLocation]; include.isPresent()) {
    m_meetingDataMgr->setOldForceIncludeJoinurlInLocation(include.boolValue());
  }
  if (const Value& language = record[vn_Setting_SelectInvitationLanguage]; language.isPresent()) {
    m_meetingDataMgr->setInvitationLanguage(language.optionalText());
  }
  return true;
}

bool vnMeetingMgr::loadICSDataForClientSchedule(vnECCalendarEvent& event) {
  const auto bar = ownBar();
  vnICalendarContentParse calendar(event.iCalendarRepresentation());
  const OptionalText number = calendar.getMeetingNumberForClientSchedule();
  if (!bar || !number || number->empty() || !calendar.isFromClientSchedule()) return false;

  if (calendar.isGetMeetingNumberFromInvitation()) prepareUserProfile(bar, true);
  setOpenFromVornClient(true);
  m_meetingDataMgr->setMeetingKey(number);
  if (const OptionalText location = event.getVnMeetingData()[vn_ApptInfo_Location].optionalText()) {
    // The client puts nothing but the join URL into the location.
    m_meetingDataMgr->setJoinUrl(location);
    vnApptDataForSaveRecord::sharedInstance().of(bar).setJoinURLFromProperty(location);
  }
  bar->setAutoUpdateVornMeetingFlag();
  bar->autoAddToVnMeeting();
  return true;
}

bool vnMeetingMgr::needGetMeetingWithApptUUID(vnECCalendarEvent& event) {
  if (!event.isValidHostAppointment() || !event.UUID()) return false;
  vnICalendarContentParse calendar(event.iCalendarRepresentation());
  return !calendar.getMeetingNumberFromDescription().value_or("").empty();
}

int vnMeetingMgr::getMeetingByApptUUID(const HostObject& editor) {
  const auto bar = vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByEditorViewCtrl(editor);
  vnERCalendarEventEditorViewController proxy(editor);
  vnECCalendarEvent* event = proxy.ecCalendarEvent();
  m_askedUUID = event ? event->UUID() : std::nullopt;
  Value request = Value::dictionary();
  request.set(vn_ApptInfo_OlApptUUID, m_askedUUID);
  request.set(vn_API_Call_Para_ShowCommunicationDlg, false);
  return m_apiMgr->getMeetingByApptUUID(vnMeetingCommon::getPluginParentWindow(bar.get()), request);
}

bool vnMeetingMgr::isReplyToAnotherUUID() const {
  const Value told = m_getMeetingHelper->getExtInfoNodeValue(vn_ApptInfo_OlApptUUID);
  return told.isPresent() && !equalIgnoringCase(told.text(), m_askedUUID.value_or(""));
}

void vnMeetingMgr::onGetMeetingByApptUUIDActionFinished(const Value& data) {
  if (state() == VnStateUpdateOnCalendar) return replayUpdateOnCalendar();
  if (state() != VnStateLoadByApptUUID) return;
  // A reply without a readable meeting tells nothing, nor does another window's; the bar stays as it is.
  if (!m_getMeetingHelper->hasMeetingInfo() || isReplyToAnotherUUID()) return;
  const Value info = m_getMeetingHelper->getMeetingInfo();
  m_meetingDataMgr->setMeetingKey(info[vn_MeetingKey].optionalText());
  m_meetingDataMgr->setJoinUrl(info[vn_Meeting_JoinUrl].optionalText());

  const auto bar = barOfReply(data);
  if (!bar) return;
  vnApptDataForSaveRecord::sharedInstance().of(bar).setJoinURLFromProperty(
      info[vn_Meeting_JoinUrl].optionalText());
  if (const HostObject event = bar->ecCalendarEvent()) {
    m_meetingDataMgr->setOccurrenceIsSingleVornMeeting(vnECCalendarEvent(event).occurrenceIsSingleVornMeeting());
    bar->updateSupportVornButtonFlag(event);
  }
  bar->onUIChanged(VnUIMeeting);
  if (!vnUserProfileHelper::sharedInstance().hasUserProfile()) {
    m_apiMgr->getUserProfile(vnMeetingCommon::getPluginParentWindow(bar.get()), Value());
  }
}

}  // namespace vorn

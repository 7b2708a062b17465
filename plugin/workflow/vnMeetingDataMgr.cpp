#include "workflow/vnMeetingDataMgr.h"

#include <algorithm>

#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnSettingData.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "host/proxies/vnOLPropertyKeys.h"
#include "invitation/TimeUtils.h"
#include "invitation/vnBodyHelper.h"
#include "platform/Registry.h"
#include "platform/UserDefaults.h"
#include "util/vnMd5Utils.h"
#include "util/vnOLUtils.h"
#include "workflow/MeetingWindow.h"
#include "workflow/SettingsPanel.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnOnbehalfData.h"

namespace vorn {

namespace {

void assignUnlessAbsent(OptionalText& field, const OptionalText& text) {
  if (text) field = text;
}

// An existing meeting that would have no protection at all gets a waiting room, unless the account forbids one.
Value withSomeProtection(Value settings) {
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  if (!profile.isEnableWaitingRoomNewLogic() || profile.isWaitingRoomLockedOff()) return settings;
  if (settings[vn_Setting_IsPMI].boolValue()) return settings;
  if (settings[vn_Setting_RequiredMPW].boolValue() || settings[vn_Setting_EnableWaitingRoom].boolValue() ||
      settings[vn_Setting_IsSignedInUsersMeetingOn].boolValue()) {
    return settings;
  }
  settings.set(vn_Setting_SupportWaitingRoom, true);
  settings.set(vn_Setting_EnableWaitingRoom, true);
  return settings;
}

Value settingsOfNewMeeting() {
  vnSettingData settings;
  settings.initSettingData();
  return settings.getSettingsData();
}

}  // namespace

vnMeetingDataMgr::vnMeetingDataMgr()
    : m_forceIncludeJoinurlInLocation(defaultForceIncludeJoinurlInLocation()),
      m_oldForceIncludeJoinurlInLocation(m_forceIncludeJoinurlInLocation),
      m_putInvitationAtTheTop(localDefaultPutInvitationAtTheTop()) {}

void vnMeetingDataMgr::setMeetingKey(const OptionalText& key) { assignUnlessAbsent(m_meetingKey, key); }

void vnMeetingDataMgr::setEncodeMailBody(const OptionalText& digest) {
  assignUnlessAbsent(m_encodeMailBody, digest);
}

void vnMeetingDataMgr::setScheduleForEmail(const OptionalText& email) {
  assignUnlessAbsent(m_scheduleForEmail, email);
}

void vnMeetingDataMgr::setInvitationLanguage(const OptionalText& language) {
  assignUnlessAbsent(m_selectInvitationLanguage, language);
}

void vnMeetingDataMgr::setSavedApptInfo(const Value& apptInfo) {
  m_savedApptInfo = Value::dictionary();
  m_savedApptInfo.addEntries(apptInfo);
}

void vnMeetingDataMgr::setJoinUrl(const OptionalText& url) {
  if (!url) return;
  m_joinUrl = url;
  addUsedJoinUrlToList(*url);
}

void vnMeetingDataMgr::addUsedJoinUrlToList(const std::string& url) {
  if (!hasExistedInUsedJoinUrlList(url)) m_arrUsedJoinUrls.push_back(url);
}

bool vnMeetingDataMgr::hasExistedInUsedJoinUrlList(const std::string& url) const {
  return std::find(m_arrUsedJoinUrls.begin(), m_arrUsedJoinUrls.end(), url) != m_arrUsedJoinUrls.end();
}

bool vnMeetingDataMgr::includedPwdInJoinUrl(const std::string& url) {
  return url.find("pwd=") != std::string::npos;
}

std::vector<std::string> vnMeetingDataMgr::usedJoinUrlListWithPwd() const {
  std::vector<std::string> result;
  std::copy_if(m_arrUsedJoinUrls.begin(), m_arrUsedJoinUrls.end(), std::back_inserter(result),
               includedPwdInJoinUrl);
  return result;
}

std::vector<std::string> vnMeetingDataMgr::usedJoinUrlListWithoutPwd() const {
  std::vector<std::string> result;
  std::remove_copy_if(m_arrUsedJoinUrls.begin(), m_arrUsedJoinUrls.end(), std::back_inserter(result),
                      includedPwdInJoinUrl);
  return result;
}

OptionalText vnMeetingDataMgr::getOldJoinUrl() const {
  const Value& record = m_savedApptInfo[vn_ApptInfo_VnOIProperty];
  return vnOLUtils::toArrayOrNSDictionary(record.optionalText())[vn_Meeting_JoinUrl].optionalText();
}

bool vnMeetingDataMgr::isForceIncludeJoinurlInLocationChanged() const {
  return m_forceIncludeJoinurlInLocation != m_oldForceIncludeJoinurlInLocation;
}

bool vnMeetingDataMgr::isSelectInvitationLanguageChanged() const {
  return !m_selectInvitationLanguage || m_selectInvitationLanguage != m_oldSelectInvitationLanguage;
}

bool vnMeetingDataMgr::defaultForceIncludeJoinurlInLocation() {
  const Value stored = Registry::platform().userDefaults->objectForKey(vn_Setting_ForceIncludeJoinurlInLocation);
  return stored.isAbsent() || stored.boolValue();
}

vnMeetingDataMgr::PanelChoices vnMeetingDataMgr::panelChoices() const {
  return {m_forceIncludeJoinurlInLocation, m_putInvitationAtTheTop, m_selectInvitationLanguage};
}

void vnMeetingDataMgr::setPanelChoices(const PanelChoices& choices) {
  m_forceIncludeJoinurlInLocation = choices.includesJoinUrlInLocation;
  m_putInvitationAtTheTop = choices.putsInvitationAtTheTop;
  m_selectInvitationLanguage = choices.language;
}

bool vnMeetingDataMgr::localDefaultPutInvitationAtTheTop() {
  return settingsOfNewMeeting()[vn_Setting_PutTheInvitationAtTheTop].boolValue();
}

Value vnMeetingDataMgr::getVnSchMeetingData(MeetingWindow& window) const {
  Value result = Value::dictionary();
  result.set(vn_Outlook_ApptInfo, window.proxy().getVnMeetingData());
  // The host was asked before: it might run the loop, and another reply would find this reading.
  const vnClientFeatureMgr::OneReading oneReading;
  result.set(vn_Setting, getVnSettingsData(window.id()));
  result.set(vn_MeetingKey, m_meetingKey);
  return result;
}

Value vnMeetingDataMgr::getVnSettingsData(const OptionalText& windowId) const {
  if (const auto panel = openSettingsPanel(windowId)) return panel->getVnSettingsData();

  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByApptWindowID(windowId);
  vnGetMeetingHelper* helper = manager ? manager->getMeetingHelper() : nullptr;
  const bool hasInfo = helper && helper->hasMeetingInfo();
  if (isVornMeeting() && hasInfo) return withSomeProtection(helper->getMeetingSettings());

  Value settings = settingsOfNewMeeting();
  if (settings[vn_Setting_IsPMI].boolValue() && hasInfo) {
    settings = helper->getMeetingSettings();
    settings.set(vn_Setting_IsPMI, true);
  } else {
    // Alternate hosts belong to one meeting and are never carried into the next; the empty text stands for none.
    settings.set(vn_Setting_AlternateHosts, "");
  }
  vnOnbehalfData& onbehalf = vnOnbehalfData::sharedInstance();
  if (onbehalf.isCurrentScheduleVornForOther(windowId)) {
    settings.set(vn_Setting_ScheduleFor, onbehalf.onbehalfEmail(windowId));
  }
  // A meeting that is still to be fetched is asked for in its own language, and in none when its record tells of
  // none, as after an add without the panel. In that of the user's next new meeting, its invitation in the body
  // would be replaced by one that nobody has chosen.
  if (isVornMeeting()) {
    settings.erase(vn_Setting_SelectInvitationLanguage);
    if (!isEmpty(m_selectInvitationLanguage)) {
      settings.set(vn_Setting_SelectInvitationLanguage, m_selectInvitationLanguage);
    }
  }
  return settings;
}

OptionalText vnMeetingDataMgr::getVnDataForOLProperty(const Value& meetingInfo) const {
  const Value& html = meetingInfo[vn_API_Para_InviteHtmlEmail];
  const OptionalText invitation = html.text().empty()
                                      ? meetingInfo[vn_ApptInfo_Body].optionalText()
                                      : vnBodyHelper::sharedInstance().convertHTMLToPlainText(html.optionalText());
  return getVnDataForOLProperty(meetingInfo, vnMd5Utils::vnMD5Hex(invitation));
}

OptionalText vnMeetingDataMgr::getVnDataForOLProperty(const Value& meetingInfo, const OptionalText& digest) const {
  const Value& apptInfo = meetingInfo[vn_Outlook_ApptInfo];
  const Value record = Value::dictionaryFromPairs(
      {{vn_OLProperty_MeetingKey, meetingInfo[vn_MeetingKey]},
       {vn_OLProperty_EncodeMailBody, digest},
       {vn_Meeting_JoinUrl, meetingInfo[vn_Meeting_JoinUrl]},
       {vn_Setting_ForceIncludeJoinurlInLocation, m_forceIncludeJoinurlInLocation},
       {vn_Setting_SelectInvitationLanguage, m_selectInvitationLanguage},
       {vn_ApptInfo_Subject, apptInfo[vn_ApptInfo_Subject]},
       {vn_ApptInfo_Duration, apptInfo[vn_ApptInfo_Duration]},
       {vn_ApptInfo_StartTime, TimeUtils::stringToTimestamp(
                                   apptInfo[vn_ApptInfo_StartTime][vn_ApptInfo_CalDate_UTCTime].optionalText())}});
  return vnOLUtils::toJSONString(record);
}

void vnMeetingDataMgr::clearSavedMeetingData() {
  m_meetingKey = "";
  m_encodeMailBody = "";
  m_scheduleForEmail = "";
  m_pacAccountNo = 0;
  m_savedApptInfo = Value::dictionary();
  m_occurrenceIsSingleVornMeeting = false;
  // True, and not the user's stored choice: a cleared window starts over with the URL in the location.
  m_forceIncludeJoinurlInLocation = true;
  m_oldForceIncludeJoinurlInLocation = true;
  m_selectInvitationLanguage = "";
  m_oldSelectInvitationLanguage = "";
}

void vnMeetingDataMgr::cleanup() {
  clearSavedMeetingData();
  m_meetingKey.reset();
  m_encodeMailBody.reset();
  m_scheduleForEmail.reset();
  m_joinUrl.reset();
  m_selectInvitationLanguage.reset();
  m_oldSelectInvitationLanguage.reset();
  m_arrUsedJoinUrls.clear();
}

}  // namespace vorn

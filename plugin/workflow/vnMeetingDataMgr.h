#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

class MeetingWindow;

// The working memory of one appointment window: the meeting's key, the appointment as it was seen last, every join
// URL this window has held, and a few choices. Main thread only.
//
// The text setters ignore an absent text unless told otherwise: a key is cleared with the empty text.
class vnMeetingDataMgr {
 public:
  vnMeetingDataMgr();

  bool isVornMeeting() const { return m_meetingKey && !m_meetingKey->empty(); }
  const OptionalText& meetingKey() const { return m_meetingKey; }
  void setMeetingKey(const OptionalText& key);
  // The digest of the invitation that was written last.
  const OptionalText& encodeMailBody() const { return m_encodeMailBody; }
  void setEncodeMailBody(const OptionalText& digest);
  const OptionalText& scheduleForEmail() const { return m_scheduleForEmail; }
  void setScheduleForEmail(const OptionalText& email);

  // The last plain form taken from the appointment; always a dictionary.
  const Value& getSavedApptInfo() const { return m_savedApptInfo; }
  void setSavedApptInfo(const Value& apptInfo);

  std::uint64_t pacAccountNo() const { return m_pacAccountNo; }
  void setPACAccountNo(std::uint64_t account) { m_pacAccountNo = account; }
  bool occurrenceIsSingleVornMeeting() const { return m_occurrenceIsSingleVornMeeting; }
  void setOccurrenceIsSingleVornMeeting(bool single) { m_occurrenceIsSingleVornMeeting = single; }
  bool putInvitationAtTheTop() const { return m_putInvitationAtTheTop; }
  void setPutInvitationAtTheTop(bool top) { m_putInvitationAtTheTop = top; }

  // The current join URL; setting one also puts it into the list of used ones.
  const OptionalText& joinUrl() const { return m_joinUrl; }
  void setJoinUrl(const OptionalText& url);
  void addUsedJoinUrlToList(const std::string& url);
  bool hasExistedInUsedJoinUrlList(const std::string& url) const;
  const std::vector<std::string>& usedJoinUrlsList() const { return m_arrUsedJoinUrls; }
  static bool includedPwdInJoinUrl(const std::string& url);
  // The two halves of the list, in its order. Text is stripped of the first half first: a URL without a passcode
  // is a prefix of the same URL with one.
  std::vector<std::string> usedJoinUrlListWithPwd() const;
  std::vector<std::string> usedJoinUrlListWithoutPwd() const;
  // The join URL in the record that the saved appointment carried; absent without one.
  OptionalText getOldJoinUrl() const;

  bool forceIncludeJoinUrlInLocation() const { return m_forceIncludeJoinurlInLocation; }
  void setForceIncludeJoinUrlInLocation(bool include) { m_forceIncludeJoinurlInLocation = include; }
  void setOldForceIncludeJoinurlInLocation(bool include) { m_oldForceIncludeJoinurlInLocation = include; }
  bool isForceIncludeJoinurlInLocationChanged() const;
  // The language of the invitation. The first two setters take absent as well, the third ignores it.
  const OptionalText& selectInvitationLanguage() const { return m_selectInvitationLanguage; }
  void setSelectInvitationLanguage(const OptionalText& language) { m_selectInvitationLanguage = language; }
  void setOldSelectInvitationLanguage(const OptionalText& language) { m_oldSelectInvitationLanguage = language; }
  void setInvitationLanguage(const OptionalText& language);
  // An absent language counts as changed, always.
  bool isSelectInvitationLanguageChanged() const;

  // What is chosen on the panel and is no part of the meeting's settings.
  struct PanelChoices {
    bool includesJoinUrlInLocation;
    bool putsInvitationAtTheTop;
    OptionalText language;
  };
  PanelChoices panelChoices() const;
  void setPanelChoices(const PanelChoices& choices);

  // The user's stored choice; true when there is none.
  static bool defaultForceIncludeJoinurlInLocation();
  // The choice that a new meeting starts with.
  static bool localDefaultPutInvitationAtTheTop();

  // What the commands and the settings panel work with: the appointment's plain form, the settings and the key.
  Value getVnSchMeetingData(MeetingWindow& window) const;
  // The settings to use for a window: those on the screen, those of the meeting, or those of a new one, in
  // which a meeting that is still to be fetched has its own language. Absent only when the reader claims to have a
  // meeting and then gives none.
  Value getVnSettingsData(const OptionalText& windowId) const;
  // The record to store in the appointment, as JSON text, from the meeting information. It ends at the first
  // absent value; readers tolerate what is missing. The second has this digest in place of the invitation's.
  OptionalText getVnDataForOLProperty(const Value& meetingInfo) const;
  OptionalText getVnDataForOLProperty(const Value& meetingInfo, const OptionalText& digest) const;

  // Whether the service must be told: the meeting's new working data (`vnMeetingInfoKeys.h`) differ from the
  // meeting as it was read last. Location, body and attendees never reach the service by themselves and are not
  // compared.
  static bool isMeetingChanged(const Value& meetingData, const Value& oldMeetingInfo);
  static bool isTrackingFieldChanged(const Value& newSettings, const Value& oldSettings);
  static bool isAlternateHostChanged(const Value& newSettings, const Value& oldSettings);
  static bool isDialinCountryContentChanged(const Value& newCountries, const Value& oldCountries);

  void clearSavedMeetingData();
  void cleanup();

 private:
  OptionalText m_meetingKey;
  Value m_savedApptInfo = Value::dictionary();
  OptionalText m_encodeMailBody;
  OptionalText m_scheduleForEmail;
  std::uint64_t m_pacAccountNo = 0;
  bool m_occurrenceIsSingleVornMeeting = false;
  OptionalText m_joinUrl;
  bool m_forceIncludeJoinurlInLocation;
  bool m_oldForceIncludeJoinurlInLocation;
  std::vector<std::string> m_arrUsedJoinUrls;
  bool m_putInvitationAtTheTop;
  OptionalText m_selectInvitationLanguage;
  OptionalText m_oldSelectInvitationLanguage;
};

}  // namespace vorn

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "data/CVnGetMeetingProtoParse.h"
#include "util/Value.h"

namespace vorn {

// The meeting that one window works with, as the service reported it last: a dictionary with the scheduling data
// and a binary message with the options. Each meeting manager owns one. Main thread only.
//
// Before the binary message has come, the questions on it answer false, 0 or "", lists are empty, and those said
// to be absent are absent. A reply without a binary message leaves the one before in place.
class vnGetMeetingHelper {
 public:
  // Replaces the dictionary. For the personal meeting, "usePMI" is then put right by resetUsePMI().
  void setMeetingData(const Value& meeting, bool forPMI);
  // Afterwards hasMeetingInfo() is false.
  void forgetMeeting();
  // Takes the base64 text of the binary message. Absent is ignored. An empty text is kept but changes no answer;
  // one that cannot be decoded gives a message without content.
  void setPBMeetingData(const OptionalText& base64);
  // Whether the data come from a request by the appointment's UUID.
  void setIsForGetMeetingByUUID(bool byUUID) { m_isForGetMeetingByUUID = byUUID; }

  // The dictionary has a meeting key.
  bool hasMeetingInfo() const;
  // Data fetched by the appointment's UUID are never good enough for an update.
  bool NeedRequestGetMeeting() const { return m_isForGetMeetingByUUID || !hasMeetingInfo(); }
  // What came are the defaults of a new meeting: the binary message has the number 0.
  bool isNewMeetingDefault() const;

  // The meeting-information dictionary: "apptInfo", "setting", "meetingKey", "emailBody" when it is not empty,
  // "joinUrl" and "invitehtmlemail". An empty dictionary when hasMeetingInfo() is false. A key that the service
  // always sends and did not gives the neutral value: "", false or 0.
  Value getMeetingInfo() const;
  // Its "setting" alone, for who needs nothing of the rest; absent when hasMeetingInfo() is false.
  Value getMeetingSettings() const;

  // Absent when the reply had none.
  OptionalText getInviteEmail() const;
  OptionalText getInviteHtmlEmail() const;
  bool supportHtmlEmail() const;

  bool isSignedInUsersMeetingOn() const { return says(&CVnGetMeetingProtoParse::IsSignedInUsersMeetingOn); }
  std::string getRestrictJoinDomains() const;
  bool isEnableAutoRecordingMtgLevelFirst() const {
    return says(&CVnGetMeetingProtoParse::IsEnableAutoRecordingMtgLevelFirst);
  }
  bool isEnableAutoRecordingLocal() const { return says(&CVnGetMeetingProtoParse::IsEnableAutoRecordingLocal); }
  bool isEnableAutoRecordingCloud() const { return says(&CVnGetMeetingProtoParse::IsEnableAUtoRecordingCloud); }
  bool isEnableMuteOnEntry() const { return says(&CVnGetMeetingProtoParse::IsEnableMuteOnEntry); }
  bool isEnableMeetingToPublic() const { return says(&CVnGetMeetingProtoParse::IsEnableMeetingToPublic); }
  bool isEnableAudioWatermark() const { return says(&CVnGetMeetingProtoParse::IsEnableAudioWatermark); }
  bool isEnableWaitingRoom() const { return says(&CVnGetMeetingProtoParse::IsEnableWaitingRoom); }
  bool isSupportWaitingRoom() const { return says(&CVnGetMeetingProtoParse::IsSupportWaitingRoom); }
  bool isEnableRegionCustomization() const { return says(&CVnGetMeetingProtoParse::IsEnableRegionCustomization); }
  bool isEnableUnmuteAll() const { return says(&CVnGetMeetingProtoParse::IsEnableUnmuteAll); }
  bool isEnableE2ee() const { return says(&CVnGetMeetingProtoParse::IsEnableE2ee); }
  bool isEnableAllowDenyJoinMeetingRegion() const {
    return says(&CVnGetMeetingProtoParse::IsEnableAllowDenyJoinMeetingRegion);
  }

  // Dictionaries in the order of the wire; absent without a message, as the two lists that follow.
  Value getTrackingFields() const;
  // E-mails, each once; hosts without an id are left out.
  Value getAlternateHosts() const;
  Value getAdditionalDCRegions() const;
  OptionalText getHostID() const;
  OptionalText getHostEmail() const;
  // The value under a key of the extra information; absent when there is none.
  Value getExtInfoNodeValue(std::string_view key) const;

  _sAvailableDialinCountry_ getAvailableDialinCountry() const;
  std::string getDialinCountry_Hash() const { return getAvailableDialinCountry().hash; }
  bool getDialinCountry_IncludeTollfree() const { return getAvailableDialinCountry().includeTollfree; }
  Value getDialinCountry_SelectedCountries() const {
    return textArray(getAvailableDialinCountry().selectedCountries);
  }
  bool getDialinCountry_EnableShowIncludeTollfree() const {
    return getAvailableDialinCountry().showIncludeTollfree;
  }

  _sAuthDomainInfo_ getAuthDomainInfo() const;
  std::string getAuthDomainInfo_authId() const { return getAuthDomainInfo().authId; }
  std::string getAuthDomainInfo_authName() const { return getAuthDomainInfo().authName; }
  int getAuthDomainInfo_authType() const { return getAuthDomainInfo().authType; }
  std::string getAuthDomainInfo_authDomain() const { return getAuthDomainInfo().authDomain; }

  _sMeetingTemplate_ getMeetingTemplate() const;
  std::string getMeetingTemplate_templateId() const { return getMeetingTemplate().templateId; }
  std::string getMeetingTemplate_templateName() const { return getMeetingTemplate().templateName; }
  int getMeetingTemplate_templateType() const { return getMeetingTemplate().templateType; }

  _sJoinMeetingRegionPolicy_ getJoinMeetingRegionPolicy() const;
  int getJoinMeetingRegionPolicy_RegionType() const { return getJoinMeetingRegionPolicy().regionType; }
  Value getJoinMeetingRegionPolicy_RegionCodes() const {
    return textArray(getJoinMeetingRegionPolicy().regionCodes);
  }

  // Whom the meeting is scheduled for: "" for the own meeting. For a host who is none of the account's people it
  // is the host's id, where getMeetingInfo() leaves the key out.
  OptionalText getScheduleForEmail() const;
  // The panel's audio code for the service's code of a telephony provider.
  static int convertTspAudioToAudioType(std::int64_t tspAudio);
  // "usePMI" becomes true when the meeting's number is the account's personal one.
  void resetUsePMI();

  void freeProtoParseInstance() { m_pMeetingProtoParse.reset(); }
  void cleanup();

 private:
  // The message's answer; false without a parser.
  bool says(bool (CVnGetMeetingProtoParse::*question)() const) const {
    return m_pMeetingProtoParse && (*m_pMeetingProtoParse.*question)();
  }
  Value apptInfo() const;
  Value settings() const;
  void addMeetingOptions(Value& settings) const;
  int autoRecordingType() const;

  Value m_dataMeetingData = Value::dictionary();
  OptionalText m_pbMeetingInfo;
  std::unique_ptr<CVnGetMeetingProtoParse> m_pMeetingProtoParse;
  bool m_isForGetMeetingByUUID = false;
};

}  // namespace vorn

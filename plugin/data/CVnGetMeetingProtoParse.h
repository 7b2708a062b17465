#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/MeetingRecords.h"
#include "data/OptionBits.h"

namespace vorn {

// The binary layer of one meeting, flattened into plain fields when it is made. Main thread only.
//
// A message that cannot be decoded gives a parser with empty values. Absent fields read false, 0 or "".
class CVnGetMeetingProtoParse {
 public:
  // The bytes have to be readable up to the length; a zero tag ends the message before that.
  CVnGetMeetingProtoParse(const std::uint8_t* bytes, std::int32_t length);

  const std::string& GetInviteHtmlEmail() const { return m_inviteHtmlEmail; }
  std::int64_t GetScheduleOptions() const { return m_scheduleOptions; }
  std::int64_t GetScheduleOption2() const { return m_scheduleOption2; }
  std::int64_t GetScheduleOption3() const { return m_scheduleOption3; }
  std::int64_t GetScheduleOption4() const { return m_scheduleOption4; }
  const std::string& GetRestrictJoinDomains() const { return m_restrictJoinDomains; }
  // 0 marks the defaults of a new meeting.
  std::int64_t GetMeetingNumber() const { return m_meetingNumber; }
  const std::string& GetExtInfo() const { return m_extInfo; }
  const std::string& GetHostID() const { return m_hostId; }
  const std::string& GetHostEmail() const { return m_hostEmail; }

  bool IsSignedInUsersMeetingOn() const {
    return hasBit(m_scheduleOptions, ScheduleOptions::IsSignedInUsersMeetingOn);
  }
  bool IsEnableMuteOnEntry() const { return hasBit(m_scheduleOption2, ScheduleOption2::IsEnableMuteOnEntry); }
  bool IsEnableAutoRecordingLocal() const {
    return hasBit(m_scheduleOption2, ScheduleOption2::IsEnableAutoRecordingLocal);
  }
  bool IsEnableAUtoRecordingCloud() const {
    return hasBit(m_scheduleOption2, ScheduleOption2::IsEnableAUtoRecordingCloud);
  }
  bool IsEnableAutoRecordingMtgLevelFirst() const {
    return hasBit(m_scheduleOption2, ScheduleOption2::IsEnableAutoRecordingMtgLevelFirst);
  }
  bool IsEnableMeetingToPublic() const {
    return hasBit(m_scheduleOption2, ScheduleOption2::IsEnableMeetingToPublic);
  }
  bool IsEnableWaitingRoom() const { return hasBit(m_scheduleOption2, ScheduleOption2::IsEnableWaitingRoom); }
  bool IsSupportWaitingRoom() const { return hasBit(m_scheduleOption2, ScheduleOption2::IsSupportWaitingRoom); }
  bool IsEnableAudioWatermark() const {
    return hasBit(m_scheduleOption2, ScheduleOption2::IsEnableAudioWatermark);
  }
  bool IsEnableRegionCustomization() const {
    return hasBit(m_scheduleOption3, ScheduleOption3::IsEnableRegionCustomization);
  }
  bool IsEnableE2ee() const { return hasBit(m_scheduleOption4, ScheduleOption4::IsEnableE2ee); }
  bool IsEnableUnmuteAll() const { return hasBit(m_scheduleOption4, ScheduleOption4::IsEnableUnmuteAll); }
  bool IsEnableAllowDenyJoinMeetingRegion() const {
    return hasBit(m_scheduleOption4, ScheduleOption4::IsEnableAllowDenyJoinMeetingRegion);
  }

  // The indexes are zero-based; an index outside gives false and leaves the record as it is.
  std::int32_t GetTrackingFieldsCount() const { return static_cast<std::int32_t>(m_trackingFields.size()); }
  bool GetTrackingFieldAt(std::int32_t index, _sTrackingField& field) const;
  std::int32_t GetAlternateHostsCount() const { return static_cast<std::int32_t>(m_alternateHosts.size()); }
  bool GetAlternateHostAt(std::int32_t index, _sAlternateHost_& host) const;
  std::int32_t GetAdditionalDCRegionsCount() const {
    return static_cast<std::int32_t>(m_additionalDCRegions.size());
  }
  bool GetAdditionalDCRegionAt(std::int32_t index, std::string& region) const;

  // False, with the record left as it is, when the hash is empty: it is the sign that the message had the part.
  bool GetAvailableDialinCountry(_sAvailableDialinCountry_& countries) const;
  // These three are always true, and give empty records when the message lacks the part.
  bool GetAuthDomainInfo(_sAuthDomainInfo_& info) const;
  bool GetMeetingTemplate(_sMeetingTemplate_& meetingTemplate) const;
  bool GetJoinMeetingRegionPolicy(_sJoinMeetingRegionPolicy_& policy) const;

 private:
  void ReadFromProto(const std::uint8_t* bytes, std::int32_t length);

  std::int64_t m_scheduleOptions = 0;
  std::int64_t m_scheduleOption2 = 0;
  std::string m_inviteHtmlEmail;
  std::string m_restrictJoinDomains;
  std::int64_t m_meetingNumber = 0;
  std::vector<_sTrackingField> m_trackingFields;
  std::vector<_sAlternateHost_> m_alternateHosts;
  _sAvailableDialinCountry_ m_availableDialinCountry;
  std::string m_extInfo;
  std::string m_hostId;
  std::string m_hostEmail;
  _sAuthDomainInfo_ m_authDomainInfo;
  std::int64_t m_scheduleOption3 = 0;
  std::vector<std::string> m_additionalDCRegions;
  std::int64_t m_scheduleOption4 = 0;
  _sMeetingTemplate_ m_meetingTemplate;
  _sJoinMeetingRegionPolicy_ m_joinMeetingRegionPolicy;
};

}  // namespace vorn

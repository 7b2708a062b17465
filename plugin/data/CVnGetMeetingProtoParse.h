#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/MeetingRecords.h"

namespace vorn {

// The binary layer of one meeting, flattened into plain fields when it is made. Main thread only.
//
// A message that cannot be decoded gives a parser with empty values. Absent fields read false, 0 or "".
class CVnGetMeetingProtoParse {
 public:
  // The bytes have to be readable up to the length; a zero tag ends the message before that.
  CVnGetMeetingProtoParse(const std::uint8_t* bytes, std::int32_t length);

  const std::string& GetInviteHtmlEmail() const { return inviteHtmlEmail_; }
  std::int64_t GetScheduleOptions() const { return scheduleOptions_; }
  std::int64_t GetScheduleOption2() const { return scheduleOption2_; }
  std::int64_t GetScheduleOption3() const { return scheduleOption3_; }
  std::int64_t GetScheduleOption4() const { return scheduleOption4_; }
  const std::string& GetRestrictJoinDomains() const { return restrictJoinDomains_; }
  // 0 marks the defaults of a new meeting.
  std::int64_t GetMeetingNumber() const { return meetingNumber_; }
  const std::string& GetExtInfo() const { return extInfo_; }
  const std::string& GetHostID() const { return hostId_; }
  const std::string& GetHostEmail() const { return hostEmail_; }

  bool IsSignedInUsersMeetingOn() const;
  bool IsEnableMuteOnEntry() const;
  bool IsEnableAutoRecordingLocal() const;
  bool IsEnableAUtoRecordingCloud() const;
  bool IsEnableAutoRecordingMtgLevelFirst() const;
  bool IsEnableMeetingToPublic() const;
  bool IsEnableWaitingRoom() const;
  bool IsSupportWaitingRoom() const;
  bool IsEnableAudioWatermark() const;
  bool IsEnableRegionCustomization() const;
  bool IsEnableE2ee() const;
  bool IsEnableUnmuteAll() const;
  bool IsEnableAllowDenyJoinMeetingRegion() const;

  // The indexes are zero-based; an index outside gives false and leaves the record as it is.
  std::int32_t GetTrackingFieldsCount() const { return static_cast<std::int32_t>(trackingFields_.size()); }
  bool GetTrackingFieldAt(std::int32_t index, _sTrackingField& field) const;
  std::int32_t GetAlternateHostsCount() const { return static_cast<std::int32_t>(alternateHosts_.size()); }
  bool GetAlternateHostAt(std::int32_t index, _sAlternateHost_& host) const;
  std::int32_t GetAdditionalDCRegionsCount() const {
    return static_cast<std::int32_t>(additionalDCRegions_.size());
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

  std::int64_t scheduleOptions_ = 0;
  std::int64_t scheduleOption2_ = 0;
  std::string inviteHtmlEmail_;
  std::string restrictJoinDomains_;
  std::int64_t meetingNumber_ = 0;
  std::vector<_sTrackingField> trackingFields_;
  std::vector<_sAlternateHost_> alternateHosts_;
  _sAvailableDialinCountry_ availableDialinCountry_;
  std::string extInfo_;
  std::string hostId_;
  std::string hostEmail_;
  _sAuthDomainInfo_ authDomainInfo_;
  std::int64_t scheduleOption3_ = 0;
  std::vector<std::string> additionalDCRegions_;
  std::int64_t scheduleOption4_ = 0;
  _sMeetingTemplate_ meetingTemplate_;
  _sJoinMeetingRegionPolicy_ joinMeetingRegionPolicy_;
};

}  // namespace vorn

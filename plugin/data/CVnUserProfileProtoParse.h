#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "data/MeetingRecords.h"

namespace vorn {

// The questions to the account's decoded profile message. Main thread only.
//
// There is one decoded message for the whole process. A new parser replaces it only when its bytes decode, and the
// end of a parser leaves it in place. A bit of an option word is false when the word is absent.
class CVnUserProfileProtoParse {
 public:
  // The bytes have to be readable up to the length; a zero tag ends the message before that.
  CVnUserProfileProtoParse(const std::uint8_t* bytes, std::int32_t length);

  std::string GetUserId() const;
  std::string GetUserName() const;
  std::string GetUserEmail() const;
  // Absent when the message does not tell.
  std::optional<std::int32_t> GetUserType() const;
  std::int64_t GetRoomMeetingId() const;
  std::string GetThirdPartyAudioInfo() const;
  std::string GetRestrictJoinDomains() const;
  bool CanUpgrade() const;

  // The words; 0 when absent.
  std::int64_t GetUserOption3() const;
  std::int64_t GetUserOption4() const;
  std::int64_t GetUserOption5() const;

  bool EnableAutoRecordingByDefault() const;
  bool AlwaysUseTelephonyAsDefaultAudio() const;
  bool HasSelfTelephony() const;
  // False when the message switches telephony off.
  bool EnableThirdPartyAudio() const;
  // True unless the message switches telephony off.
  bool IsEnablePSTN() const;
  bool EnableCloudRecording() const;
  bool EnableCloudRecordingByDefault() const;
  bool UseRandomPasswordByDefault() const;
  // Counts only together with the account's own telephony.
  bool Use3rdPartyAsDefaultAudio() const;
  bool AlwaysUseBothAsDefaultAudio() const;
  bool AlwaysTurnOnHostVideoByDefault() const;
  bool AlwaysTurnOnAttendeeVideoByDefault() const;
  bool AlwaysEnableJoinBeforeHostByDefault() const;
  // Both of its bits forbid, so an empty message answers true, unlike EnableCloudRecording().
  bool EnableLocalRecording() const;
  bool IsSignedInUserMeetingOn() const;
  bool IsSpecifiedDomainsMeetingOn() const;
  bool EnforceJoinLoginSpecifiedDomainsDefaultOn() const;
  bool IsScheduleAudioBothDisabled() const;
  bool EnableNotStoreMeetingTopic() const;
  bool IsEnableForcePMIJBHWithPassword() const;
  bool AlwaysUseVOIPAsDefaultAudio() const;
  bool IsDisablePMI() const;

  // Zero-based; an index outside gives false and leaves the record as it is.
  std::int32_t GetTrackingFieldsCount() const;
  bool GetTrackingFieldAt(std::int32_t index, _sTrackingField& field) const;
  std::int32_t GetTspAccountsCount() const;
  bool GetTspAccountAt(std::int32_t index, _sTspAccount_& account) const;
  std::string GetTspServiceProvider() const;
  bool IsTspSupportHybridAudio() const;
};

// The one parser of the process, null as long as no profile message has come. Only its existence guards the
// questions above.
std::unique_ptr<CVnUserProfileProtoParse>& userProfileProtoParse();

}  // namespace vorn

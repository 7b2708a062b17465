#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "data/MeetingRecords.h"
#include "data/OptionBits.h"

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

  bool EnableAutoRecordingByDefault() const { return says(UserOption::EnableAutoRecordingByDefault); }
  bool AlwaysUseTelephonyAsDefaultAudio() const { return says(UserOption::AlwaysUseTelephonyAsDefaultAudio); }
  bool HasSelfTelephony() const { return says(UserOption::HasSelfTelephony); }
  // False when the message switches telephony off.
  bool EnableThirdPartyAudio() const { return IsEnablePSTN() && says(UserOption::EnableThirdPartyAudio); }
  // True unless the message switches telephony off.
  bool IsEnablePSTN() const;
  bool EnableCloudRecording() const {
    return !says(UserOption2::EnableCloudRecording) && says(UserOption::EnableCloudRecording);
  }
  bool EnableCloudRecordingByDefault() const { return says(UserOption::EnableCloudRecordingByDefault); }
  bool UseRandomPasswordByDefault() const { return says(UserOption::UseRandomPasswordByDefault); }
  // Counts only together with the account's own telephony.
  bool Use3rdPartyAsDefaultAudio() const {
    return HasSelfTelephony() && says(UserOption::Use3rdPartyAsDefaultAudio);
  }
  bool AlwaysUseBothAsDefaultAudio() const { return says(UserOption::AlwaysUseBothAsDefaultAudio); }
  bool AlwaysTurnOnHostVideoByDefault() const { return says(UserOption::AlwaysTurnOnHostVideoByDefault); }
  bool AlwaysTurnOnAttendeeVideoByDefault() const { return says(UserOption::AlwaysTurnOnAttendeeVideoByDefault); }
  bool AlwaysEnableJoinBeforeHostByDefault() const {
    return says(UserOption::AlwaysEnableJoinBeforeHostByDefault);
  }
  // Both of its bits forbid, so an empty message answers true, unlike EnableCloudRecording().
  bool EnableLocalRecording() const {
    return !says(UserOption2::EnableLocalRecording) && !says(UserOption::EnableLocalRecording);
  }
  bool IsSignedInUserMeetingOn() const { return says(UserOption::IsSignedInUserMeetingOn); }
  bool IsSpecifiedDomainsMeetingOn() const { return says(UserOption::IsSpecifiedDomainsMeetingOn); }
  bool EnforceJoinLoginSpecifiedDomainsDefaultOn() const {
    return says(UserOption::EnforceJoinLoginSpecifiedDomainsDefaultOn);
  }
  bool IsScheduleAudioBothDisabled() const { return says(UserOption2::IsScheduleAudioBothDisabled); }
  bool EnableNotStoreMeetingTopic() const { return says(UserOption2::EnableNotStoreMeetingTopic); }
  bool IsEnableForcePMIJBHWithPassword() const { return says(UserOption2::IsEnableForcePMIJBHWithPassword); }
  bool AlwaysUseVOIPAsDefaultAudio() const { return says(UserOption2::AlwaysUseVOIPAsDefaultAudio); }
  bool IsDisablePMI() const { return says(UserOption3::IsDisablePMI); }

  // Zero-based; an index outside gives false and leaves the record as it is.
  std::int32_t GetTrackingFieldsCount() const;
  bool GetTrackingFieldAt(std::int32_t index, _sTrackingField& field) const;
  std::int32_t GetTspAccountsCount() const;
  bool GetTspAccountAt(std::int32_t index, _sTspAccount_& account) const;
  std::string GetTspServiceProvider() const;
  bool IsTspSupportHybridAudio() const;

 private:
  bool says(UserOption bit) const;
  bool says(UserOption2 bit) const;
  bool says(UserOption3 bit) const;
};

// The one parser of the process, null as long as no profile message has come. Only its existence guards the
// questions above.
std::unique_ptr<CVnUserProfileProtoParse>& userProfileProtoParse();

}  // namespace vorn

#pragma once

// The bits of the option words, one list for each word, by the accessor that reads the bit. A word has a type of
// its own, so that no bit is looked for in another word. An accessor whose answer is the opposite of its bit, or
// needs more than the bit, says so where it is declared.

#include <cstdint>
#include <type_traits>

namespace vorn {

// "userOption" of an account.
enum class UserOption : std::uint64_t {
  EnableAutoRecordingByDefault = 0x20,
  AlwaysUseTelephonyAsDefaultAudio = 0x400000,
  HasSelfTelephony = 0x2000000,
  EnableThirdPartyAudio = 0x2000000,
  EnableCloudRecording = 0x10000000,
  EnableCloudRecordingByDefault = 0x40000000,
  UseRandomPasswordByDefault = 0x200000000,
  Use3rdPartyAsDefaultAudio = 0x400000000,
  AlwaysUseBothAsDefaultAudio = 0x800000000,
  AlwaysTurnOnHostVideoByDefault = 0x1000000000,
  AlwaysTurnOnAttendeeVideoByDefault = 0x2000000000,
  AlwaysEnableJoinBeforeHostByDefault = 0x4000000000,
  EnableLocalRecording = 0x8000000000000,
  IsSignedInUserMeetingOn = 0x100000000000000,
  IsSpecifiedDomainsMeetingOn = 0x200000000000000,
  EnforceJoinLoginSpecifiedDomainsDefaultOn = 0x8000000000000000,
};

// "userOption2". The bit of the two recording accessors forbids all recording.
enum class UserOption2 : std::uint64_t {
  IsScheduleAudioBothDisabled = 0x80000000,
  EnableNotStoreMeetingTopic = 0x100000000,
  EnableLocalRecording = 0x8000000000,
  EnableCloudRecording = 0x8000000000,
  IsEnableForcePMIJBHWithPassword = 0x200000000000,
  AlwaysUseVOIPAsDefaultAudio = 0x40000000000000,
};

// "userOption3".
enum class UserOption3 : std::uint64_t {
  isEnableAddMeetingToPublicCalendarEvent = 0x8,
  enableListMeetingInPublicEventListByDefault = 0x20,
  muteUponEntryDefaultValue = 0x40,
  isEnableAudioWatermark = 0x80,
  isDefaultScheduleUsePMI = 0x100,
  isEnableWaitingRoom = 0x200,
  putTheInvitationAtTheTopDefaultValue = 0x1000,
  isAddJoinUrlToLocation = 0x4000,
  isEnableRequirePassword = 0x10000,
  isEnablePMIRequirePassword = 0x20000,
  isDisablePwdEmbedInJoinUrl = 0x2000000,
  isSupportJbhPriorTime = 0x8000000,
  isSupportRegionCustomization = 0x2000000000,
  isEnableRegionCustomization = 0x4000000000,
  IsDisablePMI = 0x8000000000,
  isShowUseWebSettingTipView = 0x400000000000,
  isEnableWaitingRoomNewLogic = 0x800000000000,
  isSupportUnmuteAll = 0x2000000000000,
  isEnableUnmuteAll = 0x8000000000000,
  isEnableE2eeMeeting = 0x20000000000000,
  canScheduleE2eeMeeting = 0x40000000000000,
  isSupportE2eeMeeting = 0x200000000000000,
  isSupportForceIncludeJoinurlInLocation = 0x1000000000000000,
  isEnableAllowDenyJoinMeetingRegion = 0x4000000000000000,
};

// "userOption4". All but the last row mean that the administrator has locked the option.
enum class UserOption4 : std::uint64_t {
  isHostVideoLocked = 0x2,
  isParticipantsLocked = 0x4,
  isAudioTypeLocked = 0x8,
  isJoinBeforeHostLocked = 0x10,
  isMuteUponEntryLocked = 0x20,
  isOnlySignedinUserCanJoinLocked = 0x40,
  isSignedinDomainsLocked = 0x80,
  isWatermarkLocked = 0x100,
  isAutomaticRecordingLocked = 0x200,
  isPublicEventLocked = 0x800,
  isLockAudioWatermark = 0x1000,
  isLockScheduleRequirePassword = 0x2000,
  isLockPMIRequirePassword = 0x8000,
  isLockScheduleUsePMI = 0x10000,
  isLockWaitingRoom = 0x20000,
  isLockJoinUrlToLocation = 0x40000,
  isLockE2eeMeeting = 0x4000000,
  isLockAllowDenyJoinMeetingRegion = 0x40000000,
  isLockAdminTemplate = 0x200000000,
  isEnableNumberalphabet = 0x400000,
};

// "userOption5".
enum class UserOption5 : std::uint64_t {
  isEnableAdminTemplate = 0x1,
};

// "supportFeatureOptions" of the profile's dictionary.
enum class SupportFeature : std::uint64_t {
  supportEditCountriesFeature = 0x1,
  supportPutTheInvitationAtTheTopFeature = 0x2,
  supportFeatureRequirePassword = 0x4,
  supportFeatureEnablePaidUserForCN = 0x8,
};

// The schedule options of a meeting.
enum class ScheduleOptions : std::uint64_t {
  IsSignedInUsersMeetingOn = 0x1800000000000000,
};
enum class ScheduleOption2 : std::uint64_t {
  IsEnableMuteOnEntry = 0x20,
  IsEnableAutoRecordingLocal = 0x40000,
  IsEnableAUtoRecordingCloud = 0x80000,
  IsEnableAutoRecordingMtgLevelFirst = 0x100000,
  IsEnableMeetingToPublic = 0x200000,
  IsEnableWaitingRoom = 0x400000000,
  IsSupportWaitingRoom = 0x800000000,
  IsEnableAudioWatermark = 0x2000000000000,
};
enum class ScheduleOption3 : std::uint64_t {
  IsEnableRegionCustomization = 0x20000000000000,
};
enum class ScheduleOption4 : std::uint64_t {
  IsEnableE2ee = 0x100,
  IsEnableUnmuteAll = 0x200,
  IsEnableAllowDenyJoinMeetingRegion = 0x100000000,
};

// True when any of the bits is set in the word.
template <typename Bits>
requires std::is_enum_v<Bits>
constexpr bool hasBit(std::int64_t word, Bits bits) {
  return (static_cast<std::uint64_t>(word) & static_cast<std::uint64_t>(bits)) != 0;
}

}  // namespace vorn

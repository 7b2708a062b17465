#pragma once

#include <cstdint>
#include <optional>

#include "data/VNAvailableDialinCountryContent.h"
#include "util/Value.h"

namespace vorn {

class vnUserProfileHelper;

// What the rules of a meeting's options know of the account: the answers of the profile reader at one moment, as a
// plain value. Each is named after the accessor that gives it.
struct AccountFacts {
  // Also of a profile that has been cleared since.
  bool knowsAccount = false;
  bool isPaidUser = false;

  bool alwaysTurnOnHostVideoByDefault = false;
  bool alwaysTurnOnAttendeeVideoByDefault = false;
  bool isHostVideoLocked = false;
  bool isParticipantsLocked = false;

  bool enableThirdPartyAudio = false;
  bool isTspSite = false;
  bool alwaysUseBothAsDefaultAudio = false;
  bool alwaysUseTelephonyAsDefaultAudio = false;
  bool alwaysUseVOIPAsDefaultAudio = false;
  bool use3rdPartyAsDefaultAudio = false;
  bool isScheduleAudioBothDisabled = false;
  bool muteUponEntryDefaultValue = false;
  bool isSupportUnmuteAll = false;
  bool isEnableUnmuteAll = false;
  bool isEnableAudioWatermark = false;
  bool isAudioTypeLocked = false;
  bool isMuteUponEntryLocked = false;
  bool isLockAudioWatermark = false;

  bool enableLocalRecording = false;
  bool enableCloudRecording = false;
  bool enableAutoRecordingByDefault = false;
  bool enableCloudRecordingByDefault = false;
  bool isAutomaticRecordingLocked = false;

  bool isDefaultScheduleUsePMI = false;
  bool isLockScheduleUsePMI = false;
  bool isEnableRequirePassword = false;
  bool isEnablePMIRequirePassword = false;
  bool isEnableForcePMIJBHWithPassword = false;
  bool isLockScheduleRequirePassword = false;
  bool isLockPMIRequirePassword = false;
  bool supportFeatureRequirePassword = false;
  bool isDisablePwdEmbedInJoinUrl = false;
  bool alwaysEnableJoinBeforeHostByDefault = false;
  bool isSupportJbhPriorTime = false;
  bool isJoinBeforeHostLocked = false;
  bool isEnableWaitingRoom = false;
  bool isEnableWaitingRoomNewLogic = false;
  bool isLockWaitingRoom = false;
  bool isDefaultEnableOnlyAuthUsersCanJoin = false;
  bool isLockOnlyAuthUsersCanJoin = false;
  bool isSupportE2eeMeeting = false;
  bool canScheduleE2eeMeeting = false;
  bool isEnableE2eeMeeting = false;
  bool isLockE2eeMeeting = false;

  bool isEnableAddMeetingToPublicCalendarEvent = false;
  bool enableListMeetingInPublicEventListByDefault = false;
  bool isPublicEventLocked = false;
  bool isSupportForceIncludeJoinurlInLocation = false;
  bool isAddJoinUrlToLocation = false;
  bool isLockJoinUrlToLocation = false;
  bool supportPutTheInvitationAtTheTopFeature = false;
  bool putTheInvitationAtTheTopDefaultValue = false;
  bool isEnableRegionCustomization = false;

  // Of the account or of the person for whom the facts were asked.
  bool isEnableAllowDenyJoinMeetingRegion = false;
  bool isLockAllowDenyJoinMeetingRegion = false;
  std::int64_t getRegionType = 0;
  Value getRegionCodes{};

  // Minutes.
  std::int64_t getDefaultJbhPriorTime = 0;
  OptionalText roomMeetingID{};
  OptionalText thirdPartyAudioInfo{};
  Value getMeetingAuths{};
  Value trackingFields{};
  // Without the countries that are offered.
  std::optional<VNAvailableDialinCountryContent> getAvailableDialinCountry{};
};

// The answers as they stand now. The regions are those of the person with the e-mail, of the account for an absent
// or empty one. Main thread only; time linear in the profile's lists.
AccountFacts accountFacts(const vnUserProfileHelper& account, const OptionalText& email);
// The same without the tracking fields and the dial-in countries, for who asks often: only a new meeting's
// defaults need those two, and they take most of the time.
AccountFacts accountFactsWithoutLists(const vnUserProfileHelper& account, const OptionalText& email);

// What the client can do, by the predicates' names.
struct ClientGates {
  bool isVornClientSupportAutoRecord = false;
  bool isVornClientSupportAHAndMuteOnEntry = false;
  bool isVornClientSupportPublicEvent = false;
  bool isVornClientSupportInvitationLanguage = false;
  bool isVornClientSupport520Tasks = false;
  bool isVornClientSupport530Tasks = false;
  bool isVornClientSupport464Tasks = false;
  bool isVornClientSupport550Tasks = false;
};

// The predicates' answers now. Main thread only.
ClientGates clientGates();

}  // namespace vorn

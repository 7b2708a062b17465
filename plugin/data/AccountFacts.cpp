#include "data/AccountFacts.h"

#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnUserProfileHelper.h"

namespace vorn {

AccountFacts accountFactsWithoutLists(const vnUserProfileHelper& account, const OptionalText& email) {
  // Some of its answers are the client's too.
  const vnClientFeatureMgr::OneReading oneReading;
  return {
      .knowsAccount = account.knowsAccount(),
      .isPaidUser = account.isPaidUser(),
      .alwaysTurnOnHostVideoByDefault = account.alwaysTurnOnHostVideoByDefault(),
      .alwaysTurnOnAttendeeVideoByDefault = account.alwaysTurnOnAttendeeVideoByDefault(),
      .isHostVideoLocked = account.isHostVideoLocked(),
      .isParticipantsLocked = account.isParticipantsLocked(),
      .enableThirdPartyAudio = account.enableThirdPartyAudio(),
      .isTspSite = account.isTspSite(),
      .alwaysUseBothAsDefaultAudio = account.alwaysUseBothAsDefaultAudio(),
      .alwaysUseTelephonyAsDefaultAudio = account.alwaysUseTelephonyAsDefaultAudio(),
      .alwaysUseVOIPAsDefaultAudio = account.alwaysUseVOIPAsDefaultAudio(),
      .use3rdPartyAsDefaultAudio = account.use3rdPartyAsDefaultAudio(),
      .isScheduleAudioBothDisabled = account.isScheduleAudioBothDisabled(),
      .muteUponEntryDefaultValue = account.muteUponEntryDefaultValue(),
      .isSupportUnmuteAll = account.isSupportUnmuteAll(),
      .isEnableUnmuteAll = account.isEnableUnmuteAll(),
      .isEnableAudioWatermark = account.isEnableAudioWatermark(),
      .isAudioTypeLocked = account.isAudioTypeLocked(),
      .isMuteUponEntryLocked = account.isMuteUponEntryLocked(),
      .isLockAudioWatermark = account.isLockAudioWatermark(),
      .enableLocalRecording = account.enableLocalRecording(),
      .enableCloudRecording = account.enableCloudRecording(),
      .enableAutoRecordingByDefault = account.enableAutoRecordingByDefault(),
      .enableCloudRecordingByDefault = account.enableCloudRecordingByDefault(),
      .isAutomaticRecordingLocked = account.isAutomaticRecordingLocked(),
      .isDefaultScheduleUsePMI = account.isDefaultScheduleUsePMI(),
      .isLockScheduleUsePMI = account.isLockScheduleUsePMI(),
      .isEnableRequirePassword = account.isEnableRequirePassword(),
      .isEnablePMIRequirePassword = account.isEnablePMIRequirePassword(),
      .isEnableForcePMIJBHWithPassword = account.isEnableForcePMIJBHWithPassword(),
      .isLockScheduleRequirePassword = account.isLockScheduleRequirePassword(),
      .isLockPMIRequirePassword = account.isLockPMIRequirePassword(),
      .supportFeatureRequirePassword = account.supportFeatureRequirePassword(),
      .isDisablePwdEmbedInJoinUrl = account.isDisablePwdEmbedInJoinUrl(),
      .alwaysEnableJoinBeforeHostByDefault = account.alwaysEnableJoinBeforeHostByDefault(),
      .isSupportJbhPriorTime = account.isSupportJbhPriorTime(),
      .isJoinBeforeHostLocked = account.isJoinBeforeHostLocked(),
      .isEnableWaitingRoom = account.isEnableWaitingRoom(),
      .isEnableWaitingRoomNewLogic = account.isEnableWaitingRoomNewLogic(),
      .isLockWaitingRoom = account.isLockWaitingRoom(),
      .isDefaultEnableOnlyAuthUsersCanJoin = account.isDefaultEnableOnlyAuthUsersCanJoin(),
      .isLockOnlyAuthUsersCanJoin = account.isLockOnlyAuthUsersCanJoin(),
      .isSupportE2eeMeeting = account.isSupportE2eeMeeting(),
      .canScheduleE2eeMeeting = account.canScheduleE2eeMeeting(),
      .isEnableE2eeMeeting = account.isEnableE2eeMeeting(),
      .isLockE2eeMeeting = account.isLockE2eeMeeting(),
      .isEnableAddMeetingToPublicCalendarEvent = account.isEnableAddMeetingToPublicCalendarEvent(),
      .enableListMeetingInPublicEventListByDefault = account.enableListMeetingInPublicEventListByDefault(),
      .isPublicEventLocked = account.isPublicEventLocked(),
      .isSupportForceIncludeJoinurlInLocation = account.isSupportForceIncludeJoinurlInLocation(),
      .isAddJoinUrlToLocation = account.isAddJoinUrlToLocation(),
      .isLockJoinUrlToLocation = account.isLockJoinUrlToLocation(),
      .supportPutTheInvitationAtTheTopFeature = account.supportPutTheInvitationAtTheTopFeature(),
      .putTheInvitationAtTheTopDefaultValue = account.putTheInvitationAtTheTopDefaultValue(),
      .isEnableRegionCustomization = account.isEnableRegionCustomization(),
      .isEnableAllowDenyJoinMeetingRegion = account.isEnableAllowDenyJoinMeetingRegion(email),
      .isLockAllowDenyJoinMeetingRegion = account.isLockAllowDenyJoinMeetingRegion(email),
      .getRegionType = account.getRegionType(email),
      .getRegionCodes = account.getRegionCodes(email),
      .getDefaultJbhPriorTime = account.getDefaultJbhPriorTime(),
      .roomMeetingID = account.roomMeetingID(),
      .thirdPartyAudioInfo = account.thirdPartyAudioInfo(),
      .getMeetingAuths = account.getMeetingAuths(),
  };
}

AccountFacts accountFacts(const vnUserProfileHelper& account, const OptionalText& email) {
  AccountFacts facts = accountFactsWithoutLists(account, email);
  facts.trackingFields = account.trackingFields();
  facts.getAvailableDialinCountry = account.selectedDialinCountry();
  return facts;
}

ClientGates clientGates() {
  const vnClientFeatureMgr::OneReading oneReading;
  vnClientFeatureMgr& client = vnClientFeatureMgr::sharedInstance();
  return {
      .isVornClientSupportAutoRecord = client.isVornClientSupportAutoRecord(),
      .isVornClientSupportAHAndMuteOnEntry = client.isVornClientSupportAHAndMuteOnEntry(),
      .isVornClientSupportPublicEvent = client.isVornClientSupportPublicEvent(),
      .isVornClientSupportInvitationLanguage = client.isVornClientSupportInvitationLanguage(),
      .isVornClientSupport520Tasks = client.isVornClientSupport520Tasks(),
      .isVornClientSupport530Tasks = client.isVornClientSupport530Tasks(),
      .isVornClientSupport464Tasks = client.isVornClientSupport464Tasks(),
      .isVornClientSupport550Tasks = client.isVornClientSupport550Tasks(),
  };
}

}  // namespace vorn

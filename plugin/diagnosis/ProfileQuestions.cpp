#include "diagnosis/ProfileQuestions.h"

namespace vorn {

namespace {

using P = vnUserProfileHelper;

Value askUserType(const P& profile) {
  const auto type = profile.userType();
  return type ? Value(*type) : Value();
}

Value askDialinCountries(const P& profile) {
  const auto countries = profile.getAvailableDialinCountry();
  return countries ? countries->selectedCountries : Value();
}

constexpr ProfileQuestion kIdentity[] = {
    {"getUID", "user id", askProfile<&P::getUID>},
    {"userName", "name", askProfile<&P::userName>},
    {"userEmail", "e-mail", askProfile<&P::userEmail>},
    {"userType", "user type", askUserType},
    {"isPaidUser", "paid plan", askProfile<&P::isPaidUser>},
    {"isNoMeetingLicenseUser", "without meeting licence", askProfile<&P::isNoMeetingLicenseUser>},
    {"roomMeetingID", "personal meeting ID", askProfile<&P::roomMeetingID>},
    {"isDisablePMI", "personal meeting ID disabled", askProfile<&P::isDisablePMI>},
    {"isDisablePMIForOther", "personal meeting ID disabled for others", askProfile<&P::isDisablePMIForOther>},
    {"isDefaultScheduleUsePMI", "new meetings use the personal meeting ID",
     askProfile<&P::isDefaultScheduleUsePMI>},
    {"hasProto", "the profile has its packed message", askProfile<&P::hasProto>},
    {"isAccountChanged", "the account has changed", askProfile<&P::isAccountChanged>},
    {"isTaiWanZH", "account of Taiwan", askProfile<&P::isTaiWanZH>},
    {"getVornDomain", "web address", askProfile<&P::getVornDomain>},
};

constexpr ProfileQuestion kAudio[] = {
    {"enablePSTN", "telephony", askProfile<&P::enablePSTN>},
    {"alwaysUseBothAsDefaultAudio", "default: telephony and computer audio",
     askProfile<&P::alwaysUseBothAsDefaultAudio>},
    {"alwaysUseTelephonyAsDefaultAudio", "default: telephony", askProfile<&P::alwaysUseTelephonyAsDefaultAudio>},
    {"alwaysUseVOIPAsDefaultAudio", "default: computer audio", askProfile<&P::alwaysUseVOIPAsDefaultAudio>},
    {"use3rdPartyAsDefaultAudio", "default: third-party audio", askProfile<&P::use3rdPartyAsDefaultAudio>},
    {"isScheduleAudioBothDisabled", "telephony and computer audio cannot be joined",
     askProfile<&P::isScheduleAudioBothDisabled>},
    {"enableThirdPartyAudio", "third-party audio", askProfile<&P::enableThirdPartyAudio>},
    {"isTspSite", "telephony provider", askProfile<&P::isTspSite>},
    {"tspServiceProvider", "name of the provider", askProfile<&P::tspServiceProvider>},
    {"tspIsSupportHybirdAudio", "the provider joins computer audio", askProfile<&P::tspIsSupportHybirdAudio>},
    {"moreThanOneTSPAccounts", "more than one account there", askProfile<&P::moreThanOneTSPAccounts>},
    {"muteUponEntryDefaultValue", "default: muted upon entry", askProfile<&P::muteUponEntryDefaultValue>},
    {"isSupportUnmuteAll", "unmuting all is offered", askProfile<&P::isSupportUnmuteAll>},
    {"isEnableUnmuteAll", "default: unmuting all", askProfile<&P::isEnableUnmuteAll>},
    {"getAvailableDialinCountry", "dial-in countries chosen", askDialinCountries},
    {"isEnableAudioWatermark", "audio watermark", askProfile<&P::isEnableAudioWatermark>},
};

constexpr ProfileQuestion kVideo[] = {
    {"alwaysTurnOnHostVideoByDefault", "default: host video on", askProfile<&P::alwaysTurnOnHostVideoByDefault>},
    {"alwaysTurnOnAttendeeVideoByDefault", "default: participants' video on",
     askProfile<&P::alwaysTurnOnAttendeeVideoByDefault>},
};

constexpr ProfileQuestion kRecording[] = {
    {"enableLocalRecording", "local recording", askProfile<&P::enableLocalRecording>},
    {"enableCloudRecording", "cloud recording", askProfile<&P::enableCloudRecording>},
    {"enableAutoRecordingByDefault", "default: automatic recording", askProfile<&P::enableAutoRecordingByDefault>},
    {"enableCloudRecordingByDefault", "default: automatic recording in the cloud",
     askProfile<&P::enableCloudRecordingByDefault>},
};

constexpr ProfileQuestion kSecurity[] = {
    {"supportFeatureRequirePassword", "requiring a passcode is offered",
     askProfile<&P::supportFeatureRequirePassword>},
    {"isEnableRequirePassword", "passcode required", askProfile<&P::isEnableRequirePassword>},
    {"isEnablePMIRequirePassword", "passcode required for the personal meeting",
     askProfile<&P::isEnablePMIRequirePassword>},
    {"isEnableForcePMIJBHWithPassword", "passcode required to join the personal meeting before the host",
     askProfile<&P::isEnableForcePMIJBHWithPassword>},
    {"useRandomPasswordByDefault", "default: random passcode", askProfile<&P::useRandomPasswordByDefault>},
    {"getMeetingPasswordMinLength", "passcode: least length", askProfile<&P::getMeetingPasswordMinLength>},
    {"getMeetingPasswordRulesOption", "passcode: rules", askProfile<&P::getMeetingPasswordRulesOption>},
    {"getMeetingPasswordConsecutiveLength", "passcode: longest run",
     askProfile<&P::getMeetingPasswordConsecutiveLength>},
    {"isEnableNumberalphabet", "passcode: mixes digits and letters", askProfile<&P::isEnableNumberalphabet>},
    {"isDisablePwdEmbedInJoinUrl", "no passcode in the join URL", askProfile<&P::isDisablePwdEmbedInJoinUrl>},
    {"isEnableWaitingRoom", "default: waiting room", askProfile<&P::isEnableWaitingRoom>},
    {"isEnableWaitingRoomNewLogic", "waiting room counts as protection",
     askProfile<&P::isEnableWaitingRoomNewLogic>},
    {"alwaysEnableJoinBeforeHostByDefault", "default: join before host",
     askProfile<&P::alwaysEnableJoinBeforeHostByDefault>},
    {"isSupportJbhPriorTime", "minutes before the start are offered", askProfile<&P::isSupportJbhPriorTime>},
    {"getDefaultJbhPriorTime", "default: minutes before the start", askProfile<&P::getDefaultJbhPriorTime>},
    {"isSupportOnlyAuthUsersCanJoin", "authentication is offered", askProfile<&P::isSupportOnlyAuthUsersCanJoin>},
    {"isDefaultEnableOnlyAuthUsersCanJoin", "default: only authenticated users join",
     askProfile<&P::isDefaultEnableOnlyAuthUsersCanJoin>},
    {"getMeetingAuths", "ways of authentication", askProfile<&P::getMeetingAuths>},
    {"isSignedInUserMeetingOn", "only signed-in users join", askProfile<&P::isSignedInUserMeetingOn>},
    {"isSpecifiedDomainsMeetingOn", "only users of given domains join",
     askProfile<&P::isSpecifiedDomainsMeetingOn>},
    {"enforceJoinLoginSpecifiedDomainsDefaultOn", "default: only users of given domains join",
     askProfile<&P::enforceJoinLoginSpecifiedDomainsDefaultOn>},
    {"restrictJoinDomains", "the given domains", askProfile<&P::restrictJoinDomains>},
    {"isSupportE2eeMeeting", "end-to-end encryption is offered", askProfile<&P::isSupportE2eeMeeting>},
    {"canScheduleE2eeMeeting", "end-to-end encryption can be scheduled", askProfile<&P::canScheduleE2eeMeeting>},
    {"isEnableE2eeMeeting", "default: end-to-end encryption", askProfile<&P::isEnableE2eeMeeting>},
};

constexpr ProfileQuestion kLocks[] = {
    {"isHostVideoLocked", "host video", askProfile<&P::isHostVideoLocked>},
    {"isParticipantsLocked", "participants' video", askProfile<&P::isParticipantsLocked>},
    {"isAudioTypeLocked", "audio", askProfile<&P::isAudioTypeLocked>},
    {"isJoinBeforeHostLocked", "join before host", askProfile<&P::isJoinBeforeHostLocked>},
    {"isMuteUponEntryLocked", "mute upon entry", askProfile<&P::isMuteUponEntryLocked>},
    {"isOnlySignedinUserCanJoinLocked", "only signed-in users", askProfile<&P::isOnlySignedinUserCanJoinLocked>},
    {"isLockOnlyAuthUsersCanJoin", "only authenticated users", askProfile<&P::isLockOnlyAuthUsersCanJoin>},
    {"isSignedinDomainsLocked", "sign-in domains", askProfile<&P::isSignedinDomainsLocked>},
    {"isWatermarkLocked", "watermark", askProfile<&P::isWatermarkLocked>},
    {"isLockAudioWatermark", "audio watermark", askProfile<&P::isLockAudioWatermark>},
    {"isAutomaticRecordingLocked", "automatic recording", askProfile<&P::isAutomaticRecordingLocked>},
    {"isPublicEventLocked", "public event list", askProfile<&P::isPublicEventLocked>},
    {"isLockScheduleRequirePassword", "requiring a passcode", askProfile<&P::isLockScheduleRequirePassword>},
    {"isLockPMIRequirePassword", "requiring a passcode for the personal meeting",
     askProfile<&P::isLockPMIRequirePassword>},
    {"isLockScheduleUsePMI", "personal meeting ID", askProfile<&P::isLockScheduleUsePMI>},
    {"isLockWaitingRoom", "waiting room", askProfile<&P::isLockWaitingRoom>},
    {"isLockJoinUrlToLocation", "join URL in the location", askProfile<&P::isLockJoinUrlToLocation>},
    {"isLockE2eeMeeting", "end-to-end encryption", askProfile<&P::isLockE2eeMeeting>},
    {"isLockAllowDenyJoinMeetingRegion", "join regions", askOfAccount<&P::isLockAllowDenyJoinMeetingRegion>},
    {"isLockAdminTemplate", "templates", askOfAccount<&P::isLockAdminTemplate>},
};

constexpr ProfileQuestion kPolicies[] = {
    {"enableNotStoreMeetingTopic", "topics are not stored", askProfile<&P::enableNotStoreMeetingTopic>},
    {"isSupportForceIncludeJoinurlInLocation", "join URL in the location is offered",
     askProfile<&P::isSupportForceIncludeJoinurlInLocation>},
    {"isAddJoinUrlToLocation", "default: join URL in the location", askProfile<&P::isAddJoinUrlToLocation>},
    {"supportPutTheInvitationAtTheTopFeature", "invitation at the top is offered",
     askProfile<&P::supportPutTheInvitationAtTheTopFeature>},
    {"putTheInvitationAtTheTopDefaultValue", "default: invitation at the top",
     askProfile<&P::putTheInvitationAtTheTopDefaultValue>},
    {"isEnableAddMeetingToPublicCalendarEvent", "public event list",
     askProfile<&P::isEnableAddMeetingToPublicCalendarEvent>},
    {"enableListMeetingInPublicEventListByDefault", "default: in the public event list",
     askProfile<&P::enableListMeetingInPublicEventListByDefault>},
    {"supportEditCountriesFeature", "dial-in countries can be edited",
     askProfile<&P::supportEditCountriesFeature>},
    {"getMaximumDialinCountry", "most dial-in countries", askOfAccount<&P::getMaximumDialinCountry>},
    {"isSupportRegionCustomization", "data centres are offered", askProfile<&P::isSupportRegionCustomization>},
    {"isEnableRegionCustomization", "default: data centres are chosen",
     askProfile<&P::isEnableRegionCustomization>},
    {"getWebUncheckedDCInfos", "data centres left out", askProfile<&P::getWebUncheckedDCInfos>},
    {"isEnableAllowDenyJoinMeetingRegion", "join regions are limited",
     askOfAccount<&P::isEnableAllowDenyJoinMeetingRegion>},
    {"getRegionType", "join regions: 0 allowed, otherwise blocked", askOfAccount<&P::getRegionType>},
    {"getRegionCodes", "join regions", askOfAccount<&P::getRegionCodes>},
    {"getDefaultRegionCode", "join regions: the account's own", askOfAccount<&P::getDefaultRegionCode>},
    {"isEnableAdminTemplate", "templates", askOfAccount<&P::isEnableAdminTemplate>},
    {"getMeetingTemplates", "templates to choose from", askOfAccount<&P::getMeetingTemplates>},
    {"trackingFields", "tracking fields", askProfile<&P::trackingFields>},
    {"isShowUseWebSettingTipView", "tip on the web's settings", askProfile<&P::isShowUseWebSettingTipView>},
    {"supportFeatureEnablePaidUserForCN", "paid users of China",
     askProfile<&P::supportFeatureEnablePaidUserForCN>},
    {"canUpgrade", "the plan can be upgraded", askProfile<&P::canUpgrade>},
    {"isShowUpgradeLink", "upgrade link is shown", askProfile<&P::isShowUpgradeLink>},
    {"getUpgradeLink", "upgrade link", askProfile<&P::getUpgradeLink>},
    {"getUpgradeContactName", "upgrade contact", askProfile<&P::getUpgradeContactName>},
    {"getUpgradeContactEmail", "upgrade contact's e-mail", askProfile<&P::getUpgradeContactEmail>},
    {"getMeetingTrashCanLink", "link to deleted meetings", askProfile<&P::getMeetingTrashCanLink>},
    {"getPublicEventListUrl", "link to the public event list", askProfile<&P::getPublicEventListUrl>},
    {"getProfileSettingURL", "link to the web's settings", askProfile<&P::getProfileSettingURL>},
};

constexpr ProfileQuestionGroup kGroups[] = {
    {"identity", kIdentity}, {"audio", kAudio}, {"video", kVideo},       {"recording", kRecording},
    {"security", kSecurity}, {"locks", kLocks}, {"policies", kPolicies},
};

}  // namespace

std::span<const ProfileQuestionGroup> profileQuestions() { return kGroups; }

const ProfileQuestion* profileQuestion(std::string_view accessor) {
  for (const ProfileQuestionGroup& group : kGroups) {
    for (const ProfileQuestion& question : group.questions) {
      if (question.accessor == accessor) return &question;
    }
  }
  return nullptr;
}

}  // namespace vorn

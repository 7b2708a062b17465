#include "diagnosis/ProfileQuestions.h"

#include <type_traits>

#include "util/MemberName.h"

namespace vorn {

namespace {

using P = vnUserProfileHelper;

template <typename Answer>
Value told(const Answer& answer) {
  return answer;
}
Value told(const std::optional<std::int32_t>& answer) { return answer ? Value(*answer) : Value(); }
Value told(const std::optional<VNAvailableDialinCountryContent>& answer) {
  return answer ? answer->selectedCountries : Value();
}

// What may be asked of a person as well is asked of the account.
template <auto Accessor>
Value ask(const P& profile) {
  if constexpr (std::is_invocable_v<decltype(Accessor), const P&>) {
    return told((profile.*Accessor)());
  } else {
    return told((profile.*Accessor)(std::nullopt));
  }
}

template <auto Accessor>
constexpr ProfileQuestion row(std::string_view words) {
  return {memberName<Accessor>(), words, ask<Accessor>};
}

constexpr ProfileQuestion kIdentity[] = {
    row<&P::getUID>("user id"),
    row<&P::userName>("name"),
    row<&P::userEmail>("e-mail"),
    row<&P::userType>("user type"),
    row<&P::isPaidUser>("paid plan"),
    row<&P::isNoMeetingLicenseUser>("without meeting licence"),
    row<&P::roomMeetingID>("personal meeting ID"),
    row<&P::isDisablePMI>("personal meeting ID disabled"),
    row<&P::isDisablePMIForOther>("personal meeting ID disabled for others"),
    row<&P::isDefaultScheduleUsePMI>("new meetings use the personal meeting ID"),
    row<&P::hasProto>("the profile has its packed message"),
    row<&P::isAccountChanged>("the account has changed"),
    row<&P::isTaiWanZH>("account of Taiwan"),
    row<&P::getVornDomain>("web address"),
};

constexpr ProfileQuestion kAudio[] = {
    row<&P::enablePSTN>("telephony"),
    row<&P::alwaysUseBothAsDefaultAudio>("default: telephony and computer audio"),
    row<&P::alwaysUseTelephonyAsDefaultAudio>("default: telephony"),
    row<&P::alwaysUseVOIPAsDefaultAudio>("default: computer audio"),
    row<&P::use3rdPartyAsDefaultAudio>("default: third-party audio"),
    row<&P::isScheduleAudioBothDisabled>("telephony and computer audio cannot be joined"),
    row<&P::enableThirdPartyAudio>("third-party audio"),
    row<&P::isTspSite>("telephony provider"),
    row<&P::tspServiceProvider>("name of the provider"),
    row<&P::tspIsSupportHybirdAudio>("the provider joins computer audio"),
    row<&P::moreThanOneTSPAccounts>("more than one account there"),
    row<&P::muteUponEntryDefaultValue>("default: muted upon entry"),
    row<&P::isSupportUnmuteAll>("unmuting all is offered"),
    row<&P::isEnableUnmuteAll>("default: unmuting all"),
    row<&P::getAvailableDialinCountry>("dial-in countries chosen"),
    row<&P::isEnableAudioWatermark>("audio watermark"),
};

constexpr ProfileQuestion kVideo[] = {
    row<&P::alwaysTurnOnHostVideoByDefault>("default: host video on"),
    row<&P::alwaysTurnOnAttendeeVideoByDefault>("default: participants' video on"),
};

constexpr ProfileQuestion kRecording[] = {
    row<&P::enableLocalRecording>("local recording"),
    row<&P::enableCloudRecording>("cloud recording"),
    row<&P::enableAutoRecordingByDefault>("default: automatic recording"),
    row<&P::enableCloudRecordingByDefault>("default: automatic recording in the cloud"),
};

constexpr ProfileQuestion kSecurity[] = {
    row<&P::supportFeatureRequirePassword>("requiring a passcode is offered"),
    row<&P::isEnableRequirePassword>("passcode required"),
    row<&P::isEnablePMIRequirePassword>("passcode required for the personal meeting"),
    row<&P::isEnableForcePMIJBHWithPassword>("passcode required to join the personal meeting before the host"),
    row<&P::useRandomPasswordByDefault>("default: random passcode"),
    row<&P::getMeetingPasswordMinLength>("passcode: least length"),
    row<&P::getMeetingPasswordRulesOption>("passcode: rules"),
    row<&P::getMeetingPasswordConsecutiveLength>("passcode: longest run"),
    row<&P::isEnableNumberalphabet>("passcode: mixes digits and letters"),
    row<&P::isDisablePwdEmbedInJoinUrl>("no passcode in the join URL"),
    row<&P::isEnableWaitingRoom>("default: waiting room"),
    row<&P::isEnableWaitingRoomNewLogic>("waiting room counts as protection"),
    row<&P::alwaysEnableJoinBeforeHostByDefault>("default: join before host"),
    row<&P::isSupportJbhPriorTime>("minutes before the start are offered"),
    row<&P::getDefaultJbhPriorTime>("default: minutes before the start"),
    row<&P::isSupportOnlyAuthUsersCanJoin>("authentication is offered"),
    row<&P::isDefaultEnableOnlyAuthUsersCanJoin>("default: only authenticated users join"),
    row<&P::getMeetingAuths>("ways of authentication"),
    row<&P::isSignedInUserMeetingOn>("only signed-in users join"),
    row<&P::isSpecifiedDomainsMeetingOn>("only users of given domains join"),
    row<&P::enforceJoinLoginSpecifiedDomainsDefaultOn>("default: only users of given domains join"),
    row<&P::restrictJoinDomains>("the given domains"),
    row<&P::isSupportE2eeMeeting>("end-to-end encryption is offered"),
    row<&P::canScheduleE2eeMeeting>("end-to-end encryption can be scheduled"),
    row<&P::isEnableE2eeMeeting>("default: end-to-end encryption"),
};

constexpr ProfileQuestion kLocks[] = {
    row<&P::isHostVideoLocked>("host video"),
    row<&P::isParticipantsLocked>("participants' video"),
    row<&P::isAudioTypeLocked>("audio"),
    row<&P::isJoinBeforeHostLocked>("join before host"),
    row<&P::isMuteUponEntryLocked>("mute upon entry"),
    row<&P::isOnlySignedinUserCanJoinLocked>("only signed-in users"),
    row<&P::isLockOnlyAuthUsersCanJoin>("only authenticated users"),
    row<&P::isSignedinDomainsLocked>("sign-in domains"),
    row<&P::isWatermarkLocked>("watermark"),
    row<&P::isLockAudioWatermark>("audio watermark"),
    row<&P::isAutomaticRecordingLocked>("automatic recording"),
    row<&P::isPublicEventLocked>("public event list"),
    row<&P::isLockScheduleRequirePassword>("requiring a passcode"),
    row<&P::isLockPMIRequirePassword>("requiring a passcode for the personal meeting"),
    row<&P::isLockScheduleUsePMI>("personal meeting ID"),
    row<&P::isLockWaitingRoom>("waiting room"),
    row<&P::isLockJoinUrlToLocation>("join URL in the location"),
    row<&P::isLockE2eeMeeting>("end-to-end encryption"),
    row<&P::isLockAllowDenyJoinMeetingRegion>("join regions"),
    row<&P::isLockAdminTemplate>("templates"),
};

constexpr ProfileQuestion kPolicies[] = {
    row<&P::enableNotStoreMeetingTopic>("topics are not stored"),
    row<&P::isSupportForceIncludeJoinurlInLocation>("join URL in the location is offered"),
    row<&P::isAddJoinUrlToLocation>("default: join URL in the location"),
    row<&P::supportPutTheInvitationAtTheTopFeature>("invitation at the top is offered"),
    row<&P::putTheInvitationAtTheTopDefaultValue>("default: invitation at the top"),
    row<&P::isEnableAddMeetingToPublicCalendarEvent>("public event list"),
    row<&P::enableListMeetingInPublicEventListByDefault>("default: in the public event list"),
    row<&P::supportEditCountriesFeature>("dial-in countries can be edited"),
    row<&P::getMaximumDialinCountry>("most dial-in countries"),
    row<&P::isSupportRegionCustomization>("data centres are offered"),
    row<&P::isEnableRegionCustomization>("default: data centres are chosen"),
    row<&P::getWebUncheckedDCInfos>("data centres left out"),
    row<&P::isEnableAllowDenyJoinMeetingRegion>("join regions are limited"),
    row<&P::getRegionType>("join regions: 0 allowed, otherwise blocked"),
    row<&P::getRegionCodes>("join regions"),
    row<&P::getDefaultRegionCode>("join regions: the account's own"),
    row<&P::isEnableAdminTemplate>("templates"),
    row<&P::getMeetingTemplates>("templates to choose from"),
    row<&P::trackingFields>("tracking fields"),
    row<&P::isShowUseWebSettingTipView>("tip on the web's settings"),
    row<&P::supportFeatureEnablePaidUserForCN>("paid users of China"),
    row<&P::canUpgrade>("the plan can be upgraded"),
    row<&P::isShowUpgradeLink>("upgrade link is shown"),
    row<&P::getUpgradeLink>("upgrade link"),
    row<&P::getUpgradeContactName>("upgrade contact"),
    row<&P::getUpgradeContactEmail>("upgrade contact's e-mail"),
    row<&P::getMeetingTrashCanLink>("link to deleted meetings"),
    row<&P::getPublicEventListUrl>("link to the public event list"),
    row<&P::getProfileSettingURL>("link to the web's settings"),
};

constexpr ProfileQuestionGroup kGroups[] = {
    {"identity", kIdentity}, {"audio", kAudio}, {"video", kVideo},       {"recording", kRecording},
    {"security", kSecurity}, {"locks", kLocks}, {"policies", kPolicies},
};

}  // namespace

std::span<const ProfileQuestionGroup> profileQuestions() { return kGroups; }

}  // namespace vorn

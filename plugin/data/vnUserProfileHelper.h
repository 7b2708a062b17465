#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/OptionBits.h"
#include "data/UserProfileAnswers.h"
#include "data/VNAvailableDialinCountryContent.h"
#include "util/Value.h"

namespace vorn {

// Every question to the signed-in account: is a feature offered, what is its default, has the administrator locked
// it. The answers come from the client's profile dictionary and from the binary message inside it. Main thread
// only.
//
// No question fails: without data it answers false, 0, "" or absent. A caller that needs real data asks
// hasUserProfile() first. Array and dictionary answers are absent when the profile lacks them.
class vnUserProfileHelper {
  using Parser = CVnUserProfileProtoParse;

 public:
  static vnUserProfileHelper& sharedInstance();

  // Tells the rooms below that ask for the account where its answers are.
  vnUserProfileHelper();

  // --- Life of the data.

  // Replaces the profile with the client's dictionary. Absent is ignored, and an empty one clears what there is.
  // The account counts as changed when the user id differs from the one before; with a binary message the id
  // compared is the one of the reply before, because it is read before the new message is decoded.
  void setData(const Value& profile);
  // There is no profile from now on, and who needs one fetches it. Until it comes everything else is answered as
  // before: the end of one window clears the profile of them all, and must take nothing from what the others show,
  // have chosen, or are about to send.
  void clearUserProfile();
  bool hasUserProfile() const { return knowsAccount() && !m_isOutdated; }
  // A profile has come, though it may have been cleared since.
  bool knowsAccount() const { return m_profile.count() > 0; }
  bool hasProto() const { return getProto().has_value(); }
  OptionalText getProto() const;
  // Decodes the message of the profile; nothing without one. A message that cannot be decoded leaves the values of
  // the message before.
  void initProtoParseInstance();
  void freeProtoParseInstance();
  void cleanup();
  bool isAccountChanged() const { return m_isAccountChanged; }
  void setIsAccountChanged(bool changed) { m_isAccountChanged = changed; }

  // --- From the message when the profile has one, otherwise from the dictionary.

  OptionalText getUID() const;
  OptionalText roomMeetingID() const;
  OptionalText thirdPartyAudioInfo() const;
  bool enableThirdPartyAudio() const;
  bool enablePSTN() const;
  bool use3rdPartyAsDefaultAudio() const;
  bool useRandomPasswordByDefault() const;
  bool alwaysUseBothAsDefaultAudio() const {
    return messageOr(UserOption::AlwaysUseBothAsDefaultAudio, &Parser::AlwaysUseBothAsDefaultAudio);
  }
  bool alwaysTurnOnHostVideoByDefault() const {
    return messageOr(UserOption::AlwaysTurnOnHostVideoByDefault, &Parser::AlwaysTurnOnHostVideoByDefault);
  }
  bool alwaysTurnOnAttendeeVideoByDefault() const {
    return messageOr(UserOption::AlwaysTurnOnAttendeeVideoByDefault, &Parser::AlwaysTurnOnAttendeeVideoByDefault);
  }
  bool alwaysEnableJoinBeforeHostByDefault() const {
    return messageOr(UserOption::AlwaysEnableJoinBeforeHostByDefault,
                     &Parser::AlwaysEnableJoinBeforeHostByDefault);
  }
  bool alwaysUseTelephonyAsDefaultAudio() const {
    return messageOr(UserOption::AlwaysUseTelephonyAsDefaultAudio, &Parser::AlwaysUseTelephonyAsDefaultAudio);
  }
  // The dictionary's own option word.
  std::int64_t userOption() const;

  // --- From the message alone.

  bool isSignedInUserMeetingOn() const { return messageAnswer(&Parser::IsSignedInUserMeetingOn); }
  bool isSpecifiedDomainsMeetingOn() const { return messageAnswer(&Parser::IsSpecifiedDomainsMeetingOn); }
  bool enforceJoinLoginSpecifiedDomainsDefaultOn() const {
    return messageAnswer(&Parser::EnforceJoinLoginSpecifiedDomainsDefaultOn);
  }
  bool enableNotStoreMeetingTopic() const { return messageAnswer(&Parser::EnableNotStoreMeetingTopic); }
  bool canUpgrade() const { return messageAnswer(&Parser::CanUpgrade); }
  bool enableAutoRecordingByDefault() const { return messageAnswer(&Parser::EnableAutoRecordingByDefault); }
  bool enableCloudRecordingByDefault() const { return messageAnswer(&Parser::EnableCloudRecordingByDefault); }
  bool alwaysUseVOIPAsDefaultAudio() const { return messageAnswer(&Parser::AlwaysUseVOIPAsDefaultAudio); }
  bool enableListMeetingInPublicEventListByDefault() const {
    return says(UserOption3::enableListMeetingInPublicEventListByDefault);
  }
  bool isDisablePMIForOther() const { return messageAnswer(&Parser::IsDisablePMI); }
  std::string restrictJoinDomains() const { return messageAnswer(&Parser::GetRestrictJoinDomains); }
  std::string userName() const { return messageAnswer(&Parser::GetUserName); }
  std::string userEmail() const { return messageAnswer(&Parser::GetUserEmail); }
  std::string tspServiceProvider() const { return messageAnswer(&Parser::GetTspServiceProvider); }

  // --- From the message, and only when the client can do it.

  bool enableLocalRecording() const;
  bool enableCloudRecording() const;
  bool isEnableAddMeetingToPublicCalendarEvent() const;
  bool isEnableAudioWatermark() const;

  // --- Option words, and the bits of them.

  std::int64_t userOptions3() const { return messageAnswer(&Parser::GetUserOption3); }
  std::int64_t userOptions4() const { return messageAnswer(&Parser::GetUserOption4); }
  std::int64_t userOptions5() const { return messageAnswer(&Parser::GetUserOption5); }

  bool muteUponEntryDefaultValue() const { return says(UserOption3::muteUponEntryDefaultValue); }
  bool isDefaultScheduleUsePMI() const { return says(UserOption3::isDefaultScheduleUsePMI); }
  bool isEnableWaitingRoom() const { return says(UserOption3::isEnableWaitingRoom); }
  bool putTheInvitationAtTheTopDefaultValue() const {
    return says(UserOption3::putTheInvitationAtTheTopDefaultValue);
  }
  // The opposite of its bit, so true without a message.
  bool isAddJoinUrlToLocation() const { return !says(UserOption3::isAddJoinUrlToLocation); }
  bool isDisablePwdEmbedInJoinUrl() const { return says(UserOption3::isDisablePwdEmbedInJoinUrl); }
  bool isSupportJbhPriorTime() const { return says(UserOption3::isSupportJbhPriorTime); }
  bool isSupportRegionCustomization() const { return says(UserOption3::isSupportRegionCustomization); }
  bool isEnableRegionCustomization() const { return says(UserOption3::isEnableRegionCustomization); }
  bool isShowUseWebSettingTipView() const { return says(UserOption3::isShowUseWebSettingTipView); }
  bool isEnableWaitingRoomNewLogic() const { return says(UserOption3::isEnableWaitingRoomNewLogic); }
  bool isSupportUnmuteAll() const { return says(UserOption3::isSupportUnmuteAll); }
  bool isEnableUnmuteAll() const { return says(UserOption3::isEnableUnmuteAll); }
  bool isEnableE2eeMeeting() const { return says(UserOption3::isEnableE2eeMeeting); }
  bool canScheduleE2eeMeeting() const { return says(UserOption3::canScheduleE2eeMeeting); }
  bool isSupportE2eeMeeting() const { return says(UserOption3::isSupportE2eeMeeting); }
  bool isSupportForceIncludeJoinurlInLocation() const {
    return says(UserOption3::isSupportForceIncludeJoinurlInLocation);
  }

  bool isHostVideoLocked() const { return says(UserOption4::isHostVideoLocked); }
  bool isParticipantsLocked() const { return says(UserOption4::isParticipantsLocked); }
  bool isAudioTypeLocked() const { return says(UserOption4::isAudioTypeLocked); }
  bool isJoinBeforeHostLocked() const { return says(UserOption4::isJoinBeforeHostLocked); }
  bool isMuteUponEntryLocked() const { return says(UserOption4::isMuteUponEntryLocked); }
  bool isOnlySignedinUserCanJoinLocked() const { return says(UserOption4::isOnlySignedinUserCanJoinLocked); }
  bool isSignedinDomainsLocked() const { return says(UserOption4::isSignedinDomainsLocked); }
  bool isWatermarkLocked() const { return says(UserOption4::isWatermarkLocked); }
  bool isAutomaticRecordingLocked() const { return says(UserOption4::isAutomaticRecordingLocked); }
  bool isPublicEventLocked() const { return says(UserOption4::isPublicEventLocked); }
  bool isLockAudioWatermark() const { return says(UserOption4::isLockAudioWatermark); }
  bool isLockScheduleUsePMI() const { return says(UserOption4::isLockScheduleUsePMI); }
  bool isLockWaitingRoom() const { return says(UserOption4::isLockWaitingRoom); }
  // Nobody can ever turn a waiting room on.
  bool isWaitingRoomLockedOff() const { return isLockWaitingRoom() && !isEnableWaitingRoom(); }
  bool isLockJoinUrlToLocation() const { return says(UserOption4::isLockJoinUrlToLocation); }
  bool isLockE2eeMeeting() const { return says(UserOption4::isLockE2eeMeeting); }
  // No lock, though it stands among them: passcodes mix digits and letters.
  bool isEnableNumberalphabet() const { return says(UserOption4::isEnableNumberalphabet); }

  // --- The dictionary's word of features.

  std::int64_t getSupportFeatureOptions() const;
  bool supportEditCountriesFeature() const { return says(SupportFeature::supportEditCountriesFeature); }
  bool supportPutTheInvitationAtTheTopFeature() const {
    return says(SupportFeature::supportPutTheInvitationAtTheTopFeature);
  }
  bool supportFeatureRequirePassword() const { return says(SupportFeature::supportFeatureRequirePassword); }
  bool supportFeatureEnablePaidUserForCN() const {
    return says(SupportFeature::supportFeatureEnablePaidUserForCN);
  }

  // --- The dictionary when it has the key, otherwise the bit.

  bool isEnableRequirePassword() const;
  bool isEnablePMIRequirePassword() const;
  bool isLockScheduleRequirePassword() const;
  bool isLockPMIRequirePassword() const;
  bool isDisablePMI() const;
  // Always false under the new waiting-room logic, which replaces this rule.
  bool isEnableForcePMIJBHWithPassword() const;

  // --- From the dictionary alone.

  bool isDefaultEnableOnlyAuthUsersCanJoin() const;
  bool isLockOnlyAuthUsersCanJoin() const;
  bool isSupportOnlyAuthUsersCanJoin() const;
  bool isTaiWanZH() const;
  std::int64_t getMeetingPasswordMinLength() const;
  std::int64_t getMeetingPasswordRulesOption() const;
  std::int64_t getMeetingPasswordConsecutiveLength() const;
  std::string getMeetingTrashCanLink() const;
  std::string getPublicEventListUrl() const;
  std::string getProfileSettingURL() const;
  Value getWebUncheckedDCInfos() const;
  Value getMeetingAuths() const;
  Value bossesInfo() const;
  Value getAccountUpgradeInfo() const;
  // Minutes; 5 when the profile does not tell.
  std::int64_t getDefaultJbhPriorTime() const;
  // The service's public web address when the profile does not tell.
  std::string getVornDomain() const;

  bool isShowUpgradeLink() const;
  std::string getUpgradeContactName() const;
  std::string getUpgradeLink() const;
  std::string getUpgradeContactEmail() const;

  // --- The plan, as the licence policy sees it.

  bool isPaidUser() const;
  bool isNoMeetingLicenseUser() const;
  // The account's type as it was last told; absent before.
  std::optional<std::int32_t> userType() const { return m_lastKnown.userType; }

  // The last user that a profile has named; absent when none has yet.
  OptionalText lastKnownUserId() const { return m_lastKnown.userId; }
  // What the account gives the person is known: one's own, for "", with the profile, and somebody else's with the
  // list of the people to schedule for.
  bool knows(const std::string& person) const;
  // The same of templates as they are now. A cleared profile, or a list of people that nobody has asked for, says
  // nothing of one that it lacks; to call it lost would take the user's choice from a standing meeting.
  bool knowsTemplates(const std::string& person) const;

  // --- Telephone audio.

  // Dictionaries with the vn_TspAccount_* keys; absent without a message.
  Value tspAccounts() const;
  bool isTspSite() const;
  bool moreThanOneTSPAccounts() const;
  bool tspIsSupportHybirdAudio() const { return messageAnswer(&Parser::IsTspSupportHybridAudio); }
  bool isScheduleAudioBothDisabled() const;

  // --- Tracking fields and dial-in countries.

  // Dictionaries in the order of the wire; absent without a message.
  Value trackingFields() const;
  // Always something, empty lists at worst, until cleanup().
  std::optional<VNAvailableDialinCountryContent> getAvailableDialinCountry() const;
  // The same without the countries that are offered.
  std::optional<VNAvailableDialinCountryContent> selectedDialinCountry() const;

  // --- People to schedule for, by e-mail or host id without case.

  // "" for an absent, empty or unknown e-mail.
  std::string pmiMeetingIDWithScheduleForEmail(const OptionalText& email) const;
  // "" for an index outside.
  std::string getScheduleForEmailWithIndex(std::int64_t index) const;
  // -1 when not found.
  std::int64_t getScheduleForIndexWithEmail(const OptionalText& email) const;
  std::int64_t getScheduleForIndexWithHostID(const OptionalText& hostId) const;
  bool supportPMIForOnbehalf(const OptionalText& email) const;
  bool isDisablePMIWithScheduleForEmail(const OptionalText& email) const;
  // Compares as numbers, so that "0123" is "123".
  bool isBossesPMIMeetingID(const OptionalText& meetingId) const;
  bool isEnableScheduleFor() const;

  // --- Of the account for an absent or empty e-mail, otherwise of the person in the schedule-for list.

  Value getMeetingTemplates(const OptionalText& email) const;
  // "" when there is none.
  std::string getMeetingTemplateLinkWithoutId(const OptionalText& email) const;
  bool isEnableAdminTemplate(const OptionalText& email) const {
    return says(UserOption5::isEnableAdminTemplate, email);
  }
  bool isLockAdminTemplate(const OptionalText& email) const {
    return says(UserOption4::isLockAdminTemplate, email);
  }
  Value getMaximumDialinCountry(const OptionalText& email) const;
  bool isEnableAllowDenyJoinMeetingRegion(const OptionalText& email) const {
    return says(UserOption3::isEnableAllowDenyJoinMeetingRegion, email);
  }
  bool isLockAllowDenyJoinMeetingRegion(const OptionalText& email) const {
    return says(UserOption4::isLockAllowDenyJoinMeetingRegion, email);
  }
  // The region setting, and what stands in it.
  Value getJoinMeetingRegions(const OptionalText& email) const;
  Value getTotalRegionCodes(const OptionalText& email) const;
  std::string getDefaultRegionCode(const OptionalText& email) const;
  std::int64_t getRegionType(const OptionalText& email) const;
  Value getRegionCodes(const OptionalText& email) const;

 private:
  struct Account {
    OptionalText userId;
    std::optional<std::int32_t> userType;
  };

  void rememberAccount();
  bool says(UserOption3 bit) const { return hasBit(userOptions3(), bit); }
  bool says(UserOption4 bit) const { return hasBit(userOptions4(), bit); }
  bool says(SupportFeature bit) const { return hasBit(getSupportFeatureOptions(), bit); }
  // Of the account or of the person.
  bool says(UserOption3 bit, const OptionalText& email) const;
  bool says(UserOption4 bit, const OptionalText& email) const;
  bool says(UserOption5 bit, const OptionalText& email) const;
  // The message's answer when the profile has a message, otherwise the dictionary's under the key or the bit.
  OptionalText messageOr(std::string_view key, std::string (Parser::*question)() const) const;
  bool messageOr(std::string_view key, bool (Parser::*question)() const) const;
  bool messageOr(UserOption bit, bool (Parser::*question)() const) const;
  // The dictionary's flag when it has the key.
  bool dictionaryOr(std::string_view key, bool otherwise) const;
  // The value under a key of the account or of the person.
  Value accountOrPerson(const OptionalText& email, std::string_view key) const;

  // Absent after cleanup().
  Value m_profile = Value::dictionary();
  bool m_isOutdated = false;
  OptionalText m_cachedUserId;
  bool m_isAccountChanged = false;
  Account m_lastKnown;
};

}  // namespace vorn

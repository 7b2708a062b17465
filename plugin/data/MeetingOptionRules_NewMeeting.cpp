// The rules of a meeting's options: the state of a new meeting.

#include "data/AudioType.h"
#include "data/MeetingOptionRules.h"
#include "data/OptionPolicy.h"
#include "data/RecordingType.h"
#include "data/vnSettingKeys.h"

namespace vorn::meeting_options {

namespace {

// What the account gives is taken over where it offers the option.
void take(bool& option, const OptionPolicy& policy, const AccountFacts& account) {
  if (policy.isOffered(account)) option = policy.isGiven(account);
}

// A default that only ever switches on.
void switchOn(bool& option, const OptionPolicy& policy, const AccountFacts& account) {
  if (policy.isGiven(account)) option = true;
}

void takeSaved(bool& option, std::string_view key, const Value& saved) {
  if (saved.contains(key)) option = saved[key].boolValue();
}

void takeDialinCountries(MeetingOptions& options, const AccountFacts& account) {
  const auto& countries = account.getAvailableDialinCountry;
  if (!countries) return;
  options.hash = countries->hash;
  options.includeTollfree = countries->includeTollfree;
  options.enableShowIncludeTollfree = countries->enableShowIncludeTollfree;
  options.arrSelectedCountries = arrayOrEmpty(countries->selectedCountries);
}

void takeRecording(MeetingOptions& options, const AccountFacts& account) {
  const bool local = account.enableLocalRecording;
  const bool cloud = account.enableCloudRecording;
  options.enableAutoRecordingMtgLevelFirst = local || cloud;
  if (!local && !cloud) {
    options.emAutoRecordingType = kRecordingUnavailable;
  } else if (!account.enableAutoRecordingByDefault) {
    options.emAutoRecordingType = kRecordingNone;
  } else if (local && cloud) {
    options.emAutoRecordingType =
        account.enableCloudRecordingByDefault ? kRecordingCloudOfBoth : kRecordingLocalOfBoth;
  } else {
    options.emAutoRecordingType = cloud ? kRecordingOnlyCloud : kRecordingOnlyLocal;
  }
}

void takeRegionPolicy(MeetingOptions& options, const AccountFacts& account) {
  options.enableAllowDenyJoinMeetingRegion = account.isEnableAllowDenyJoinMeetingRegion;
  options.regionType = account.getRegionType;
  const bool isOffered = policyOf(vn_Setting_RegionCodes).isOffered(account);
  options.arrRegionCodes = isOffered ? arrayOrEmpty(account.getRegionCodes) : Value::array();
}

void takePassword(MeetingOptions& options, const AccountFacts& account, bool usePMI,
                  const PasscodeSource& passcode) {
  if (!usePMI) {
    options.requiredMeetingPassword = account.isEnableRequirePassword;
    if (options.requiredMeetingPassword) options.meetingPassword = passcode();
    return;
  }
  options.requiredMeetingPassword =
      account.isEnablePMIRequirePassword || (options.enableJBH && account.isEnableForcePMIJBHWithPassword);
  // The passcode of the personal meeting is the service's.
  if (options.requiredMeetingPassword) options.meetingPassword = "";
}

// Of the saved choice only the account counts, so that it survives a changed default.
std::int64_t savedTspAudio(std::int64_t saved, const AccountFacts& account) {
  const bool second = saved == kAudioTspTelephonySecond || saved == kAudioTspBothSecond;
  const std::int64_t telephony = second ? kAudioTspTelephonySecond : kAudioTspTelephonyFirst;
  if (account.alwaysUseBothAsDefaultAudio) {
    const std::int64_t both = second ? kAudioTspBothSecond : kAudioTspBothFirst;
    return account.isScheduleAudioBothDisabled ? telephony : both;
  }
  return account.alwaysUseVOIPAsDefaultAudio ? kAudioTspVoip : telephony;
}

}  // namespace

void resetFields(MeetingOptions& options) {
  options = {
      .audioType = kAudioBoth,
      .meetingPassword = "",
      .roomMeetingId = "",
      .thirdPartyAudio = "",
      .scheduleForEmail = "",
      .isSignedInUsersMeetingOn = options.isSignedInUsersMeetingOn,
      .restrictJoinDomains = "",
      .muteUponEntry = options.muteUponEntry,
      .forceIncludeJoinurlInLocation = true,
      .hash = "",
      .selectInvitationLanguage = "",
      .jbhPriorTime = 5,
      .authId = "",
      .authName = "",
      .authDomain = "",
      .supportWaitingRoom = true,
      .templateId = "",
      .templateName = "",
  };
}

void initWithUserProfileDefault(MeetingOptions& options, const AccountFacts& account,
                                const PasscodeSource& passcode) {
  if (!account.knowsAccount) return;
  take(options.usePMI, policyOf(vn_Setting_IsPMI), account);
  initSubDataWithUserProfile(options, account, options.usePMI, passcode);
}

void initSubDataWithUserProfile(MeetingOptions& options, const AccountFacts& account, bool usePMI,
                                const PasscodeSource& passcode) {
  if (!account.knowsAccount) return;
  options.templateId = "";
  options.roomMeetingId = account.roomMeetingID;
  take(options.enableE2ee, policyOf(vn_Setting_EnableE2ee), account);
  switchOn(options.hostVideoOn, policyOf(vn_Setting_EnableHostVideo), account);
  switchOn(options.paticipantVideoOn, policyOf(vn_Setting_EnableParticipantsVideo), account);
  initAudioTypeWithUserProfile(options, account);
  takeDialinCountries(options, account);
  take(options.enableWaitingRoom, policyOf(vn_Setting_EnableWaitingRoom), account);
  switchOn(options.enableJBH, policyOf(vn_Setting_EnableJBH), account);
  if (policyOf(vn_Setting_JBHPriorTime).isOffered(account)) options.jbhPriorTime = account.getDefaultJbhPriorTime;
  switchOn(options.muteUponEntry, policyOf(vn_Setting_MuteUponEntry), account);
  take(options.isSignedInUsersMeetingOn, policyOf(vn_Setting_IsSignedInUsersMeetingOn), account);
  options.authId = "";
  take(options.enableUnmuteAll, policyOf(vn_Setting_EnableUnmuteAll), account);
  takeRecording(options, account);
  take(options.enablePublicEvent, policyOf(vn_Setting_EnableAddMeetingToPublicEvent), account);
  take(options.forceIncludeJoinurlInLocation, policyOf(vn_Setting_ForceIncludeJoinurlInLocation), account);
  take(options.putTheInvitationAtTheTop, policyOf(vn_Setting_PutTheInvitationAtTheTop), account);
  take(options.enableRegionCustomization, policyOf(vn_Setting_EnableRegionCustomization), account);
  takeRegionPolicy(options, account);
  options.trackingFields = account.trackingFields;
  takePassword(options, account, usePMI, passcode);
}

void initAudioTypeWithUserProfile(MeetingOptions& options, const AccountFacts& account) {
  options.enableThirdPartyAudio = account.enableThirdPartyAudio;
  if (options.enableThirdPartyAudio) options.thirdPartyAudio = account.thirdPartyAudioInfo;

  const bool tsp = account.isTspSite;
  const std::int64_t telephony = tsp ? kAudioTspTelephonyFirst : kAudioTelephony;
  if (account.alwaysUseBothAsDefaultAudio) {
    const std::int64_t both = tsp ? kAudioTspBothFirst : kAudioBoth;
    options.audioType = account.isScheduleAudioBothDisabled ? telephony : both;
  } else if (account.alwaysUseTelephonyAsDefaultAudio) {
    options.audioType = telephony;
  } else if (account.alwaysUseVOIPAsDefaultAudio) {
    options.audioType = tsp ? kAudioTspVoip : kAudioVoip;
  } else if (tsp) {
    options.audioType = kAudioTspTelephonyFirst;
  } else if (options.enableThirdPartyAudio && account.use3rdPartyAsDefaultAudio) {
    options.audioType = kAudioThirdParty;
  }
}

bool initWithSavedProfile(MeetingOptions& options, const AccountFacts& account, const ClientGates& client,
                          const Value& saved) {
  if (saved.isAbsent()) return false;
  if (account.isTspSite && saved.contains(vn_Setting_AudioOption)) {
    options.audioType = savedTspAudio(saved[vn_Setting_AudioOption].integerValue(), account);
  }
  if (!policyOf(vn_Setting_EnableAudioWatermark).isLocked(account)) {
    options.enableAudioWatermark = saved[vn_Setting_EnableAudioWatermark].boolValue();
  }
  // The account wins over the user's last choice when it controls this, in spite of the feature's name.
  if (!policyOf(vn_Setting_ForceIncludeJoinurlInLocation).isOffered(account)) {
    takeSaved(options.forceIncludeJoinurlInLocation, vn_Setting_ForceIncludeJoinurlInLocation, saved);
  }
  takeSaved(options.putTheInvitationAtTheTop, vn_Setting_PutTheInvitationAtTheTop, saved);
  if (saved.contains(vn_Setting_SelectInvitationLanguage)) {
    options.selectInvitationLanguage = saved[vn_Setting_SelectInvitationLanguage].stringValue();
  }
  if (!saved[vn_Setting_NotShowMeAgain].boolValue()) return false;

  resetMeetingAuthForNotShowAgain(options, account);
  options.enableAudioWatermark =
      options.isSignedInUsersMeetingOn && account.isEnableAudioWatermark && account.isLockAudioWatermark;
  resetWaitingRoomPasscodeStateForNotShowAgain(options, account, client);
  resetAffectedStateByE2eeForNotShowAgain(options, account, client);
  return true;
}

void resetMeetingAuthForNotShowAgain(MeetingOptions& options, const AccountFacts& account) {
  if (!options.isSignedInUsersMeetingOn) return;
  for (const Value& auth : account.getMeetingAuths.items()) {
    if (!auth[vn_Setting_MeetingAuth_DefaultAuth].boolValue()) continue;
    options.authId = auth[vn_Setting_MeetingAuth_AuthId].optionalText();
    options.authName = auth[vn_Setting_MeetingAuth_AuthName].optionalText();
    options.authType = auth[vn_Setting_MeetingAuth_AuthType].integerValue();
    options.authDomain = auth[vn_Setting_MeetingAuth_AuthDomain].optionalText();
    return;
  }
}

void resetWaitingRoomPasscodeStateForNotShowAgain(MeetingOptions& options, const AccountFacts& account,
                                                  const ClientGates& client) {
  if (!client.isVornClientSupport520Tasks || !account.isEnableWaitingRoomNewLogic || options.usePMI) return;
  if (policyOf(vn_Setting_EnableWaitingRoom).isLockedOff(account)) return;
  // A meeting must have one of the two.
  if (!options.requiredMeetingPassword) options.enableWaitingRoom = true;
}

void resetAffectedStateByE2eeForNotShowAgain(MeetingOptions& options, const AccountFacts& account,
                                             const ClientGates& client) {
  const bool encrypted = client.isVornClientSupport530Tasks && account.isSupportE2eeMeeting &&
                         account.canScheduleE2eeMeeting && options.enableE2ee;
  if (!encrypted) {
    options.enableE2ee = false;
    return;
  }
  options.enableJBH = true;
  options.audioType = kAudioVoip;
  options.emAutoRecordingType = kRecordingNone;
}

}  // namespace vorn::meeting_options

#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/OptionBits.h"
#include "data/UserProfileAnswers.h"
#include "data/vnProfileKeys.h"
#include "data/vnUserProfileHelper.h"

// The profile reader: what the message alone answers, and the bits of the option words.

namespace vorn {

namespace {

vnClientFeatureMgr& client() { return vnClientFeatureMgr::sharedInstance(); }

}  // namespace

bool vnUserProfileHelper::isSignedInUserMeetingOn() const {
  return messageSays(&CVnUserProfileProtoParse::IsSignedInUserMeetingOn);
}
bool vnUserProfileHelper::isSpecifiedDomainsMeetingOn() const {
  return messageSays(&CVnUserProfileProtoParse::IsSpecifiedDomainsMeetingOn);
}
bool vnUserProfileHelper::enforceJoinLoginSpecifiedDomainsDefaultOn() const {
  return messageSays(&CVnUserProfileProtoParse::EnforceJoinLoginSpecifiedDomainsDefaultOn);
}
bool vnUserProfileHelper::enableNotStoreMeetingTopic() const {
  return messageSays(&CVnUserProfileProtoParse::EnableNotStoreMeetingTopic);
}
bool vnUserProfileHelper::canUpgrade() const { return messageSays(&CVnUserProfileProtoParse::CanUpgrade); }
bool vnUserProfileHelper::enableAutoRecordingByDefault() const {
  return messageSays(&CVnUserProfileProtoParse::EnableAutoRecordingByDefault);
}
bool vnUserProfileHelper::enableCloudRecordingByDefault() const {
  return messageSays(&CVnUserProfileProtoParse::EnableCloudRecordingByDefault);
}
bool vnUserProfileHelper::alwaysUseVOIPAsDefaultAudio() const {
  return messageSays(&CVnUserProfileProtoParse::AlwaysUseVOIPAsDefaultAudio);
}
bool vnUserProfileHelper::isDisablePMIForOther() const {
  return messageSays(&CVnUserProfileProtoParse::IsDisablePMI);
}
std::string vnUserProfileHelper::restrictJoinDomains() const {
  return messageText(&CVnUserProfileProtoParse::GetRestrictJoinDomains);
}
std::string vnUserProfileHelper::userName() const { return messageText(&CVnUserProfileProtoParse::GetUserName); }
std::string vnUserProfileHelper::userEmail() const { return messageText(&CVnUserProfileProtoParse::GetUserEmail); }
std::string vnUserProfileHelper::tspServiceProvider() const {
  return messageText(&CVnUserProfileProtoParse::GetTspServiceProvider);
}

bool vnUserProfileHelper::enableLocalRecording() const {
  return client().isVornClientSupportAutoRecord() && messageSays(&CVnUserProfileProtoParse::EnableLocalRecording);
}

bool vnUserProfileHelper::enableCloudRecording() const {
  return client().isVornClientSupportAutoRecord() && messageSays(&CVnUserProfileProtoParse::EnableCloudRecording);
}

bool vnUserProfileHelper::isEnableAddMeetingToPublicCalendarEvent() const {
  return client().isVornClientSupportPublicEvent() &&
         hasBit(userOptions3(), maskOf(kUserOption3Bits, "isEnableAddMeetingToPublicCalendarEvent"));
}

bool vnUserProfileHelper::isEnableAudioWatermark() const {
  return client().isVornClientSupportAudioWatermark() &&
         hasBit(userOptions3(), maskOf(kUserOption3Bits, "isEnableAudioWatermark"));
}

std::int64_t vnUserProfileHelper::userOptions3() const {
  return messageWord(&CVnUserProfileProtoParse::GetUserOption3);
}
std::int64_t vnUserProfileHelper::userOptions4() const {
  return messageWord(&CVnUserProfileProtoParse::GetUserOption4);
}
std::int64_t vnUserProfileHelper::userOptions5() const {
  return messageWord(&CVnUserProfileProtoParse::GetUserOption5);
}

bool vnUserProfileHelper::enableListMeetingInPublicEventListByDefault() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "enableListMeetingInPublicEventListByDefault"));
}
bool vnUserProfileHelper::muteUponEntryDefaultValue() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "muteUponEntryDefaultValue"));
}
bool vnUserProfileHelper::isDefaultScheduleUsePMI() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isDefaultScheduleUsePMI"));
}
bool vnUserProfileHelper::isEnableWaitingRoom() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isEnableWaitingRoom"));
}
bool vnUserProfileHelper::putTheInvitationAtTheTopDefaultValue() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "putTheInvitationAtTheTopDefaultValue"));
}
bool vnUserProfileHelper::isAddJoinUrlToLocation() const {
  return !hasBit(userOptions3(), maskOf(kUserOption3Bits, "isAddJoinUrlToLocation"));
}
bool vnUserProfileHelper::isDisablePwdEmbedInJoinUrl() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isDisablePwdEmbedInJoinUrl"));
}
bool vnUserProfileHelper::isSupportJbhPriorTime() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isSupportJbhPriorTime"));
}
bool vnUserProfileHelper::isSupportRegionCustomization() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isSupportRegionCustomization"));
}
bool vnUserProfileHelper::isEnableRegionCustomization() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isEnableRegionCustomization"));
}
bool vnUserProfileHelper::isShowUseWebSettingTipView() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isShowUseWebSettingTipView"));
}
bool vnUserProfileHelper::isEnableWaitingRoomNewLogic() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isEnableWaitingRoomNewLogic"));
}
bool vnUserProfileHelper::isSupportUnmuteAll() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isSupportUnmuteAll"));
}
bool vnUserProfileHelper::isEnableUnmuteAll() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isEnableUnmuteAll"));
}
bool vnUserProfileHelper::isEnableE2eeMeeting() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isEnableE2eeMeeting"));
}
bool vnUserProfileHelper::canScheduleE2eeMeeting() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "canScheduleE2eeMeeting"));
}
bool vnUserProfileHelper::isSupportE2eeMeeting() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isSupportE2eeMeeting"));
}
bool vnUserProfileHelper::isSupportForceIncludeJoinurlInLocation() const {
  return hasBit(userOptions3(), maskOf(kUserOption3Bits, "isSupportForceIncludeJoinurlInLocation"));
}

bool vnUserProfileHelper::isHostVideoLocked() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isHostVideoLocked"));
}
bool vnUserProfileHelper::isParticipantsLocked() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isParticipantsLocked"));
}
bool vnUserProfileHelper::isAudioTypeLocked() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isAudioTypeLocked"));
}
bool vnUserProfileHelper::isJoinBeforeHostLocked() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isJoinBeforeHostLocked"));
}
bool vnUserProfileHelper::isMuteUponEntryLocked() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isMuteUponEntryLocked"));
}
bool vnUserProfileHelper::isOnlySignedinUserCanJoinLocked() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isOnlySignedinUserCanJoinLocked"));
}
bool vnUserProfileHelper::isSignedinDomainsLocked() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isSignedinDomainsLocked"));
}
bool vnUserProfileHelper::isWatermarkLocked() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isWatermarkLocked"));
}
bool vnUserProfileHelper::isAutomaticRecordingLocked() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isAutomaticRecordingLocked"));
}
bool vnUserProfileHelper::isPublicEventLocked() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isPublicEventLocked"));
}
bool vnUserProfileHelper::isLockAudioWatermark() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isLockAudioWatermark"));
}
bool vnUserProfileHelper::isLockScheduleUsePMI() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isLockScheduleUsePMI"));
}
bool vnUserProfileHelper::isLockWaitingRoom() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isLockWaitingRoom"));
}
bool vnUserProfileHelper::isLockJoinUrlToLocation() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isLockJoinUrlToLocation"));
}
bool vnUserProfileHelper::isLockE2eeMeeting() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isLockE2eeMeeting"));
}
bool vnUserProfileHelper::isEnableNumberalphabet() const {
  return hasBit(userOptions4(), maskOf(kUserOption4Bits, "isEnableNumberalphabet"));
}

std::int64_t vnUserProfileHelper::getSupportFeatureOptions() const {
  return m_profile[vn_Profile_SupportFeatureOptions].integerValue();
}
bool vnUserProfileHelper::supportEditCountriesFeature() const {
  return hasBit(getSupportFeatureOptions(), maskOf(kSupportFeatureBits, "supportEditCountriesFeature"));
}
bool vnUserProfileHelper::supportPutTheInvitationAtTheTopFeature() const {
  return hasBit(getSupportFeatureOptions(), maskOf(kSupportFeatureBits, "supportPutTheInvitationAtTheTopFeature"));
}
bool vnUserProfileHelper::supportFeatureRequirePassword() const {
  return hasBit(getSupportFeatureOptions(), maskOf(kSupportFeatureBits, "supportFeatureRequirePassword"));
}
bool vnUserProfileHelper::supportFeatureEnablePaidUserForCN() const {
  return hasBit(getSupportFeatureOptions(), maskOf(kSupportFeatureBits, "supportFeatureEnablePaidUserForCN"));
}

bool vnUserProfileHelper::dictionaryOrBit(std::string_view key, std::int64_t word, std::uint64_t mask) const {
  return m_profile.contains(key) ? m_profile[key].boolValue() : hasBit(word, mask);
}

bool vnUserProfileHelper::isEnableRequirePassword() const {
  return dictionaryOrBit(vn_Profile_IsEnableRequirePassword, userOptions3(),
                         maskOf(kUserOption3Bits, "isEnableRequirePassword"));
}

bool vnUserProfileHelper::isEnablePMIRequirePassword() const {
  return dictionaryOrBit(vn_Profile_IsEnablePMIRequirePassword, userOptions3(),
                         maskOf(kUserOption3Bits, "isEnablePMIRequirePassword"));
}

bool vnUserProfileHelper::isLockScheduleRequirePassword() const {
  return dictionaryOrBit(vn_Profile_IsLockScheduleRequirePassword, userOptions4(),
                         maskOf(kUserOption4Bits, "isLockScheduleRequirePassword"));
}

bool vnUserProfileHelper::isLockPMIRequirePassword() const {
  return dictionaryOrBit(vn_Profile_IsLockPMIRequirePassword, userOptions4(),
                         maskOf(kUserOption4Bits, "isLockPMIRequirePassword"));
}

bool vnUserProfileHelper::isDisablePMI() const {
  if (m_profile.contains(vn_Profile_IsDisablePMI)) return m_profile[vn_Profile_IsDisablePMI].boolValue();
  return messageSays(&CVnUserProfileProtoParse::IsDisablePMI);
}

bool vnUserProfileHelper::isEnableForcePMIJBHWithPassword() const {
  if (client().isVornClientSupport520Tasks() && isEnableWaitingRoomNewLogic()) return false;
  if (m_profile.contains(vn_Profile_IsEnableForcePMIJBHWithPassword)) {
    return m_profile[vn_Profile_IsEnableForcePMIJBHWithPassword].boolValue();
  }
  return messageSays(&CVnUserProfileProtoParse::IsEnableForcePMIJBHWithPassword);
}

}  // namespace vorn

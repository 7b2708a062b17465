// The profile reader: what depends on the client, and what the dictionary may put above a bit.

#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnProfileKeys.h"
#include "data/vnUserProfileHelper.h"

namespace vorn {

namespace {

vnClientFeatureMgr& client() { return vnClientFeatureMgr::sharedInstance(); }

}  // namespace

bool vnUserProfileHelper::enableLocalRecording() const {
  return client().isVornClientSupportAutoRecord() && messageAnswer(&Parser::EnableLocalRecording);
}

bool vnUserProfileHelper::enableCloudRecording() const {
  return client().isVornClientSupportAutoRecord() && messageAnswer(&Parser::EnableCloudRecording);
}

bool vnUserProfileHelper::isEnableAddMeetingToPublicCalendarEvent() const {
  return client().isVornClientSupportPublicEvent() && says(UserOption3::isEnableAddMeetingToPublicCalendarEvent);
}

bool vnUserProfileHelper::isEnableAudioWatermark() const {
  return client().isVornClientSupportAudioWatermark() && says(UserOption3::isEnableAudioWatermark);
}

std::int64_t vnUserProfileHelper::getSupportFeatureOptions() const {
  return m_profile[vn_Profile_SupportFeatureOptions].integerValue();
}

bool vnUserProfileHelper::dictionaryOr(std::string_view key, bool otherwise) const {
  // A null has no answer on the platform, and is none here.
  return m_profile[key].isPresent() ? m_profile[key].boolValue() : otherwise;
}

bool vnUserProfileHelper::isEnableRequirePassword() const {
  return dictionaryOr(vn_Profile_IsEnableRequirePassword, says(UserOption3::isEnableRequirePassword));
}

bool vnUserProfileHelper::isEnablePMIRequirePassword() const {
  return dictionaryOr(vn_Profile_IsEnablePMIRequirePassword, says(UserOption3::isEnablePMIRequirePassword));
}

bool vnUserProfileHelper::isLockScheduleRequirePassword() const {
  return dictionaryOr(vn_Profile_IsLockScheduleRequirePassword, says(UserOption4::isLockScheduleRequirePassword));
}

bool vnUserProfileHelper::isLockPMIRequirePassword() const {
  return dictionaryOr(vn_Profile_IsLockPMIRequirePassword, says(UserOption4::isLockPMIRequirePassword));
}

bool vnUserProfileHelper::isDisablePMI() const {
  return dictionaryOr(vn_Profile_IsDisablePMI, messageAnswer(&Parser::IsDisablePMI));
}

bool vnUserProfileHelper::isEnableForcePMIJBHWithPassword() const {
  if (client().isVornClientSupport520Tasks() && isEnableWaitingRoomNewLogic()) return false;
  return dictionaryOr(vn_Profile_IsEnableForcePMIJBHWithPassword,
                      messageAnswer(&Parser::IsEnableForcePMIJBHWithPassword));
}

}  // namespace vorn

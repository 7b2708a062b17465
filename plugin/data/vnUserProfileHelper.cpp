#include "data/vnUserProfileHelper.h"

#include <memory>

#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/store/vnCommon.h"
#include "data/CVnUserProfileProtoParse.h"
#include "data/UserProfileAnswers.h"
#include "data/vnProfileKeys.h"
#include "data/vnProtoBufConvert.h"
#include "data/vnSettingKeys.h"
#include "platform/Registry.h"

namespace vorn {

vnUserProfileHelper& vnUserProfileHelper::sharedInstance() { return Registry::shared<vnUserProfileHelper>(); }

vnUserProfileHelper::vnUserProfileHelper() {
  vnCommon::setUserIdSource([]() -> OptionalText {
    const vnUserProfileHelper& helper = sharedInstance();
    return helper.hasUserProfile() ? helper.getUID() : std::nullopt;
  });
  vnClientFeatureMgr::sharedInstance().setEditCountriesSource(
      [] { return sharedInstance().supportEditCountriesFeature(); });
}

void vnUserProfileHelper::setData(const Value& profile) {
  if (profile.isAbsent()) return;
  m_profile = profile.isDictionary() ? profile : Value::dictionary();
  // Read before the new message is decoded: with a message this is the user of the reply before.
  if (const OptionalText userId = getUID()) {
    if (m_cachedUserId && *m_cachedUserId != *userId) m_isAccountChanged = true;
    m_cachedUserId = userId;
  }
  initProtoParseInstance();
  rememberAccount();
}

void vnUserProfileHelper::rememberAccount() {
  // A reply that nobody can read says nothing about the account.
  const OptionalText userId = getUID();
  if (!userId) return;
  if (m_lastKnown.userId != userId) m_lastKnown = {userId, std::nullopt, Value()};
  m_lastKnown.bosses = bossesInfo();
  const CVnUserProfileProtoParse* parser = hasProto() ? userProfileProtoParse().get() : nullptr;
  if (!parser) return;
  if (const std::optional<std::int32_t> told = parser->GetUserType()) m_lastKnown.userType = told;
}

void vnUserProfileHelper::clearUserProfile() {
  m_profile = Value::dictionary();
  // The user's id stays, so that the next profile can be compared with the last.
  freeProtoParseInstance();
}

OptionalText vnUserProfileHelper::getProto() const { return m_profile[vn_Profile_Proto].optionalText(); }

void vnUserProfileHelper::initProtoParseInstance() {
  const OptionalText base64 = getProto();
  if (!base64) return;
  const ZeroPaddedBytes bytes(base64);
  userProfileProtoParse() = std::make_unique<CVnUserProfileProtoParse>(bytes.data(), bytes.size());
}

void vnUserProfileHelper::freeProtoParseInstance() { userProfileProtoParse().reset(); }

void vnUserProfileHelper::cleanup() {
  m_profile = Value();
  m_cachedUserId.reset();
  m_lastKnown = {};
  freeProtoParseInstance();
}

OptionalText vnUserProfileHelper::getUID() const {
  if (!hasProto()) return m_profile[vn_Profile_UserId].optionalText();
  const auto* parser = userProfileProtoParse().get();
  return parser ? OptionalText(parser->GetUserId()) : std::nullopt;
}

OptionalText vnUserProfileHelper::roomMeetingID() const {
  if (!hasProto()) return m_profile[vn_Setting_RoomMeetingId].optionalText();
  const auto* parser = userProfileProtoParse().get();
  return parser ? OptionalText(std::to_string(parser->GetRoomMeetingId())) : std::nullopt;
}

OptionalText vnUserProfileHelper::thirdPartyAudioInfo() const {
  if (!hasProto()) return m_profile[vn_Setting_ThirdPartyAudio].optionalText();
  const auto* parser = userProfileProtoParse().get();
  return parser ? OptionalText(parser->GetThirdPartyAudioInfo()) : std::nullopt;
}

bool vnUserProfileHelper::enableThirdPartyAudio() const {
  if (!hasProto()) return m_profile[vn_Setting_EnableThirdPartyAudio].boolValue();
  return messageSays(&CVnUserProfileProtoParse::EnableThirdPartyAudio);
}

bool vnUserProfileHelper::enablePSTN() const {
  if (!hasProto()) return m_profile[vn_Profile_EnablePSTN].boolValue();
  return messageSays(&CVnUserProfileProtoParse::IsEnablePSTN);
}

bool vnUserProfileHelper::use3rdPartyAsDefaultAudio() const {
  if (!hasProto()) return m_profile[vn_Profile_Use3rdPartyAsDefaultAudio].boolValue();
  return messageSays(&CVnUserProfileProtoParse::Use3rdPartyAsDefaultAudio);
}

bool vnUserProfileHelper::useRandomPasswordByDefault() const {
  if (!hasProto()) return m_profile[vn_Profile_UseRandomPasswordByDefault].boolValue();
  return messageSays(&CVnUserProfileProtoParse::UseRandomPasswordByDefault);
}

std::int64_t vnUserProfileHelper::userOption() const { return m_profile[vn_Profile_UserOption].integerValue(); }

bool vnUserProfileHelper::alwaysUseBothAsDefaultAudio() const {
  if (!hasProto()) return hasBit(userOption(), maskOf(kUserOptionBits, "AlwaysUseBothAsDefaultAudio"));
  return messageSays(&CVnUserProfileProtoParse::AlwaysUseBothAsDefaultAudio);
}

bool vnUserProfileHelper::alwaysTurnOnHostVideoByDefault() const {
  if (!hasProto()) return hasBit(userOption(), maskOf(kUserOptionBits, "AlwaysTurnOnHostVideoByDefault"));
  return messageSays(&CVnUserProfileProtoParse::AlwaysTurnOnHostVideoByDefault);
}

bool vnUserProfileHelper::alwaysTurnOnAttendeeVideoByDefault() const {
  if (!hasProto()) return hasBit(userOption(), maskOf(kUserOptionBits, "AlwaysTurnOnAttendeeVideoByDefault"));
  return messageSays(&CVnUserProfileProtoParse::AlwaysTurnOnAttendeeVideoByDefault);
}

bool vnUserProfileHelper::alwaysEnableJoinBeforeHostByDefault() const {
  if (!hasProto()) return hasBit(userOption(), maskOf(kUserOptionBits, "AlwaysEnableJoinBeforeHostByDefault"));
  return messageSays(&CVnUserProfileProtoParse::AlwaysEnableJoinBeforeHostByDefault);
}

bool vnUserProfileHelper::alwaysUseTelephonyAsDefaultAudio() const {
  if (!hasProto()) return hasBit(userOption(), maskOf(kUserOptionBits, "AlwaysUseTelephonyAsDefaultAudio"));
  return messageSays(&CVnUserProfileProtoParse::AlwaysUseTelephonyAsDefaultAudio);
}

}  // namespace vorn

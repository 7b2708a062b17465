#include "data/vnUserProfileHelper.h"

#include <memory>
#include <utility>

#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/store/vnCommon.h"
#include "data/vnGetScheduleForListHelper.h"
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
  // A reply that nobody can read tells nothing of the account, and does not do in the place of one that can be
  // read.
  if (profile.count() == 0 && knowsAccount()) return clearUserProfile();
  if (std::exchange(m_isOutdated, false)) freeProtoParseInstance();
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
  // A reply that nobody can read says nothing about the account. With a message that does not decode, the user is
  // the one of the message before, and the rest of the reply need not be theirs.
  const OptionalText userId = getUID();
  const Parser* parser = hasProto() ? userProfileProtoParse().get() : nullptr;
  if (!userId || userId->empty() || (getProto() && !parser)) return;
  if (m_lastKnown.userId != userId) {
    // The people of the account before would be answered for this one's as known, and a meeting for somebody else
    // would lose what none of them may have.
    if (m_lastKnown.userId) vnGetScheduleForListHelper::sharedInstance().clearScheduleForList();
    m_lastKnown = {userId, std::nullopt};
  }
  if (!parser) return;
  if (const std::optional<std::int32_t> told = parser->GetUserType()) m_lastKnown.userType = told;
}

void vnUserProfileHelper::clearUserProfile() { m_isOutdated = true; }

OptionalText vnUserProfileHelper::getProto() const { return m_profile[vn_Profile_Proto].optionalText(); }

void vnUserProfileHelper::initProtoParseInstance() {
  const OptionalText base64 = getProto();
  if (!base64) return;
  const ZeroPaddedBytes bytes(base64);
  userProfileProtoParse() = std::make_unique<CVnUserProfileProtoParse>(bytes.data(), bytes.size());
}

void vnUserProfileHelper::freeProtoParseInstance() { userProfileProtoParse().reset(); }

void vnUserProfileHelper::cleanup() {
  m_isOutdated = false;
  m_profile = Value();
  m_cachedUserId.reset();
  m_lastKnown = {};
  freeProtoParseInstance();
}

OptionalText vnUserProfileHelper::messageOr(std::string_view key, std::string (Parser::*question)() const) const {
  if (!hasProto()) return m_profile[key].optionalText();
  const Parser* parser = userProfileProtoParse().get();
  return parser ? OptionalText((parser->*question)()) : std::nullopt;
}

bool vnUserProfileHelper::messageOr(std::string_view key, bool (Parser::*question)() const) const {
  return hasProto() ? messageAnswer(question) : m_profile[key].boolValue();
}

bool vnUserProfileHelper::messageOr(UserOption bit, bool (Parser::*question)() const) const {
  return hasProto() ? messageAnswer(question) : hasBit(userOption(), bit);
}

OptionalText vnUserProfileHelper::getUID() const { return messageOr(vn_Profile_UserId, &Parser::GetUserId); }

OptionalText vnUserProfileHelper::roomMeetingID() const {
  if (!hasProto()) return m_profile[vn_Setting_RoomMeetingId].optionalText();
  const Parser* parser = userProfileProtoParse().get();
  return parser ? OptionalText(std::to_string(parser->GetRoomMeetingId())) : std::nullopt;
}

OptionalText vnUserProfileHelper::thirdPartyAudioInfo() const {
  return messageOr(vn_Setting_ThirdPartyAudio, &Parser::GetThirdPartyAudioInfo);
}

bool vnUserProfileHelper::enableThirdPartyAudio() const {
  return messageOr(vn_Setting_EnableThirdPartyAudio, &Parser::EnableThirdPartyAudio);
}

bool vnUserProfileHelper::enablePSTN() const { return messageOr(vn_Profile_EnablePSTN, &Parser::IsEnablePSTN); }

bool vnUserProfileHelper::use3rdPartyAsDefaultAudio() const {
  return messageOr(vn_Profile_Use3rdPartyAsDefaultAudio, &Parser::Use3rdPartyAsDefaultAudio);
}

bool vnUserProfileHelper::useRandomPasswordByDefault() const {
  return messageOr(vn_Profile_UseRandomPasswordByDefault, &Parser::UseRandomPasswordByDefault);
}

std::int64_t vnUserProfileHelper::userOption() const { return m_profile[vn_Profile_UserOption].integerValue(); }

}  // namespace vorn

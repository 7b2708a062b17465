#include "data/vnGetPACHelper.h"

#include <limits>
#include <string>

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnProtoBufConvert.h"
#include "platform/Registry.h"

namespace vorn {

namespace {

// An index beyond the parser's range is outside, as 0 is.
std::int32_t parserIndex(std::int64_t index) {
  return index < 0 || index > std::numeric_limits<std::int32_t>::max() ? 0 : static_cast<std::int32_t>(index);
}

template <typename Read>
OptionalText whenParsed(std::int64_t index, Read read) {
  const CVnGetPACProtoParse* parser = pacProtoParse().get();
  if (!parser) return std::nullopt;
  return (parser->*read)(parserIndex(index));
}

}  // namespace

vnGetPACHelper& vnGetPACHelper::sharedInstance() { return Registry::shared<vnGetPACHelper>(); }

void vnGetPACHelper::setPACInfo(const OptionalText& base64) {
  if (!base64) return;
  m_pacInfo = base64;
  initProtoParseInstance();
  vnMeetingCommon::savePACConfigToLocal(pacCount());
}

std::int64_t vnGetPACHelper::pacCount() const {
  const CVnGetPACProtoParse* parser = protoParseInstance();
  return parser ? parser->GetPACCount() : 0;
}

void vnGetPACHelper::initProtoParseInstance() {
  if (!hasPACInfo()) return;
  const ZeroPaddedBytes bytes(m_pacInfo);
  pacProtoParse() = std::make_unique<CVnGetPACProtoParse>(bytes.data(), bytes.size());
}

OptionalText vnGetPACHelper::pacDialInNumber(std::int64_t index) const {
  return whenParsed(index, &CVnGetPACProtoParse::GetPACDialInNumber);
}

OptionalText vnGetPACHelper::pacDialInNumberWithCommaSeparator(std::int64_t index) const {
  return whenParsed(index, &CVnGetPACProtoParse::GetPACDialInNumberWithCommaSeparator);
}

OptionalText vnGetPACHelper::pacMeetingID(std::int64_t index) const {
  const CVnGetPACProtoParse* parser = protoParseInstance();
  if (!parser) return std::nullopt;
  return std::to_string(parser->GetPACMeetingNumber(parserIndex(index)));
}

OptionalText vnGetPACHelper::invitationMail(std::int64_t index) const {
  return whenParsed(index, &CVnGetPACProtoParse::GetInvitationEmail);
}

OptionalText vnGetPACHelper::htmlInvitationMail(std::int64_t index) const {
  return whenParsed(index, &CVnGetPACProtoParse::GetHtmlInvitationEmail);
}

OptionalText vnGetPACHelper::dedicatedDailinNumber(std::int64_t index) const {
  const OptionalText number = whenParsed(index, &CVnGetPACProtoParse::GetDedicatedDailinNumber);
  if (!number || number->empty()) return std::nullopt;
  return number;
}

OptionalText vnGetPACHelper::pacLocation(std::int64_t index) const {
  return whenParsed(index, &CVnGetPACProtoParse::GetPACLocation);
}

bool vnGetPACHelper::supportHtmlInvitationMail(std::int64_t index) const {
  return !htmlInvitationMail(index).value_or("").empty();
}

bool vnGetPACHelper::isPACEnabled() const {
  const JsonTextFile siteConfiguration(vnMeetingCommon::getLocalVnSiteConfigPath());
  return siteConfiguration.read()[vn_LocalProfile_EnablePAC].boolValue();
}

}  // namespace vorn

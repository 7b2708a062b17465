#include "data/vnGetMeetingHelper.h"

#include <unordered_set>
#include <utility>

#include "data/vnProfileKeys.h"
#include "data/vnProtoBufConvert.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "util/vStringUtils.h"

namespace vorn {

namespace {

vnUserProfileHelper& account() { return vnUserProfileHelper::sharedInstance(); }

}  // namespace

void vnGetMeetingHelper::setMeetingData(const Value& meeting, bool forPMI) {
  m_dataMeetingData = meeting.isDictionary() ? meeting : Value::dictionary();
  if (forPMI) resetUsePMI();
}

void vnGetMeetingHelper::forgetMeeting() {
  setMeetingData(Value::dictionaryFromPairs({{vn_MeetingKey, ""}}), false);
}

void vnGetMeetingHelper::setPBMeetingData(const OptionalText& base64) {
  if (!base64) return;
  m_pbMeetingInfo = base64;
  if (base64->empty()) return;
  const ZeroPaddedBytes bytes(base64);
  m_pMeetingProtoParse = std::make_unique<CVnGetMeetingProtoParse>(bytes.data(), bytes.size());
}

bool vnGetMeetingHelper::hasMeetingInfo() const { return !m_dataMeetingData[vn_MeetingKey].stringValue().empty(); }

bool vnGetMeetingHelper::isNewMeetingDefault() const {
  return m_pMeetingProtoParse && m_pMeetingProtoParse->GetMeetingNumber() == 0;
}

OptionalText vnGetMeetingHelper::getInviteEmail() const {
  return m_dataMeetingData[vn_MeetingData_InvitationEmail].optionalText();
}

OptionalText vnGetMeetingHelper::getInviteHtmlEmail() const {
  if (!m_pMeetingProtoParse) return std::nullopt;
  return m_pMeetingProtoParse->GetInviteHtmlEmail();
}

bool vnGetMeetingHelper::supportHtmlEmail() const {
  return m_pMeetingProtoParse && !m_pMeetingProtoParse->GetInviteHtmlEmail().empty();
}

std::string vnGetMeetingHelper::getRestrictJoinDomains() const {
  return m_pMeetingProtoParse ? m_pMeetingProtoParse->GetRestrictJoinDomains() : std::string();
}

Value vnGetMeetingHelper::getTrackingFields() const {
  if (!m_pMeetingProtoParse) return {};
  Value::Array fields;
  const std::int32_t count = m_pMeetingProtoParse->GetTrackingFieldsCount();
  fields.reserve(static_cast<std::size_t>(count));
  _sTrackingField field;
  for (std::int32_t i = 0; i < count; ++i) {
    m_pMeetingProtoParse->GetTrackingFieldAt(i, field);
    fields.push_back(trackingFieldDictionary(field));
  }
  return fields;
}

Value vnGetMeetingHelper::getAlternateHosts() const {
  if (!m_pMeetingProtoParse) return {};
  Value::Array emails;
  std::unordered_set<std::string> seen;
  _sAlternateHost_ host;
  for (std::int32_t i = 0; i < m_pMeetingProtoParse->GetAlternateHostsCount(); ++i) {
    m_pMeetingProtoParse->GetAlternateHostAt(i, host);
    if (!host.id.empty() && seen.insert(host.email).second) emails.push_back(host.email);
  }
  return emails;
}

Value vnGetMeetingHelper::getAdditionalDCRegions() const {
  if (!m_pMeetingProtoParse) return {};
  Value::Array regions;
  std::string region;
  for (std::int32_t i = 0; i < m_pMeetingProtoParse->GetAdditionalDCRegionsCount(); ++i) {
    m_pMeetingProtoParse->GetAdditionalDCRegionAt(i, region);
    regions.push_back(region);
  }
  return regions;
}

OptionalText vnGetMeetingHelper::getHostID() const {
  if (!m_pMeetingProtoParse) return std::nullopt;
  return m_pMeetingProtoParse->GetHostID();
}

OptionalText vnGetMeetingHelper::getHostEmail() const {
  if (!m_pMeetingProtoParse) return std::nullopt;
  return m_pMeetingProtoParse->GetHostEmail();
}

Value vnGetMeetingHelper::getExtInfoNodeValue(std::string_view key) const {
  if (!m_pMeetingProtoParse) return {};
  return vStringUtils::toArrayOrNSDictionary(m_pMeetingProtoParse->GetExtInfo())[key];
}

_sAvailableDialinCountry_ vnGetMeetingHelper::getAvailableDialinCountry() const {
  _sAvailableDialinCountry_ countries;
  if (m_pMeetingProtoParse) m_pMeetingProtoParse->GetAvailableDialinCountry(countries);
  return countries;
}

_sAuthDomainInfo_ vnGetMeetingHelper::getAuthDomainInfo() const {
  _sAuthDomainInfo_ info;
  if (m_pMeetingProtoParse) m_pMeetingProtoParse->GetAuthDomainInfo(info);
  return info;
}

_sMeetingTemplate_ vnGetMeetingHelper::getMeetingTemplate() const {
  _sMeetingTemplate_ meetingTemplate;
  if (m_pMeetingProtoParse) m_pMeetingProtoParse->GetMeetingTemplate(meetingTemplate);
  return meetingTemplate;
}

_sJoinMeetingRegionPolicy_ vnGetMeetingHelper::getJoinMeetingRegionPolicy() const {
  _sJoinMeetingRegionPolicy_ policy;
  if (m_pMeetingProtoParse) m_pMeetingProtoParse->GetJoinMeetingRegionPolicy(policy);
  return policy;
}

OptionalText vnGetMeetingHelper::getScheduleForEmail() const {
  const Value& told = m_dataMeetingData[vn_Setting_ScheduleFor];
  if (told.isPresent()) return told.stringValue();
  const OptionalText host = getHostID();
  if (host && host == account().getUID()) return "";
  const std::int64_t index = account().getScheduleForIndexWithHostID(host);
  return index >= 0 ? OptionalText(account().getScheduleForEmailWithIndex(index)) : host;
}

int vnGetMeetingHelper::convertTspAudioToAudioType(std::int64_t tspAudio) {
  switch (tspAudio) {
    case 2: return 11;
    case 3: return 12;
    case 4: return 13;
    case 5: return 14;
    default: return 10;
  }
}

void vnGetMeetingHelper::resetUsePMI() {
  if (!hasMeetingInfo()) return;
  const OptionalText personalNumber = account().roomMeetingID();
  const bool isPersonal = personalNumber && m_dataMeetingData[vn_MeetingKey].stringValue() == *personalNumber;
  m_dataMeetingData.set(vn_Setting_IsPMI, isPersonal || m_dataMeetingData[vn_Setting_IsPMI].boolValue());
}

void vnGetMeetingHelper::cleanup() {
  m_dataMeetingData = Value();
  m_pbMeetingInfo.reset();
  freeProtoParseInstance();
}

}  // namespace vorn

#include "data/vnGetScheduleForListHelper.h"

#include "data/People.h"
#include "data/vnProfileKeys.h"
#include "data/vnSettingKeys.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "platform/Registry.h"
#include "util/Text.h"

namespace vorn {

vnGetScheduleForListHelper& vnGetScheduleForListHelper::sharedInstance() {
  return Registry::shared<vnGetScheduleForListHelper>();
}

void vnGetScheduleForListHelper::setData(const Value& list) {
  if (list.isAbsent()) return;
  m_list = list.isDictionary() ? list : Value::dictionary();
}

void vnGetScheduleForListHelper::clearScheduleForList() { m_list = Value::dictionary(); }

Value vnGetScheduleForListHelper::bossesInfo() const { return m_list[vn_Profile_Bosses]; }

Value vnGetScheduleForListHelper::bossesInfoWithScheduleForEmail(const OptionalText& email) const {
  return personWithEmail(m_list[vn_Profile_Bosses], email);
}

std::optional<VNAvailableDialinCountryContent> vnGetScheduleForListHelper::getAvailableDialinCountry(
    const OptionalText& email) const {
  const Value person = bossesInfoWithScheduleForEmail(email);
  if (!person.isPresent()) return std::nullopt;
  return VNAvailableDialinCountryContent::fromProfile(person[vn_Setting_AvailableDialinCountry]);
}

OptionalText vnGetScheduleForListHelper::getPMIMeetingIDWithScheduleForEmail(const OptionalText& email) const {
  return bossesInfoWithScheduleForEmail(email)[vn_Boss_PMI].optionalText();
}

std::optional<std::size_t> vnGetScheduleForListHelper::personWithPMI(const std::string& number) const {
  const Value::Array& people = m_list[vn_Profile_Bosses].items();
  for (std::size_t i = 0; i < people.size(); ++i) {
    if (people[i][vn_Boss_PMI].isText() && equalIgnoringCase(people[i][vn_Boss_PMI].text(), number)) return i;
  }
  return std::nullopt;
}

void vnGetScheduleForListHelper::keepPMIInfo(std::size_t person, const Value& meetingInfo) {
  Value::Array people = m_list[vn_Profile_Bosses].items();
  people[person].set(vn_Boss_PMISetting, meetingInfo);
  m_list.set(vn_Profile_Bosses, Value(std::move(people)));
}

void vnGetScheduleForListHelper::setPMIInfoWithScheduleFor(const Value& meetingInfo) {
  const std::string& number = meetingInfo[vn_MeetingKey].text();
  if (number.empty()) return;
  if (const auto person = personWithPMI(number)) keepPMIInfo(*person, meetingInfo);
}

Value vnGetScheduleForListHelper::pmiInfoWithScheduleFor(const OptionalText& email) const {
  const std::string number = getPMIMeetingIDWithScheduleForEmail(email).value_or("");
  if (number.empty()) return {};
  const auto person = personWithPMI(number);
  if (!person) return {};
  return m_list[vn_Profile_Bosses].at(*person)[vn_Boss_PMISetting];
}

void vnGetScheduleForListHelper::refreshPMIInfoWithScheduleFor(const Value& meetingInfo) {
  const Value& setting = meetingInfo[vn_Setting];
  if (!setting[vn_Setting_IsPMI].boolValue()) return;
  const std::string number =
      getPMIMeetingIDWithScheduleForEmail(setting[vn_Setting_ScheduleFor].optionalText()).value_or("");
  if (number.empty()) return;
  if (const auto person = personWithPMI(number)) keepPMIInfo(*person, meetingInfo);
}

bool vnGetScheduleForListHelper::isSupportAdditionalDc(const OptionalText& email) const {
  return bossesInfoWithScheduleForEmail(email)[vn_Boss_IsSupportAdditionalDc].boolValue();
}

bool vnGetScheduleForListHelper::isEnableadditionaldc(const OptionalText& email) const {
  return bossesInfoWithScheduleForEmail(email)[vn_Boss_IsEnableadditionaldc].boolValue();
}

Value vnGetScheduleForListHelper::getWebUncheckedDCInfos(const OptionalText& email) const {
  return bossesInfoWithScheduleForEmail(email)[vn_Profile_WebUncheckedDCInfos];
}

std::int64_t vnGetScheduleForListHelper::userOption(const OptionalText& email) const {
  return bossesInfoWithScheduleForEmail(email)[vn_Profile_UserOption].integerValue();
}

std::int64_t vnGetScheduleForListHelper::userOptions2(const OptionalText& email) const {
  return bossesInfoWithScheduleForEmail(email)[vn_Profile_UserOption2].integerValue();
}

std::int64_t vnGetScheduleForListHelper::userOptions3(const OptionalText& email) const {
  return bossesInfoWithScheduleForEmail(email)[vn_Profile_UserOption3].integerValue();
}

std::int64_t vnGetScheduleForListHelper::userOptions4(const OptionalText& email) const {
  return bossesInfoWithScheduleForEmail(email)[vn_Profile_UserOption4].integerValue();
}

std::int64_t vnGetScheduleForListHelper::userOptions5(const OptionalText& email) const {
  return bossesInfoWithScheduleForEmail(email)[vn_Profile_UserOption5].integerValue();
}

}  // namespace vorn

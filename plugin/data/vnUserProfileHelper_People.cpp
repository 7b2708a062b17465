// The profile reader: the people to schedule for, and the questions that are asked of an account or of a person.

#include "data/People.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnProfileKeys.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"

namespace vorn {

namespace {

bool isOneself(const OptionalText& email) { return !email || email->empty(); }

const vnGetScheduleForListHelper& scheduleForList() { return vnGetScheduleForListHelper::sharedInstance(); }

}  // namespace

std::int64_t vnUserProfileHelper::getScheduleForIndexWithEmail(const OptionalText& email) const {
  return indexOfPerson(bossesInfo(), vn_Boss_Email, email);
}

std::int64_t vnUserProfileHelper::getScheduleForIndexWithHostID(const OptionalText& hostId) const {
  return indexOfPerson(bossesInfo(), vn_Boss_HostId, hostId);
}

std::string vnUserProfileHelper::getScheduleForEmailWithIndex(std::int64_t index) const {
  return bossesInfo().at(static_cast<std::size_t>(index))[vn_Boss_Email].text();
}

std::string vnUserProfileHelper::pmiMeetingIDWithScheduleForEmail(const OptionalText& email) const {
  return personWithEmail(bossesInfo(), email)[vn_Boss_PMI].text();
}

bool vnUserProfileHelper::supportPMIForOnbehalf(const OptionalText& email) const {
  return !pmiMeetingIDWithScheduleForEmail(email).empty();
}

bool vnUserProfileHelper::isDisablePMIWithScheduleForEmail(const OptionalText& email) const {
  return personWithEmail(bossesInfo(), email)[vn_Boss_DisablePMI].boolValue();
}

bool vnUserProfileHelper::isBossesPMIMeetingID(const OptionalText& meetingId) const {
  const std::int64_t number = Value(meetingId).integerValue();
  const Value bosses = bossesInfo();
  for (const Value& person : bosses.items()) {
    const Value& personalNumber = person[vn_Boss_PMI];
    if (personalNumber.isPresent() && personalNumber.integerValue() == number) return true;
  }
  return false;
}

bool vnUserProfileHelper::knows(const std::string& person) const {
  return person.empty() ? knowsAccount() : scheduleForList().hasScheduleForList();
}

bool vnUserProfileHelper::knowsTemplates(const std::string& person) const {
  return person.empty() ? hasUserProfile() : knows(person);
}

bool vnUserProfileHelper::isEnableScheduleFor() const { return bossesInfo().count() > 0; }

Value vnUserProfileHelper::accountOrPerson(const OptionalText& email, std::string_view key) const {
  if (isOneself(email)) return m_profile[key];
  return scheduleForList().bossesInfoWithScheduleForEmail(email)[key];
}

bool vnUserProfileHelper::says(UserOption3 bit, const OptionalText& email) const {
  return hasBit(isOneself(email) ? userOptions3() : scheduleForList().userOptions3(email), bit);
}

bool vnUserProfileHelper::says(UserOption4 bit, const OptionalText& email) const {
  return hasBit(isOneself(email) ? userOptions4() : scheduleForList().userOptions4(email), bit);
}

bool vnUserProfileHelper::says(UserOption5 bit, const OptionalText& email) const {
  return hasBit(isOneself(email) ? userOptions5() : scheduleForList().userOptions5(email), bit);
}

Value vnUserProfileHelper::getMeetingTemplates(const OptionalText& email) const {
  return accountOrPerson(email, vn_Profile_MeetingTemplates);
}

std::string vnUserProfileHelper::getMeetingTemplateLinkWithoutId(const OptionalText& email) const {
  return accountOrPerson(email, vn_Profile_TemplateLinkWithoutId).text();
}

Value vnUserProfileHelper::getMaximumDialinCountry(const OptionalText& email) const {
  return accountOrPerson(email, vn_Profile_MaximumDialinCountry);
}

Value vnUserProfileHelper::getJoinMeetingRegions(const OptionalText& email) const {
  return accountOrPerson(email, vn_Setting_JoinMeetingRegionSetting);
}

Value vnUserProfileHelper::getTotalRegionCodes(const OptionalText& email) const {
  return getJoinMeetingRegions(email)[vn_Setting_TotalRegionCodes];
}

std::string vnUserProfileHelper::getDefaultRegionCode(const OptionalText& email) const {
  return getJoinMeetingRegions(email)[vn_Setting_DefaultRegionCode].text();
}

std::int64_t vnUserProfileHelper::getRegionType(const OptionalText& email) const {
  return getJoinMeetingRegions(email)[vn_Setting_RegionPolicy][vn_Setting_RegionType].integerValue();
}

Value vnUserProfileHelper::getRegionCodes(const OptionalText& email) const {
  return getJoinMeetingRegions(email)[vn_Setting_RegionPolicy][vn_Setting_RegionCodes];
}

}  // namespace vorn

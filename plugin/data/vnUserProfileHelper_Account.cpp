// The profile reader: what the dictionary alone answers, the plan, telephone audio and the lists of the account.

#include "data/vnProfileKeys.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "licence/vnLicencePolicy.h"

namespace vorn {

namespace {

constexpr std::int64_t kDefaultJbhPriorMinutes = 5;
constexpr const char* kPublicWebAddress = "https://vorn.us";

}  // namespace

bool vnUserProfileHelper::isDefaultEnableOnlyAuthUsersCanJoin() const {
  return m_profile[vn_Profile_DefaultEnableOnlyAuthUsersCanJoin].boolValue();
}

bool vnUserProfileHelper::isLockOnlyAuthUsersCanJoin() const {
  return m_profile[vn_Profile_LockOnlyAuthUsersCanJoin].boolValue();
}

bool vnUserProfileHelper::isSupportOnlyAuthUsersCanJoin() const {
  return m_profile[vn_Profile_SupportOnlyAuthUsersCanJoin].boolValue();
}

bool vnUserProfileHelper::isTaiWanZH() const { return m_profile[vn_Profile_IsTaiWanZH].boolValue(); }

std::int64_t vnUserProfileHelper::getMeetingPasswordMinLength() const {
  return m_profile[vn_Profile_PasswordMinLength].integerValue();
}

std::int64_t vnUserProfileHelper::getMeetingPasswordRulesOption() const {
  return m_profile[vn_Profile_PasswordRulesOption].integerValue();
}

std::int64_t vnUserProfileHelper::getMeetingPasswordConsecutiveLength() const {
  return m_profile[vn_Profile_PasswordConsecutiveLength].integerValue();
}

std::string vnUserProfileHelper::getMeetingTrashCanLink() const {
  return m_profile[vn_Profile_TrashCanLink].text();
}

std::string vnUserProfileHelper::getPublicEventListUrl() const {
  return m_profile[vn_Profile_PublicEventListUrl].text();
}

std::string vnUserProfileHelper::getProfileSettingURL() const {
  return m_profile[vn_Profile_ProfileSettingURL].text();
}

Value vnUserProfileHelper::getWebUncheckedDCInfos() const { return m_profile[vn_Profile_WebUncheckedDCInfos]; }

Value vnUserProfileHelper::getMeetingAuths() const { return m_profile[vn_Profile_MeetingAuths]; }

Value vnUserProfileHelper::bossesInfo() const { return m_profile[vn_Profile_Bosses]; }

Value vnUserProfileHelper::getAccountUpgradeInfo() const { return m_profile[vn_Profile_UpgradeInfo]; }

std::int64_t vnUserProfileHelper::getDefaultJbhPriorTime() const {
  const Value& minutes = m_profile[vn_Setting_JBHPriorTime];
  return minutes.isPresent() ? minutes.integerValue() : kDefaultJbhPriorMinutes;
}

std::string vnUserProfileHelper::getVornDomain() const {
  return m_profile[vn_Profile_VornDomain].optionalText().value_or(kPublicWebAddress);
}

bool vnUserProfileHelper::isShowUpgradeLink() const {
  return getAccountUpgradeInfo()[vn_UpgradeInfo_IsShowUpgradeLink].integerValue() == 1;
}

std::string vnUserProfileHelper::getUpgradeContactName() const {
  return getAccountUpgradeInfo()[vn_UpgradeInfo_ContactName].text();
}

std::string vnUserProfileHelper::getUpgradeLink() const {
  return getAccountUpgradeInfo()[vn_UpgradeInfo_UpgradeLink].text();
}

std::string vnUserProfileHelper::getUpgradeContactEmail() const {
  return getAccountUpgradeInfo()[vn_UpgradeInfo_ContactEmail].text();
}

bool vnUserProfileHelper::isPaidUser() const { return vnLicencePolicy::isPaidUser(userType()); }

bool vnUserProfileHelper::isNoMeetingLicenseUser() const {
  return vnLicencePolicy::isNoMeetingLicenseUser(userType());
}

Value vnUserProfileHelper::tspAccounts() const {
  const Parser* parser = userProfileProtoParse().get();
  if (!parser) return {};
  Value::Array accounts;
  for (std::int32_t i = 0; i < parser->GetTspAccountsCount(); ++i) {
    _sTspAccount_ account;
    parser->GetTspAccountAt(i, account);
    Value entry = Value::dictionary();
    entry.set(vn_TspAccount_Index, account.tspAccountIndex);
    entry.set(vn_TspAccount_HostPasscode, account.hostPasscode);
    entry.set(vn_TspAccount_ParticipantPasscode, account.participantPasscode);
    entry.set(vn_TspAccount_PasscodeType, account.passcodeType);
    entry.set(vn_TspAccount_TspNumbers, textArray(account.tspNumber));
    accounts.push_back(std::move(entry));
  }
  return accounts;
}

bool vnUserProfileHelper::isTspSite() const { return messageAnswer(&Parser::GetTspAccountsCount) > 0; }

bool vnUserProfileHelper::moreThanOneTSPAccounts() const {
  return messageAnswer(&Parser::GetTspAccountsCount) > 1;
}

bool vnUserProfileHelper::isScheduleAudioBothDisabled() const {
  if (isTspSite()) return !tspIsSupportHybirdAudio();
  return messageAnswer(&Parser::IsScheduleAudioBothDisabled);
}

Value vnUserProfileHelper::trackingFields() const {
  const Parser* parser = userProfileProtoParse().get();
  if (!parser) return {};
  Value::Array fields;
  for (std::int32_t i = 0; i < parser->GetTrackingFieldsCount(); ++i) {
    _sTrackingField field;
    parser->GetTrackingFieldAt(i, field);
    fields.push_back(trackingFieldDictionary(field));
  }
  return fields;
}

std::optional<VNAvailableDialinCountryContent> vnUserProfileHelper::getAvailableDialinCountry() const {
  if (m_profile.isAbsent()) return std::nullopt;
  return VNAvailableDialinCountryContent::fromProfile(m_profile[vn_Setting_AvailableDialinCountry]);
}

std::optional<VNAvailableDialinCountryContent> vnUserProfileHelper::selectedDialinCountry() const {
  if (m_profile.isAbsent()) return std::nullopt;
  return VNAvailableDialinCountryContent::selectionFromProfile(m_profile[vn_Setting_AvailableDialinCountry]);
}

}  // namespace vorn

#pragma once

// The keys of the profile dictionary, of the dictionaries of people, and of the meeting's dictionary, as the
// client sends them. Keys that the settings or the appointment share stand in their headers.

#include <string_view>

namespace vorn {

inline constexpr std::string_view vn_Profile_Proto = "proto";
inline constexpr std::string_view vn_Profile_UserId = "userId";
inline constexpr std::string_view vn_Profile_EnablePSTN = "enablePSTN";
inline constexpr std::string_view vn_Profile_Use3rdPartyAsDefaultAudio = "use3rdPartyAsDefaultAudio";
inline constexpr std::string_view vn_Profile_UseRandomPasswordByDefault = "useRandomPasswordByDefault";
inline constexpr std::string_view vn_Profile_UserOption = "userOption";
inline constexpr std::string_view vn_Profile_UserOption2 = "userOption2";
inline constexpr std::string_view vn_Profile_UserOption3 = "userOption3";
inline constexpr std::string_view vn_Profile_UserOption4 = "userOption4";
inline constexpr std::string_view vn_Profile_UserOption5 = "userOption5";
inline constexpr std::string_view vn_Profile_Bosses = "bosses";
inline constexpr std::string_view vn_Profile_UpgradeInfo = "upgradeInfo";
inline constexpr std::string_view vn_Profile_PublicEventListUrl = "publiceventlisturl";
inline constexpr std::string_view vn_Profile_TrashCanLink = "trashCanLink";
inline constexpr std::string_view vn_Profile_ProfileSettingURL = "profileSettingURL";
inline constexpr std::string_view vn_Profile_TemplateLinkWithoutId = "templateLinkWithoutId";
inline constexpr std::string_view vn_Profile_IsEnableForcePMIJBHWithPassword = "isEnableForcePMIJBHWithPassword";
inline constexpr std::string_view vn_Profile_IsEnableRequirePassword = "isEnableRequirePassword";
inline constexpr std::string_view vn_Profile_IsEnablePMIRequirePassword = "isEnablePMIRequirePassword";
inline constexpr std::string_view vn_Profile_IsLockScheduleRequirePassword = "isLockScheduleRequirePassword";
inline constexpr std::string_view vn_Profile_IsLockPMIRequirePassword = "isLockPMIRequirePassword";
inline constexpr std::string_view vn_Profile_IsDisablePMI = "isDisablePMI";
inline constexpr std::string_view vn_Profile_DefaultEnableOnlyAuthUsersCanJoin =
    "defaultEnableOnlyAuthUsersCanJoin";
inline constexpr std::string_view vn_Profile_LockOnlyAuthUsersCanJoin = "lockOnlyAuthUsersCanJoin";
inline constexpr std::string_view vn_Profile_SupportOnlyAuthUsersCanJoin = "supportOnlyAuthUsersCanJoin";
inline constexpr std::string_view vn_Profile_IsTaiWanZH = "isTaiWanZH";
inline constexpr std::string_view vn_Profile_MeetingAuths = "meetingAuths";
inline constexpr std::string_view vn_Profile_PasswordMinLength = "passwordMinLength";
inline constexpr std::string_view vn_Profile_PasswordRulesOption = "passwordRulesOption";
inline constexpr std::string_view vn_Profile_PasswordConsecutiveLength = "passwordConsecutiveLength";
inline constexpr std::string_view vn_Profile_WebUncheckedDCInfos = "webUncheckedDCInfos";
inline constexpr std::string_view vn_Profile_MeetingTemplates = "meetingTemplates";
inline constexpr std::string_view vn_Profile_MaximumDialinCountry = "maximumDialinCountry";
inline constexpr std::string_view vn_Profile_VornDomain = "vornDomain";
inline constexpr std::string_view vn_Profile_SupportFeatureOptions = "supportFeatureOptions";
inline constexpr std::string_view vn_Profile_AllCountries = "allCountries";

// Inside "upgradeInfo".
inline constexpr std::string_view vn_UpgradeInfo_IsShowUpgradeLink = "isShowUpgradeLink";
inline constexpr std::string_view vn_UpgradeInfo_ContactName = "contactName";
inline constexpr std::string_view vn_UpgradeInfo_UpgradeLink = "upgradeLink";
inline constexpr std::string_view vn_UpgradeInfo_ContactEmail = "contactEmail";

// A person in "bosses".
inline constexpr std::string_view vn_Boss_Email = "email";
inline constexpr std::string_view vn_Boss_HostId = "hostId";
inline constexpr std::string_view vn_Boss_PMI = "pmi";
inline constexpr std::string_view vn_Boss_DisablePMI = "disablePmi";
inline constexpr std::string_view vn_Boss_DisplayName = "displayName";
// Never sent: the information of the person's personal meeting, kept here by the list's reader.
inline constexpr std::string_view vn_Boss_PMISetting = "pmiSetting";
inline constexpr std::string_view vn_Boss_IsSupportAdditionalDc = "isSupportAdditionalDc";
inline constexpr std::string_view vn_Boss_IsEnableadditionaldc = "isEnableadditionaldc";

// An entry of `tspAccounts`.
inline constexpr std::string_view vn_TspAccount_Index = "tspAccountIndex";
inline constexpr std::string_view vn_TspAccount_HostPasscode = "hostPasscode";
inline constexpr std::string_view vn_TspAccount_ParticipantPasscode = "participantPasscode";
inline constexpr std::string_view vn_TspAccount_PasscodeType = "passcodeType";
inline constexpr std::string_view vn_TspAccount_TspNumbers = "tspNumbers";

// The meeting's dictionary.
inline constexpr std::string_view vn_MeetingData_Enable3rdPartyAudio = "enable3rdPartyAudio";
inline constexpr std::string_view vn_MeetingData_OriginalMeetingNumber = "originalMeetingNumber";
inline constexpr std::string_view vn_MeetingData_InvitationEmail = "invitationEmail";

}  // namespace vorn

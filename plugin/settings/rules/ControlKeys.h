#pragma once

namespace vorn {

// The controls of the settings panel that others ask for than the group that adds them, by their keys. A key that
// stands here cannot be misspelt where it is asked for; of one that was not added every answer is no.
namespace control_key {

// Meeting ID and template
inline constexpr const char* meetingIDBox = "meetingIDBox";
inline constexpr const char* buttonOneTimeMeeting = "buttonOneTimeMeeting";
inline constexpr const char* buttonUsePMI = "buttonUsePMI";
inline constexpr const char* templateDeletedTipTextField = "templateDeletedTipTextField";

// Audio, and the countries in its box
inline constexpr const char* audioOptionsBox = "audioOptionsBox";
inline constexpr const char* selectedCountriesField = "selectedCountriesField";

// Security
inline constexpr const char* requiredMeetingPswButton = "requiredMeetingPswButton";
inline constexpr const char* passwordTextField = "passwordTextField";
inline constexpr const char* pswFormatErrorTextField = "pswFormatErrorTextField";
inline constexpr const char* securityErrorTextField = "securityErrorTextField";
inline constexpr const char* restrictDomainsBox = "restrictDomainsBox";
inline constexpr const char* onlySignedinWithSpecifiedDomains = "onlySignedinWithSpecifiedDomains";
inline constexpr const char* enableJBHButton = "enableJBHButton";
inline constexpr const char* endtoendButton = "endtoendButton";

// Alternate hosts, regions and tracking fields
inline constexpr const char* alternateHostBox = "alternateHostBox";
inline constexpr const char* enableDataCenterRegionsButton = "enableDataCenterRegionsButton";
inline constexpr const char* allowDenyButton = "allowDenyButton";
inline constexpr const char* trackingFieldsBox = "trackingFieldsBox";

// The end of the panel
inline constexpr const char* buttonCancel = "buttonCancel";
inline constexpr const char* buttonContinue = "buttonContinue";

// While one of these fields tells of a fault, Continue cannot be used.
inline constexpr const char* errorFields[] = {pswFormatErrorTextField, securityErrorTextField,
                                              templateDeletedTipTextField};

}  // namespace control_key

}  // namespace vorn

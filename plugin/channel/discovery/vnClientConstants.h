#pragma once

// What the client is called, where it lies, and from which of its versions on it can do what.

#include <string_view>

namespace vorn {

inline constexpr std::string_view kVornusIdentify = "us.vorn.xos";
inline constexpr std::string_view kVornClientAppName = "vornclient.app";
inline constexpr std::string_view kVornusAppLaunchPath = "/Applications/%@";
inline constexpr std::string_view kVornusUserAppLaunchPath =
    "~/Library/Application Support/vornclient/vornclient.app";
inline constexpr std::string_view keyOutlookIdentifier = "com.microsoft.Outlook";

inline constexpr std::string_view kNoti_SilentActiveVornApplication = "Noti_SilentActiveVornApp";
inline constexpr std::string_view kNoti_ActivateVornApplicationExternally =
    "Noti_ActivateVornApplicationExternally";
inline constexpr std::string_view kParam_ActivateVornApplicationExternally =
    "Param_ActivateVornApplicationExternally";

// What the client is asked to open when it runs already.
inline constexpr std::string_view kVornLaunchURL = "vornmtg://vorn.us/start";

inline constexpr std::string_view kOldestSupportedVornClient = "3.5";

// The numbers in these names are planning labels; the versions rule.
inline constexpr std::string_view kVornClientSupportPACAndNoVideoVersion = "3.5.22781";
inline constexpr std::string_view kVornClientSupportAutoRecording = "4.0.24613";
inline constexpr std::string_view kVornClientSupportAHAndMuteOnEntryVersion = "4.0.40460";
inline constexpr std::string_view kVornClientSupportExtInfoVersion = "4.1.10730";
inline constexpr std::string_view kVornClientSupportPublicEvent = "4.2.28915";
inline constexpr std::string_view kVornClientSupportSourceForDelete = "4.3.40531";
inline constexpr std::string_view kVornClientSupportAudioWatermark = "4.3.40531";
inline constexpr std::string_view kVornClientSupportSceduleForList = "4.4.00000";
inline constexpr std::string_view kVornClientSupportSourceForGetMeeting = "4.4.00000";
inline constexpr std::string_view kVornClientSupportInvitationLanguage = "4.5.00000";
inline constexpr std::string_view kVornClientSupportIPCSocket = "4.6.00000";
inline constexpr std::string_view kVornClientSupport464Tasks = "4.6.14768";
inline constexpr std::string_view kVornClientSupportPasswordRule = "4.6.20041";
inline constexpr std::string_view kVornClientSupport500Tasks = "4.6.20615";
inline constexpr std::string_view kVornClientSupport520Tasks = "5.2.29600";
inline constexpr std::string_view kVornClientSupport530Tasks = "5.3.45933";
inline constexpr std::string_view kVornClientSupport550Tasks = "5.4.59940";

}  // namespace vorn

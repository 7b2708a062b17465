#pragma once

// The codes of errors: up to 9, 555, 999 and 9999 are the plug-in's own, all others the client's.

namespace vorn::ErrorCode {

inline constexpr int kNone = 0;
inline constexpr int kNoClient = 2;
inline constexpr int kNoInternet = 3;
inline constexpr int kClientNotRunning = 5;
inline constexpr int kClientTooOld = 6;
inline constexpr int kNotSignedIn = 7;
// A required tracking field has no value.
inline constexpr int kTrackingFieldMissing = 555;
inline constexpr int kEmptyReply = 999;
inline constexpr int kAlternateHostsFirst = 1113;
inline constexpr int kAlternateHostsLast = 1115;
inline constexpr int kMeetingNotFound = 3001;
inline constexpr int kMeetingInProgress = 3002;
inline constexpr int kNotMeetingHost = 3003;
inline constexpr int kPMINeedsPassword = 3068;
inline constexpr int kPastMeeting = 3070;
inline constexpr int kPMIDisabled = 3105;
inline constexpr int kSecurityOptionMissing = 3113;
inline constexpr int kNotAllowed = 3161;
// Also the plug-in's own check of the passcode.
inline constexpr int kPasscodeUnfit = 3402;
inline constexpr int kPasscodeTooWeak = 3403;
inline constexpr int kNetwork = 5003;
inline constexpr int kUnknown = 9999;

}  // namespace vorn::ErrorCode

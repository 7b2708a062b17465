#pragma once

// Keys of the dictionaries and names of the local notifications that travel inside the workflow. The keys of
// replies and requests stand with the commands.

#include <string_view>

namespace vorn {

inline constexpr std::string_view keyApptViewActionID = "keyApptViewActionID";
inline constexpr std::string_view keyEventOwnerWindow = "keyEventOwnerWindow";
inline constexpr std::string_view keyDragAndMoveOnCalendar = "keyDragAndMoveOnCalendar";
inline constexpr std::string_view keyECCalendarEvent = "keyECCalendarEvent";
inline constexpr std::string_view keyERCalendarEventEditorWindowController =
    "keyERCalendarEventEditorWindowController";

// The end of the settings panel and of the notices.
inline constexpr std::string_view keyVNUserOperator = "VnUserOperator";
inline constexpr std::string_view keyVNSettingCommit = "SettingCommit";
inline constexpr std::string_view keyButtonClickIsOK = "IsClickOkButton";
inline constexpr std::string_view notify_SettingCommit = "notifySettingCommit";
inline constexpr std::string_view notify_ScheduleErrorMessage_Commit = "notifyScheduleErrorMessageCommit";
inline constexpr std::string_view notify_Commit_ChooseAnotherTemplate = "notifyCommitChooseAnotherTemplate";

// Single-shot hand-overs to the bar of an editor that does not exist yet, in the thread's dictionary.
inline constexpr std::string_view keyFlagAutoAddToVnMeeting = "keyFlagAutoAddToVnMeeting";
inline constexpr std::string_view keyFlagAutoAddToPACMeeting = "keyFlagAutoAddToPACMeeting";
inline constexpr std::string_view keyFlagAutoUpdateVnMeeting = "keyFlagAutoUpdateVnMeeting";
inline constexpr std::string_view keyFlagVnMeetingArgument = "keyFlagVnMeetingArgument";
// In the argument: the account of the personal audio conference, 1 or 2.
inline constexpr std::string_view vn_PAC_Setting_PACAccountNo = "pacAccountNo";

}  // namespace vorn

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "util/Value.h"
#include "workflow/MeetingWindow.h"
#include "workflow/vnMeetingDataMgr.h"

namespace vorn {

class vnMeetingMgr;

// Everything that starts with a click on the bar, before any save: adding a meeting, taking it off again, and the
// settings of an existing one; with the account's profile and the personal meeting that these need on the way.
//
// Operations that give a number give 0, or the code of a refusal that the user has seen. Main thread only.
class SettingsFlow {
 public:
  // The manager outlives it.
  explicit SettingsFlow(vnMeetingMgr& manager) : m_manager(manager) {}

  // Commands 1, 2 and 3, and what follows when their work is done.
  int addVornMeeting(MeetingWindow& window);
  int changeSettings(MeetingWindow& window);
  int cancelVornMeeting(MeetingWindow& window);
  void onAddCancelVornMeetingFinished(std::uint64_t command, const Value& data);
  void onChangeSettingFinished(const Value& data);

  // Shows the panel for the window; nothing without a panel or an open window.
  void showSettingsWindow(MeetingWindow& window, const Value& meetingData);
  // The panel of any window was closed; another window's is ignored.
  void onInvokeSettingCommit(const Value& userInfo);
  // The service has accepted what the panel committed: the choices that went with it stay.
  void commitStands();
  // It has refused, and the panel is not shown again: the choices are those from before the first commit without
  // an answer.
  void commitRefused();
  // What was committed, or what it needs first, may still be answered. Otherwise whatever has no answer was
  // refused or never reached the client, and a panel that is dismissed then goes back behind it.
  bool isCommitOnItsWay() const;
  // The user has told the system not to show the panel.
  static bool notShowSetting();

  // Fetches the personal meeting, in the state that says what for. Nothing, not even the state, before any profile
  // has come; one that was cleared since is good enough.
  void getPMIMeetingInfo(MeetingWindow& window, std::uint64_t state);
  // Whether the appointment is a series. For the panel, which hides what a series cannot have.
  bool isEnableRecurrence(MeetingWindow& window);
  // The address scheduled for; "" for oneself.
  static std::string getScheduldForEmailFromUI(MeetingWindow& window);

  // Fetches the account's profile unless it is there, without a word to the user.
  void prepareUserProfile(MeetingWindow& window, bool fromClientSchedule);
  void onGetUserProfileActionFinished(const Value& data);

  // Asks for the people whom this user schedules for.
  int getScheduleForList(MeetingWindow& window);
  void onGetScheduleForListFinished(const Value& data);

 private:
  void prepareOpenSettings(MeetingWindow& window);
  void executeGetMeetingForChangeSetting(MeetingWindow& window);

  vnMeetingMgr& m_manager;
  // From before the first commit without an answer; absent when each has one.
  std::optional<vnMeetingDataMgr::PanelChoices> m_choicesBeforeCommit;
};

}  // namespace vorn

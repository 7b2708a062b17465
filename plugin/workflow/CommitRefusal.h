#pragma once

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

class MeetingWindow;
class vnMeetingMgr;

// What the user hears of a commit or a fetch that the service or the account does not allow: in the panel where
// one can be shown, otherwise in a notice. Main thread only.
class CommitRefusal {
 public:
  // The manager outlives it.
  explicit CommitRefusal(vnMeetingMgr& manager) : m_manager(manager) {}

  // False when the meeting was scheduled for a person whom this user may no longer act for.
  bool checkScheduleForEmailValidity();
  static void changeUIWithScheduleForEmainError(const HostObject& parentWindow);

  // Warns that this user may not schedule for the person in whose name the window is open. No caller here.
  static void showWarningNotAllowScheduleForOthers(const MeetingWindow& window);

  // Opens the panel again after a refused commit.
  void showSettingsWindowWithCommitError(const HostObject& parentWindow, int errorCode);
  void resetMeetingItemWhenUpdateError(const HostObject& parentWindow);
  // The meeting information that the window's panel was loaded with first; absent without a panel.
  static Value getSiteMeetingInfo(const OptionalText& windowId);
  static void onInvokeScheduleAlternateHostError(const Value& userInfo);

  // The service no longer knows the chosen template: asks the user, and goes on as they say.
  static void showCommitWarning(const HostObject& parentWindow, const Value& meetingData);
  void onInvokeCommitChooseAnotherTemplate(const Value& userInfo);

 private:
  vnMeetingMgr& m_manager;
};

}  // namespace vorn

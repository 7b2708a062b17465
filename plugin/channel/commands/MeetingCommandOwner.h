#pragma once

// What the commands need of the meeting manager that they answer to, by who asks. Main thread only.

#include <cstdint>
#include <string>

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

class vnGetMeetingHelper;

// For the words of an error: what the manager knows of its meeting.
class CommandErrorOwner {
 public:
  virtual ~CommandErrorOwner() = default;
  // Absent when there is none.
  virtual OptionalText meetingKey() = 0;
  virtual OptionalText scheduleForEmail() = 0;
  // "" when the address is nobody's whom this user schedules for.
  virtual std::string getDisplayNameWithOnbehalfEmail(const std::string& email) = 0;
  // What the settings panel shows. Absent without a panel.
  virtual Value getSiteMeetingInfo(const OptionalText& windowId) = 0;
};

// For the requests for a meeting.
class GetMeetingOwner {
 public:
  virtual ~GetMeetingOwner() = default;
  // Null after the manager's cleanup.
  virtual vnGetMeetingHelper* getMeetingHelper() = 0;
  // False when the meeting was scheduled for a person whom this user may no longer act for.
  virtual bool checkScheduleForEmailValidity() = 0;
  // The window's bar shows an appointment without a meeting; nothing without a bar.
  virtual void changeUIWithScheduleForEmainError(const HostObject& parentWindow) = 0;
  // Absent changes nothing.
  virtual void setMeetingKey(const OptionalText& key) = 0;
};

// For a commit, and for what the user has to do when it is refused.
class CommitOwner {
 public:
  virtual ~CommitOwner() = default;
  virtual void setMeetingAction(std::uint64_t action) = 0;
  // Absent changes nothing.
  virtual void setScheduleForEmail(const OptionalText& email) = 0;
  // Opens the window's panel again, which tells why the commit was refused; 0 for no refusal. Where no panel can
  // tell, an alert does, for a code that there are words for.
  virtual void showSettingsWindowWithCommitError(const HostObject& parentWindow, int errorCode) = 0;
  // The window's panel goes back behind a commit that came to nothing; nothing without a panel, and for a meeting
  // that is none of the service's yet.
  virtual void resetMeetingItemWhenUpdateError(const HostObject& parentWindow) = 0;
  // The service no longer knows the chosen template; the user has to say what to do with the data.
  virtual void showCommitWarning(const HostObject& parentWindow, const Value& meetingData) = 0;
};

// For a deletion that failed.
class DeleteMeetingOwner {
 public:
  virtual ~DeleteMeetingOwner() = default;
  virtual void clearAllSavedData() = 0;
};

// The manager as vnAPIMgr knows it.
class MeetingCommandOwner : public CommandErrorOwner,
                            public GetMeetingOwner,
                            public CommitOwner,
                            public DeleteMeetingOwner {
 public:
  // The one entry for replies: the reply number and a dictionary.
  virtual int onExcuteCommandFinished(std::uint64_t command, const Value& data) = 0;
  virtual void showNoMeetingLicenseWindow(const HostObject& parentWindow) = 0;
};

}  // namespace vorn

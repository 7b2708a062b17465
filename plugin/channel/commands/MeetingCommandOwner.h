#pragma once

#include <cstdint>
#include <string>

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

class vnGetMeetingHelper;

// What the commands need of the meeting manager that they answer to. Main thread only.
class MeetingCommandOwner {
 public:
  virtual ~MeetingCommandOwner() = default;

  // The one entry for replies: the reply number and a dictionary.
  virtual int onExcuteCommandFinished(std::uint64_t command, const Value& data) = 0;
  virtual void setMeetingAction(std::uint64_t action) = 0;
  // Null after the manager's cleanup.
  virtual vnGetMeetingHelper* getMeetingHelper() = 0;

  // The working data of the manager: the key of the meeting and the address scheduled for. Absent when there is
  // none; setting absent changes nothing.
  virtual OptionalText meetingKey() = 0;
  virtual void setMeetingKey(const OptionalText& key) = 0;
  virtual OptionalText scheduleForEmail() = 0;
  virtual void setScheduleForEmail(const OptionalText& email) = 0;
  virtual void clearAllSavedData() = 0;

  // False when the meeting was scheduled for a person whom this user may no longer act for.
  virtual bool checkScheduleForEmailValidity() = 0;
  virtual void changeUIWithScheduleForEmainError(const HostObject& parentWindow) = 0;
  // "" when the address is nobody's whom this user schedules for.
  virtual std::string getDisplayNameWithOnbehalfEmail(const std::string& email) = 0;

  // The settings panel: opened again after a refused commit, and asked what it shows. Absent without a panel.
  virtual void showSettingsWindowWithCommitError(const HostObject& parentWindow, int errorCode) = 0;
  virtual void resetMeetingItemWhenUpdateError(const HostObject& parentWindow) = 0;
  virtual Value getSiteMeetingInfo(const OptionalText& windowId) = 0;
  // The service no longer knows the chosen template; the user has to say what to do with the data.
  virtual void showCommitWarning(const HostObject& parentWindow, const Value& meetingData) = 0;
  virtual void showNoMeetingLicenseWindow(const HostObject& parentWindow) = 0;
};

}  // namespace vorn

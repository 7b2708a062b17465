#pragma once

#include <optional>
#include <string>

#include "channel/commands/vnAPIBase.h"

namespace vorn {

// Deletes a meeting, and tells the user where a deleted meeting still is. Main thread only.
class vnAPIDeleteMeeting : public vnAPICommandFor<DeleteMeetingOwner> {
 public:
  void setData(const std::string& meetingKey) { m_meetingKey = meetingKey; }
  // Sends the request; 0, or the code for which it was refused. A number that must be left alone gives 0 too, and
  // then nothing is sent and no reply comes.
  int doAction(const HostObject& parentWindow);
  // The content of the request for the client of the moment.
  std::string getAPIData();
  // An error makes the manager forget its data before the user is told.
  std::optional<CommandResult> onVornFeedback(const std::string& content);
  // The user wants to hear no more where deleted meetings are.
  static bool doNotRemindShowDeleteUI();

 private:
  std::string m_meetingKey;
};

}  // namespace vorn

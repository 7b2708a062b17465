#pragma once

#include <memory>
#include <optional>
#include <string>

#include "channel/commands/vnAPIBase.h"

namespace vorn {

// Asks for a meeting by its number, or with the number "new" for what a new meeting starts from. Main thread
// only.
class vnAPIGetMeeting : public vnAPICommandFor<GetMeetingOwner> {
 public:
  // An empty language keeps the one that was given before, also for requests that name none.
  void setData(const std::string& meetingKey, const std::string& invitationLanguage);
  // Whether the request is for the personal meeting ID.
  bool forPMI() const { return m_isForPMI; }
  void setForPMI(bool forPMI) { m_isForPMI = forPMI; }

  // Sends the request; 0, or the code for which it was refused.
  int doAction(const HostObject& parentWindow);
  // The content of the request for the client of the moment.
  std::string getAPIData();
  // A reply too short to hold a meeting ends here in silence. One about another meeting than was asked for is that
  // of another window or of an edit before, and has none of this one's settings: the window waits on, and what has
  // gone out goes out once more. A service that insists on a number that nobody here asked for is believed.
  std::optional<CommandResult> onVornFeedback(const std::string& content);
  void letGo() override;

 private:
  void onWaitEnded() override;
  // Without blanks.
  std::string askedNumber() const;
  bool isAboutAnother(const Value& meeting) const;
  bool insistsOn(const Value& meeting);

  std::string m_meetingKey;
  // The number whose answer is still to come, for the others of this kind to see; null for none.
  std::shared_ptr<const std::string> m_onItsWay;
  // What was told of other meetings since it was asked for.
  std::string m_toldInstead;
  int m_timesTold = 0;
  int m_repeats = 0;
  bool m_isForPMI = false;
  std::string m_invitationLanguage;
};

}  // namespace vorn

#pragma once

#include <string>

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// The notice that stops a commit because the service no longer knows the chosen template. The user picks another
// one or goes on without; either answer is posted as notify_Commit_ChooseAnotherTemplate. Main thread only.
class vnCommitWarning {
 public:
  static vnCommitWarning& sharedInstance();

  // The data of the commit that was stopped. A notice that is open already keeps its own.
  void setData(const Value& meetingData) { m_meetingData = meetingData; }
  // The name of the template; "" when none is chosen.
  std::string getWarningMessage() const;
  // Puts the notice on the window and returns; the answer may come during the call.
  void showCommitWarning(const HostObject& parentWindow) const;

 private:
  Value m_meetingData;
};

}  // namespace vorn

#pragma once

#include <string>

#include "channel/commands/vnAPIBase.h"

namespace vorn {

// Has the client start a meeting now. It waits for nothing: no timers, no sheet, no activation. Main thread
// only.
class vnAPIStartMeeting : public vnAPIBase {
 public:
  static vnAPIStartMeeting& sharedInstance();

  // With video or for sharing only. 0, or the code for which it was refused.
  int doAction(bool video);
  // No reply is routed here today.
  void onVornFeedback(const std::string& content);
};

}  // namespace vorn

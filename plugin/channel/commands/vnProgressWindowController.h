#pragma once

#include "util/HostObject.h"

namespace vorn {

// The small window that tells the user to wait for the client.
class vnProgressWindowController {
 public:
  // Puts the window on the screen. The work goes on in the ordinary run loop, so the parent window stays usable
  // and is not needed here.
  void domodalSheet(const HostObject& parentWindow);
  void abortDomodal();
};

}  // namespace vorn

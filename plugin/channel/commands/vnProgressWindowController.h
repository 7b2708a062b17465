#pragma once

#include <memory>

#include "platform/Presenter.h"
#include "util/HostObject.h"

namespace vorn {

// The small window that tells the user to wait for the client.
class vnProgressWindowController {
 public:
  // Puts the window on the screen, in a modal session of its own. The work goes on in the ordinary run loop, and
  // the parent window is not needed here.
  void domodalSheet(const HostObject& parentWindow);
  // Takes this window away again, and no other command's.
  void abortDomodal() { m_session.reset(); }

 private:
  std::unique_ptr<Presenter::Progress> m_session;
};

}  // namespace vorn

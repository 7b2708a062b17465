#pragma once

#include <string>
#include <vector>

#include "platform/Presenter.h"
#include "platform/embedded/PanelRecord.h"

namespace vornlab {

// What the plug-in puts before a person beside the host's own windows, and how the person answers it. Main thread
// only.
class HostScreen {
 public:
  virtual ~HostScreen() = default;

  // The message of each alert since the session began, in the order of showing. The words of a link, and the
  // address where they lead, follow on a line of their own as "words: address".
  virtual std::vector<std::string> alertMessages() const = 0;
  // The answer to the next alert that has none yet, one call for each; alerts beyond these are declined.
  virtual void answerNext(vorn::Presenter::Answer answer) = 0;
  // Whether the window that tells that the client is asked is on the screen.
  virtual bool showsProgress() const = 0;
  // The settings panels that are open, by the windows that they are sheets of.
  virtual const vorn::PanelRecord& panels() const = 0;
};

}  // namespace vornlab

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Presenter.h"
#include "platform/controls/ControlUse.h"

namespace vornlab {

// What a person does to a control of a panel.
struct PanelDeed {
  // A click, or a key that is pressed in a field; a switch that is put on or off, and what stands in a field or is
  // chosen in a list afterwards; a text that is typed or pasted into a field of tokens.
  enum class Kind { click, press, turn, write, choose, type, paste };
  Kind kind = Kind::click;
  vorn::TokenText::Key key = vorn::TokenText::Key::escape;
  bool on = false;
  std::string text{};
  int index = -1;
};

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

  // -- The settings panels, by the windows that they are sheets of

  virtual bool showsPanel(const vorn::HostObject& window) const = 0;
  // The control with that key as the person sees it; absent when the panel has none, or none is open. What nobody
  // sees - its box, its rules - may be empty.
  virtual std::optional<vorn::Control> look(const vorn::HostObject& window, const std::string& key) const = 0;
  virtual vorn::ControlUse use(const vorn::HostObject& window, const std::string& key, const PanelDeed& deed) = 0;
  // A turn of the wheel over the panel.
  virtual vorn::ControlUse scroll(const vorn::HostObject& window) = 0;
  // Makes a picture of what lies in front, as a file of that name in the folder for pictures. Nothing where there
  // is nothing to be seen. Throws LabError when it cannot be written.
  virtual void takePicture(const std::string& name) { (void)name; }
};

}  // namespace vornlab

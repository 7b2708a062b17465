#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "util/HostObject.h"

namespace vorn {

struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

// Everything that this system puts before the user's eyes. Main thread only.
class Presenter {
 public:
  struct Alert {
    std::string title;
    std::string message;
    std::string defaultButton;
    // "" for an alert with one button.
    std::string alternateButton;
    // The name of an image of the bundle; "" for none.
    std::string icon;
  };
  enum class Answer { defaultButton, alternateButton };

  virtual ~Presenter() = default;

  // Shows an alert as a sheet on the window, or by itself when the window is absent, and returns at once. The
  // answer may come during the call or later; it does not come when the window closes first.
  virtual void showAlert(const HostObject& window, const Alert& alert, std::function<void(Answer)> answered) = 0;

  // Puts a small window with a message on the screen, and takes it away again. The work goes on meanwhile.
  virtual void beginProgress(std::string_view message) = 0;
  virtual void endProgress() = 0;

  // Makes a view of the given class of ours in the host's runtime, with no superview. The view lives until
  // releaseView() or the end of its superview. Absent when the host has no views.
  virtual HostObject createView(std::string_view className, const Rect& frame) = 0;
  virtual void releaseView(const HostObject& view) = 0;
};

}  // namespace vorn

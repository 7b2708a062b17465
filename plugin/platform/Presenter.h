#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "util/HostObject.h"

namespace vorn {

class ControlSet;
struct PanelLayout;

// Everything that this system puts before the user's eyes. Main thread only.
class Presenter {
 public:
  // The image of the bundle that an alert shows.
  static constexpr const char* kWarningIcon = "warning.png";

  // Words below an alert's message that lead somewhere.
  struct Link {
    std::string text;
    std::string address;
    // Called as often as the user clicks, while the alert is open.
    std::function<void()> follow;
  };
  struct Alert {
    std::string title;
    std::string message;
    // At least one; the first is the default, which the return key presses.
    std::vector<std::string> buttons;
    // The name of an image of the bundle, with its type; "" for none.
    std::string icon;
    // The words beside a switch by which the user wants to see this no more; "" for an alert without one.
    std::string notAgainSwitch{};
    // Where the presenter cannot draw a link it tells the address.
    std::optional<Link> link{};
  };
  struct Answer {
    // The place of the pressed button among the alert's.
    std::size_t button = 0;
    // Whether the switch was on; false without one.
    bool notAgain = false;

    // What most alerts ask: go on, or leave it.
    static const Answer defaultButton;
    static const Answer alternateButton;
    bool operator==(const Answer&) const = default;
  };
  // A progress sheet on the screen. It goes with this object, which ends no other sheet, and which does nothing
  // more when the presenter has gone first. Its end raises nothing, whatever the host does.
  class Progress {
   public:
    virtual ~Progress() = default;
  };

  // A panel on the screen. It goes with this object, which does nothing more when the presenter has gone first.
  class Panel {
   public:
    virtual ~Panel() = default;
  };
  // The user has clicked the control with the key, or changed it: what was chosen or typed stands in it already.
  // The empty key is a press or a scroll that meets no control.
  using PanelInput = std::function<void(const std::string& key)>;

  virtual ~Presenter() = default;

  // Shows an alert as a sheet on the window, or by itself when the window is absent, and returns at once. The
  // answer may come during the call or later; it does not come when the window closes first.
  virtual void showAlert(const HostObject& window, const Alert& alert, std::function<void(Answer)> answered) = 0;

  // Puts a small window with a message on the screen, in a modal session that nobody runs: the work goes on in the
  // ordinary run loop. Each call shows one of its own. Never null: on a host that cannot show it, there is nothing
  // to see.
  [[nodiscard]] virtual std::unique_ptr<Progress> beginProgress(std::string_view message) = 0;

  // False where panels cannot be drawn.
  virtual bool canShowPanels() const = 0;
  // Shows the controls as a sheet on the window, in the order of the layout, and returns at once; null where
  // panels cannot be drawn. The controls outlive the panel, which shows them as they change. The input comes
  // later, within a Change of the controls, and may end the panel.
  [[nodiscard]] virtual std::unique_ptr<Panel> showPanel(const HostObject& window, std::string_view title,
                                                         const PanelLayout& layout, ControlSet& controls,
                                                         PanelInput used) = 0;
};

inline constexpr Presenter::Answer Presenter::Answer::defaultButton{0};
inline constexpr Presenter::Answer Presenter::Answer::alternateButton{1};

}  // namespace vorn

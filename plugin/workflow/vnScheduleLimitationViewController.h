#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Presenter.h"
#include "platform/controls/ControlSet.h"

namespace vorn {

// The notice that an account without a paid plan cannot hold so long a meeting: what the limit is, the way to an
// upgrade, and a switch to see it no more. It stands in the settings panel, or by itself in the notice that stops
// a save. The controls outlive it. Main thread only.
class vnScheduleLimitationViewController {
 public:
  explicit vnScheduleLimitationViewController(ControlSet& controls);

  // In the settings panel, where it is shown when the plan asks for it; otherwise it stands by itself and is
  // shown.
  void setEmbedSettingWindowMode(bool embedded) { m_isEmbedded = embedded; }
  // Shows or hides it. The plan's check is the window's own: whether the appointment is longer than the plan
  // allows.
  void initFields(bool isLongerThanPlanAllows);

  // What the user has clicked; nothing for a control that is not this view's.
  void userChanged(std::string_view key) const;
  // The switch, while the view is shown.
  std::optional<bool> wish() const;
  // Keeps it; nothing for none.
  static void saveShowMessageAgainToUserProfile(std::optional<bool> wish);
  // The user wants no such notice any more, as the saved user profile says. False without one.
  static bool notShowMessageAgain();

  // Where an upgrade is to be had: a page, or a letter to a contact; absent for neither.
  static std::optional<Presenter::Link> upgrade();

  const std::string& message() const { return m_message.text; }
  Control& notShowAgainSwitch() { return m_notShowAgainButton; }

 private:
  bool m_isEmbedded = false;

  Control& m_view;
  Control& m_message;
  Control& m_upgradeButton;
  Control& m_notShowAgainButton;
};

}  // namespace vorn

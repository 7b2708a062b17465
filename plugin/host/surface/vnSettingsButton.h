#pragma once

#include <string>
#include <string_view>

#include "platform/ClassRuntime.h"
#include "util/HostObject.h"
#include "util/Rect.h"

namespace vorn {

// A button of the bar: what the rules say of it, and the button of the host's toolkit that shows it. Main thread
// only.
class vnSettingsButton {
 public:
  static constexpr std::string_view kClass = "vnSettingsButton";

  bool hidden = true;
  bool enabled = true;
  std::string title;
  // The name of an image of the bundle; "" for none.
  std::string image;
  // Above the title instead of left of it, where a button is about as wide as it is high. Counts when it is made.
  bool isImageAbove = false;
  // Empty for no tooltip.
  std::string toolTip;
  Rect frame;

  // Makes the button as a subview; a click sends the action to the target, which it does not hold. On a host that
  // has no buttons nothing is shown.
  void create(const HostObject& superview, const HostObject& target, std::string_view action);
  // Shows what is said above.
  void draw() const;
  // Absent before create().
  const HostObject& button() const { return m_button; }

 protected:
  void createOf(ClassRef buttonClass, const HostObject& superview);

  HostObject m_button;
};

// A button that opens a menu, which it holds.
class vnPopupButton : public vnSettingsButton {
 public:
  static constexpr std::string_view kClass = "vnPopupButton";

  void create(const HostObject& superview, const HostObject& menu);
};

}  // namespace vorn

#pragma once

#include <functional>
#include <utility>

namespace vorn {

// Whom a text field tells that a key was released in it, and that its text has changed. The text itself stands in
// the field's control; a front end forwards what the user does. Main thread only.
class vnKeyUpTextField {
 public:
  using Action = std::function<void()>;

  void setKeyupTarget(Action keyupAction) { m_keyupAction = std::move(keyupAction); }
  void setTextChangeTarget(Action textChangeAction) { m_textChangeAction = std::move(textChangeAction); }

  // Nothing without somebody to tell. The passcode's field listens to its text alone.
  void keyUp() const { tell(m_keyupAction); }
  void textDidChange() const { tell(m_textChangeAction); }

 private:
  static void tell(const Action& action) {
    if (action) action();
  }

  Action m_keyupAction;
  Action m_textChangeAction;
};

}  // namespace vorn

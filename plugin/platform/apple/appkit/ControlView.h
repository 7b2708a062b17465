#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/apple/Ownership.h"
#include "platform/controls/Control.h"

namespace vorn {

// Who hears what the user does in the views of a panel. The call may end the panel with all its views, so a view
// touches nothing of its own behind it. Main thread only.
class ControlInput {
 public:
  virtual ~ControlInput() = default;
  // The key of a control, or of a keyboard command in its field (FieldKeys.h), with what the user makes of the
  // control; null for a click. False when the control did not take it and shows something else than its model.
  virtual bool use(const std::string& key, const std::function<void(Control&)>& change) = 0;
};

// Gives an object of the toolkit up when the toolkit has come back to its usual loop. What ends a panel may run
// while a view of it is being pressed: the toolkit's own calls go on with the view, and a pool of ours would have
// let go.
void letGo(id object);

// What programs say that read the screen aloud. The role is the toolkit's name for one.
struct Spoken {
  std::string label;
  NSString* role = nil;
  std::string help;
  // Of a view that only this project knows the content of.
  std::optional<std::string> value;
};

// One control on the screen: a view that shows what stands in the model, and hands on what the user does to it.
// Measures are in points. Main thread only.
class ControlView {
 public:
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  NSView* view() const { return m_view.get(); }
  // What takes the keyboard; nil for a control that is only looked at.
  virtual NSView* keyView() const { return m_view.get(); }
  // All of it that the keyboard comes to, in their order.
  virtual std::vector<NSView*> keyViews() const;
  const Spoken& spoken() const { return m_spoken; }

  // Shows the control as it is now. `name` is what stands before it in its row.
  void update(const Control& control, const std::string& name);

  // The width without a limit, and the height at a width.
  virtual double naturalWidth() const;
  virtual double heightFor(double width) const;
  // Takes all the room to the right; a control that does not is as wide as it likes to be.
  virtual bool stretches() const { return false; }

 protected:
  // A view of its own, which it takes over.
  ControlView(ControlInput& input, std::string key, NSView* view)
      : m_input(input), m_key(std::move(key)), m_view(Retained<NSView*>::adopted(view)) {}

  virtual void show(const Control& control) = 0;
  virtual NSString* role() const = 0;
  // What stands in it, where the toolkit does not know that itself; nothing where it does.
  virtual std::optional<std::string> spokenValue(const Control&) const { return std::nullopt; }
  // The view that screen readers are told about.
  virtual NSView* spokenView() const { return m_view.get(); }

  ControlInput& input() const { return m_input; }
  const std::string& key() const { return m_key; }

 private:
  ControlInput& m_input;
  std::string m_key;
  Retained<NSView*> m_view;
  Spoken m_spoken;
};

// Null for what draws nothing itself: a box, or a window.
std::unique_ptr<ControlView> makeControlView(const Control& control, ControlInput& input);

// Text that is not typed into, of the given size, on as many lines as it needs. Owned by the caller.
NSTextField* newTextLabel(NSFont* font);
// The height of a text when its lines are that wide.
double heightOfText(NSString* text, NSFont* font, double width);
double widthOfText(NSString* text, NSFont* font);
// The text, or its beginning with an ellipsis where it is wider than that.
NSString* textWithin(NSString* text, NSFont* font, double width);

}  // namespace vorn

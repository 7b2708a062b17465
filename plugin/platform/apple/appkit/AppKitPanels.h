#pragma once

#import <AppKit/AppKit.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/apple/PanelDrawing.h"
#include "platform/apple/appkit/ControlView.h"
#include "platform/apple/appkit/PanelPage.h"

namespace vorn {

// Draws panels in windows of AppKit. There is one drawing for each kind of control, fed by the layout: an option
// that is new to a panel needs nothing here. Main thread only.
class AppKitPanels final : public PanelDrawing {
 public:
  std::unique_ptr<Presenter::Panel> show(id window, std::string_view title, const PanelLayout& layout,
                                         ControlSet& controls, Presenter::PanelInput used) override;
};

// A panel on the screen, for those who look at its views.
class DrawnPanel : public Presenter::Panel {
 public:
  // The window on which it hangs; nil for a panel by itself.
  virtual NSWindow* parent() const = 0;
  // Null for a key that is not there, and for what draws nothing itself.
  virtual const ControlView* view(const std::string& key) const = 0;
  // The page of the window with the key, "" for the sheet; null for none.
  virtual const PanelPage* page(const std::string& windowKey) const = 0;
  // Whether the panel has a control with the key, drawn or not.
  virtual bool holds(const std::string& key) const = 0;
  // The keys of what stands in the box, or in one inside it; empty for any other key.
  virtual std::vector<std::string> inBox(const std::string& key) const = 0;
  // The panels that are open, the youngest last.
  static const std::vector<DrawnPanel*>& open();
};

// By which a program that has loaded the library which draws looks at its panels.
inline constexpr const char* kDrawnPanels = "vornDrawnPanels";
using DrawnPanels = const std::vector<DrawnPanel*>* (*)();

}  // namespace vorn

#pragma once

#include <objc/objc.h>

#include <memory>
#include <string_view>

#include "platform/Presenter.h"

namespace vorn {

// Draws panels with the host's own toolkit. It is apart from the presenter because it has subclasses of the
// toolkit's views, which can only be loaded where there is such a toolkit: a host without one goes without panels.
// Main thread only.
class PanelDrawing {
 public:
  virtual ~PanelDrawing() = default;

  // As Presenter::showPanel(); the window is nil for a panel by itself.
  virtual std::unique_ptr<Presenter::Panel> show(id window, std::string_view title, const PanelLayout& layout,
                                                 ControlSet& controls, Presenter::PanelInput used) = 0;
};

// The one function of the library that draws: the caller owns what it gives.
inline constexpr const char* kMakePanelDrawing = "vornMakePanelDrawing";
using MakePanelDrawing = PanelDrawing* (*)();

}  // namespace vorn

#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/controls/PanelLayout.h"

namespace vorn {

// A panel drawn with the toolkit, for tests that are not written in its language.
class DrawnPanelProbe {
 public:
  struct Seen {
    bool isDrawn = false;
    bool isShown = false;
    bool takesKeyboard = false;
    std::string label;
    std::string role;
    // Whether it lies beside its window's content, or over a control that was looked at before.
    bool isCutOff = false;
    std::string liesOver;
  };

  virtual ~DrawnPanelProbe() = default;
  static std::unique_ptr<DrawnPanelProbe> draw(const PanelLayout& layout, ControlSet& controls,
                                               std::function<void(const std::string& key)> used);

  virtual Seen look(const std::string& key) = 0;
  virtual void press(const std::string& key) = 0;
};

}  // namespace vorn

#pragma once

#include "lab/host/HostScreen.h"
#include "platform/embedded/PanelRecord.h"

namespace vornlab {

// The part of a screen that nobody sees which is about panels: what is shown stands in a record, and what is done
// to it is done to the models themselves. Main thread only.
class RecordedScreen : public HostScreen {
 public:
  // The panels that are open, by the windows that they are sheets of.
  virtual const vorn::PanelRecord& panels() const = 0;

  bool showsPanel(const vorn::HostObject& window) const override { return panels().on(window) != nullptr; }
  std::optional<vorn::Control> look(const vorn::HostObject& window, const std::string& key) const override;
  vorn::ControlUse use(const vorn::HostObject& window, const std::string& key, const PanelDeed& deed) override;
  vorn::ControlUse scroll(const vorn::HostObject& window) override { return panels().scroll(window); }
};

}  // namespace vornlab

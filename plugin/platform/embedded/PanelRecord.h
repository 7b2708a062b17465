#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Presenter.h"
#include "platform/controls/ControlSet.h"
#include "platform/controls/ControlUse.h"
#include "platform/controls/PanelLayout.h"

namespace vorn {

// The panels of a presenter without a screen. Main thread only.
class PanelRecord {
 public:
  std::unique_ptr<Presenter::Panel> show(const HostObject& window, std::string_view title,
                                         const PanelLayout& layout, ControlSet& controls,
                                         Presenter::PanelInput used);

  // The controls of the panel on the window; null when none is open there.
  const ControlSet* on(const HostObject& window) const;
  // Its heading, "" without a panel, and the layout of the controls that it holds now.
  std::string title(const HostObject& window) const;
  PanelLayout layout(const HostObject& window) const;

  using Use = ControlUse;
  // A click on a control, or a key pressed in a field (FieldKeys.h), with what the user makes of it, or nothing.
  Use use(const HostObject& window, const std::string& key,
          const std::function<void(Control&)>& change = nullptr) const;
  // A turn of the wheel over the sheet.
  Use scroll(const HostObject& window) const;

 private:
  class Sheet;

  Sheet* find(const HostObject& window) const;

  // A sheet may outlive its presenter.
  std::shared_ptr<std::vector<Sheet*>> m_open = std::make_shared<std::vector<Sheet*>>();
};

}  // namespace vorn

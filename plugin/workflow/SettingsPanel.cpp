#include "workflow/SettingsPanel.h"

#include "platform/Registry.h"

namespace vorn {

namespace {

struct PanelsInForce {
  SettingsPanels* panels = nullptr;
};

}  // namespace

SettingsPanels* settingsPanels() { return Registry::shared<PanelsInForce>().panels; }

void setSettingsPanels(SettingsPanels* panels) { Registry::shared<PanelsInForce>().panels = panels; }

SettingsPanel* openSettingsPanel(const OptionalText& windowId) {
  SettingsPanels* panels = settingsPanels();
  return panels ? panels->getSchSettingWindowInArray(windowId) : nullptr;
}

}  // namespace vorn

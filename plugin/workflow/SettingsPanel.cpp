#include "workflow/SettingsPanel.h"

#include "platform/Registry.h"

namespace vorn {

namespace {

struct PanelsInForce {
  SettingsPanels* panels = nullptr;
  AlternateHostHistory* history = nullptr;
};

}  // namespace

SettingsPanels* settingsPanels() { return Registry::shared<PanelsInForce>().panels; }

void setSettingsPanels(SettingsPanels* panels) { Registry::shared<PanelsInForce>().panels = panels; }

AlternateHostHistory* alternateHostHistory() { return Registry::shared<PanelsInForce>().history; }

void setAlternateHostHistory(AlternateHostHistory* history) {
  Registry::shared<PanelsInForce>().history = history;
}

std::shared_ptr<SettingsPanel> openSettingsPanel(const OptionalText& windowId) {
  SettingsPanels* panels = settingsPanels();
  return panels ? panels->getSchSettingWindowInArray(windowId) : nullptr;
}

void endSettingsPanel(const OptionalText& windowId) {
  if (SettingsPanels* panels = settingsPanels()) panels->endSettingWindow(windowId);
}

}  // namespace vorn

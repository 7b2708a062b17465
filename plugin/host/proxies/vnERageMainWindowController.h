#pragma once

#include <cstdint>

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The controller of the host's main window. Process-wide: it keeps to a controller as long as that has its window.
class vnERageMainWindowController : public vnDelegateBase {
 public:
  // Tabs of the ribbon.
  static constexpr std::uint32_t kMailTab = 0;
  static constexpr std::uint32_t kCalendarTab = 2;

  vnERageMainWindowController() : vnDelegateBase("ERageMainWindowController", HostObject()) {}
  static vnERageMainWindowController& sharedInstance();

  HostObject window() const { return object("window"); }

  // Takes an object of the right class, unless the one before still has its window on the screen.
  void setDelegate(const HostObject& delegate);
  void connectChild() { initMembers(); }
  // Looks for the ribbon in a visible window; what is not found stays as it was.
  void initMembers();

  const HostObject& ribbonChunkContainerView() const { return m_idOLRibbonChunkContainerView; }
  // The ribbon's active tab; 4294967295 without a ribbon.
  std::uint32_t currentActiveTabIndex() const;
  bool isHomeMailOrCalendarTab() const;
  // Whether the ribbon is there and shows a tab that has our button.
  bool needAddVornButton() const;
  // The window is closing: forgets both views.
  void cleanup();

 private:
  HostObject m_idOLRibbonChunkContainerView;
  HostObject m_idOUIRibbonView;
};

}  // namespace vorn

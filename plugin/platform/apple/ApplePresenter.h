#pragma once

#include <memory>
#include <string>

#include "platform/Presenter.h"
#include "platform/RunLoop.h"
#include "platform/apple/PanelDrawing.h"
#include "platform/apple/ProgressSheets.h"

namespace vorn {

// Alerts and progress sheets made of the host's own classes, which are reached by name: a host without one
// of them shows nothing of that kind, and an alert that cannot be shown is never answered. Panels are drawn by
// whoever can.
class ApplePresenter final : public Presenter {
 public:
  // The run loop outlives this. The folder is the one with the bundle's resources.
  // Without a drawing there are no panels.
  ApplePresenter(RunLoop& runLoop, std::string resources, std::unique_ptr<PanelDrawing> panels);
  ApplePresenter(const ApplePresenter&) = delete;
  ApplePresenter& operator=(const ApplePresenter&) = delete;

  void showAlert(const HostObject& window, const Alert& alert, std::function<void(Answer)> answered) override;
  std::unique_ptr<Progress> beginProgress(std::string_view message) override { return m_sheets.begin(message); }
  bool canShowPanels() const override { return m_panels != nullptr; }
  std::unique_ptr<Panel> showPanel(const HostObject& window, std::string_view title, const PanelLayout& layout,
                                   ControlSet& controls, PanelInput used) override;

 private:
  RunLoop& m_runLoop;
  std::string m_resources;
  ProgressSheets m_sheets;
  std::unique_ptr<PanelDrawing> m_panels;
};

}  // namespace vorn

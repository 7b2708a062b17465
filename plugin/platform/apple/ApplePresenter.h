#pragma once

#include <memory>
#include <string>

#include "platform/Presenter.h"
#include "platform/RunLoop.h"
#include "platform/apple/ProgressSheets.h"

namespace vorn {

// Alerts and progress sheets made of the host's own classes, which are reached by name: a host without one
// of them shows nothing of that kind, and an alert that cannot be shown is never answered. Panels are not drawn
// yet.
class ApplePresenter final : public Presenter {
 public:
  // The run loop outlives this. The folder is the one with the bundle's resources.
  ApplePresenter(RunLoop& runLoop, std::string resources);
  ApplePresenter(const ApplePresenter&) = delete;
  ApplePresenter& operator=(const ApplePresenter&) = delete;

  void showAlert(const HostObject& window, const Alert& alert, std::function<void(Answer)> answered) override;
  std::unique_ptr<Progress> beginProgress(std::string_view message) override { return m_sheets.begin(message); }
  bool canShowPanels() const override { return false; }
  std::unique_ptr<Panel> showPanel(const HostObject&, std::string_view, const PanelLayout&, ControlSet&,
                                   PanelInput) override {
    return nullptr;
  }

 private:
  RunLoop& m_runLoop;
  std::string m_resources;
  ProgressSheets m_sheets;
};

}  // namespace vorn

#pragma once

#include <memory>
#include <string>

#include "platform/Presenter.h"
#include "platform/RunLoop.h"
#include "platform/apple/ProgressSheets.h"

namespace vorn {

// Alerts and progress sheets made of the host's own classes, which are reached by name: a host without one
// of them shows nothing of that kind, and an alert that cannot be shown is never answered.
class ApplePresenter final : public Presenter {
 public:
  // The run loop outlives this. The folder is the one with the bundle's resources.
  ApplePresenter(RunLoop& runLoop, std::string resources);
  ApplePresenter(const ApplePresenter&) = delete;
  ApplePresenter& operator=(const ApplePresenter&) = delete;

  void showAlert(const HostObject& window, const Alert& alert, std::function<void(Answer)> answered) override;
  std::unique_ptr<Progress> beginProgress(std::string_view message) override { return m_sheets.begin(message); }

 private:
  RunLoop& m_runLoop;
  std::string m_resources;
  ProgressSheets m_sheets;
};

}  // namespace vorn

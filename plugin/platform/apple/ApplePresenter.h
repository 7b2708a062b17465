#pragma once

#include <map>
#include <memory>

#include "platform/Presenter.h"
#include "platform/RunLoop.h"

namespace vorn {

// Alerts, the progress panel and views made of the host's own classes, which are reached by name: a host without
// one of them shows nothing of that kind, and an alert that cannot be shown is never answered.
class ApplePresenter final : public Presenter {
 public:
  // The run loop outlives this.
  explicit ApplePresenter(RunLoop& runLoop) : m_runLoop(runLoop) {}
  ~ApplePresenter() override;
  ApplePresenter(const ApplePresenter&) = delete;
  ApplePresenter& operator=(const ApplePresenter&) = delete;

  void showAlert(const HostObject& window, const Alert& alert, std::function<void(Answer)> answered) override;
  void beginProgress(std::string_view message) override;
  void endProgress() override;
  // A class that the host does not know yet is made below its "NSView".
  HostObject createView(std::string_view className, const Rect& frame) override;
  void releaseView(const HostObject& view) override;

 private:
  RunLoop& m_runLoop;
  // Retained.
  void* m_progressPanel = nullptr;
  // Each view keeps a hold of its own until it is released.
  std::map<HostObject, std::shared_ptr<void>> m_views;
};

}  // namespace vorn

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#import "lab/desktop/AlertWatch.h"
#include "lab/host/HostScreen.h"
#include "platform/apple/appkit/AppKitPanels.h"

namespace vornlab {

// The screen before which nobody sits: a person of ours reads and answers each alert while this lives, and looks
// at the panels as they are drawn. Main thread only.
class DesktopScreen final : public HostScreen {
 public:
  // The library of the bundle that draws, which is loaded with the first panel; and where pictures go.
  DesktopScreen(std::filesystem::path drawing, std::filesystem::path pictures);
  ~DesktopScreen() override;
  DesktopScreen(const DesktopScreen&) = delete;
  DesktopScreen& operator=(const DesktopScreen&) = delete;

  std::vector<std::string> alertMessages() const override;
  void answerNext(vorn::Presenter::Answer answer) override { m_desk.answers.push_back(answer); }
  bool showsProgress() const override;
  bool showsPanel(const vorn::HostObject& window) const override { return panelOn(window) != nullptr; }
  std::optional<vorn::Control> look(const vorn::HostObject& window, const std::string& key) const override;
  vorn::ControlUse use(const vorn::HostObject& window, const std::string& key, const PanelDeed& deed) override;
  vorn::ControlUse scroll(const vorn::HostObject& window) override;
  void takePicture(const std::string& name) override;

 private:
  const vorn::DrawnPanel* panelOn(const vorn::HostObject& window) const;

  std::filesystem::path m_drawing;
  std::filesystem::path m_pictures;
  AlertDeskOfPerson m_desk;
  vnAlertWatch* m_watch;
};

}  // namespace vornlab

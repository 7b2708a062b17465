#pragma once

#include <functional>
#include <memory>
#include <string>

#include "settings/SchSettingWndCtrlMgr.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/RecordingClient.h"

namespace vorn {

// An appointment window with a client that answers nothing by itself, and the settings panel on it as its user
// opens, uses and closes it. Whose account it is, is told to vnUserProfileHelper before it is opened.
class PanelWindow {
 public:
  using Use = PanelRecord::Use;

  // The folder with the texts; without one each text is its key.
  explicit PanelWindow(const std::string& resources = "") {
    test.surroundings.resourceFolder = resources;
    defineWindowClasses(test.classRuntime);
    WorkflowDirectory::sharedInstance().install();
    RecordingClient::install(test);
    panels.install();
    window = std::make_unique<FakeWindow>(test);
  }
  PanelWindow(const PanelWindow&) = delete;
  PanelWindow& operator=(const PanelWindow&) = delete;

  std::string id() const { return window->bar->ownWindow.windowId(); }
  void open() { openOn(*window); }
  // The panel of another window; answers that one's id.
  std::string openOn(const FakeWindow& any) {
    const std::string windowId = any.bar->ownWindow.windowId();
    panels.addSchSettingWindowToArray(windowId, Value(), any.bar->ownWindow);
    panels.showSchSettingWindow(windowId);
    return windowId;
  }
  void close() { panels.endSettingWindow(id()); }

  // Null while it is not on the screen.
  const ControlSet* shown() const { return test.presenter.panels().on(window->bar->ownWindow); }
  PanelLayout layout() const { return test.presenter.panels().layout(window->bar->ownWindow); }
  Use click(const std::string& key, const std::function<void(Control&)>& change = nullptr) {
    return test.presenter.panels().use(window->bar->ownWindow, key, change);
  }

  TestPlatform test;
  SchSettingWndCtrlMgr& panels = SchSettingWndCtrlMgr::sharedInstance();
  std::unique_ptr<FakeWindow> window;
};

}  // namespace vorn

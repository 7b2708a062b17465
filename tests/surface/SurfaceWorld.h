#pragma once

#include <gtest/gtest.h>

#include <string>

#include "host/proxies/HostViews.h"
#include "host/surface/HookInstaller.h"
#include "host/surface/vnActionAdditionView.h"
#include "platform/Registry.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestPlatform.h"
#include "workflow/WorkflowDirectory.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnApptUIActionMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"

namespace vorn {

// A host of a given version with one editor: window, header view, editor and event, as far as hooks and bar ask.
class SurfaceWorld : public testing::Test {
 protected:
  SurfaceWorld() {
    setHostVersion("16.78");
    WorkflowDirectory::sharedInstance().install();
    vnApptUIActionMgr::sharedInstance().setBarFactory(
        [](const HostObject& headerView) { vnActionAdditionView::create(headerView); });
    host.teach("ERCalendarEventEditorViewController", {"setIsDirty:"});
    world.classRuntime.defineClass("NSView");
    world.classRuntime.setInstanceMethod(
        "NSView", "initWithFrame:", [](const HostObject& self, const Arguments&) { return Value(self); });
    world.classRuntime.defineClass("vnActionAdditionView", "NSView");
    host.teach("vnActionAdditionView", {"window", "superview", "frame", "setFrame:", "setNeedsDisplay:"});
    world.classRuntime.setInstanceMethod("vnActionAdditionView", "window",
                                         [this](const HostObject& view, const Arguments&) -> Value {
                                           return inHeader.address() == view.address() ? Value(window) : Value();
                                         });
    world.classRuntime.setInstanceMethod("vnActionAdditionView", "removeFromSuperview",
                                         [this](const HostObject&, const Arguments&) -> Value {
                                           inHeader = {};
                                           return {};
                                         });
    host.set(header, "addSubview:", Value());
    world.classRuntime.setInstanceMethod("OLAutoLayoutAttachmentsAcceptingView", "addSubview:",
                                         [this](const HostObject&, const Arguments& arguments) -> Value {
                                           inHeader = arguments.at(0).object();
                                           return {};
                                         });
    host.set(event, "isOwner", true);
    host.set(event, "account", host.object("ECAccount"));
    host.set(editor, "isDirty", true);
  }

  // A bar that ends leaves its header, which is still there then.
  ~SurfaceWorld() override { Registry::reset(); }

  void setHostVersion(const std::string& version) {
    world.workspace.installed["com.microsoft.Outlook"] = "/Outlook.app";
    world.workspace.propertyLists["/Outlook.app/Contents/Info.plist"] =
        Value(Value::Dictionary{{"CFBundleShortVersionString", version}});
  }
  Value opened() const {
    return Value(Value::Dictionary{{"keyECCalendarEvent", event},
                                   {"keyERCalendarEventEditorWindowController", controller}});
  }
  std::shared_ptr<vnActionAdditionView> makeBar() { return vnActionAdditionView::create(header); }
  static std::string recordOf(const std::string& key) { return "{\"meetingKey\": \"" + key + "\"}"; }
  // A bar whose editor has opened, with a meeting or without.
  std::shared_ptr<vnActionAdditionView> openedBar(const std::string& key = "") {
    const auto bar = makeBar();
    if (!key.empty()) host.set(event, "olmUCInband", recordOf(key));
    vnActionAdditionView::onChangeUINotification(opened());
    return bar;
  }
  static std::shared_ptr<vnMeetingMgr> managerOf(const std::shared_ptr<vnActionAdditionView>& bar) {
    return vnMeetingMgrMonitor::getMeetingMgrByVnView(bar.get());
  }
  std::shared_ptr<vnActionAdditionView> barOfWindow() const {
    return vnActionAdditionView::from(
        vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByWindow(window));
  }
  void closeWindow(const HostObject& closing) {
    world.notificationCenter.post("NSWindowWillCloseNotification",
                                  reinterpret_cast<const void*>(closing.address()),
                                  Value(Value::Dictionary{{"object", closing}}));
  }

  TestPlatform world;
  FakeHost host{world.classRuntime};
  // The view that stands in the header now.
  HostObject inHeader;
  const FakeEditor shown = FakeEditor::open(host);
  const HostObject event = shown.event, window = shown.ownWindow, editor = shown.editor,
                   controller = shown.windowController;
  HostObject header = host.object("OLAutoLayoutAttachmentsAcceptingView");
};

}  // namespace vorn

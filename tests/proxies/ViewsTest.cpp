#include <gtest/gtest.h>

#include "host/proxies/HostViews.h"
#include "host/proxies/vnCCEventTitleView.h"
#include "host/proxies/vnERageMainWindowController.h"
#include "host/proxies/vnOLAutoLayoutAttachmentsAcceptingView.h"
#include "host/proxies/vnOLCalendarGridViewWrapper.h"
#include "host/proxies/vnOUIRibbonChunkContainerView.h"
#include "host/proxies/vnOUIRibbonView.h"
#include "host/proxies/vnOlkModernAttachmentsViewController.h"
#include "tests/proxies/FakeOwners.h"
#include "tests/support/FakeHost.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

class Views : public testing::Test {
 protected:
  HostObject view(const std::string& className, std::initializer_list<Value> subviews = {}) {
    return host.object(className, {{"subviews", Value(Value::Array(subviews))}});
  }

  TestPlatform world;
  FakeHost host{world.classRuntime};
  FakeOwners owners;
};

TEST_F(Views, TheMainWindowKeepsToItsFirstControllerAndFindsItsRibbon) {
  const HostObject ribbon = view("OUIRibbonView");
  host.set(ribbon, "activeTabIndex", 2);
  const HostObject container = view("OUIRibbonChunkContainerView", {view("OUIRibbonChunkContainerView")});
  const HostObject content = view("NSView", {view("NSView", {container}), ribbon});
  const HostObject window = host.object("NSWindow", {{"isVisible", true}, {"contentView", content}});
  const HostObject controller = host.object("ERageMainWindowController", {{"window", window}});

  vnERageMainWindowController& mainWindow = vnERageMainWindowController::sharedInstance();
  EXPECT_EQ(mainWindow.currentActiveTabIndex(), 4294967295u);
  EXPECT_FALSE(mainWindow.isHomeMailOrCalendarTab());
  mainWindow.setDelegate(window);
  EXPECT_FALSE(mainWindow.delegate());
  mainWindow.setDelegate(controller);
  mainWindow.setDelegate(host.object("ERageMainWindowController"));
  EXPECT_EQ(mainWindow.delegate(), controller);
  EXPECT_EQ(mainWindow.ribbonChunkContainerView(), container);
  EXPECT_TRUE(vnOUIRibbonView(ribbon).isValidConnection() && !vnOUIRibbonView(container).isValidConnection());
  EXPECT_TRUE(vnOUIRibbonChunkContainerView(container).isValidConnection());

  const std::pair<int, bool> tabs[] = {{0, true}, {1, false}, {2, true}, {3, false}};
  for (const auto& [tab, expected] : tabs) {
    host.set(ribbon, "activeTabIndex", tab);
    EXPECT_EQ(mainWindow.isHomeMailOrCalendarTab(), expected) << tab;
  }
  host.set(window, "isVisible", false);
  EXPECT_FALSE(mainWindow.isHomeMailOrCalendarTab()) << "in a window that does not show no ribbon is looked for";
  host.set(window, "isVisible", true);
  mainWindow.cleanup();
  EXPECT_FALSE(mainWindow.isHomeMailOrCalendarTab());
}

TEST_F(Views, AmongSeveralGridsTheOneWithASelectedEventCounts) {
  const HostObject idle = host.object("CCGridViewController", {{"selectedEvent", Value()}});
  const HostObject busy = host.object("CCGridViewController", {{"selectedEvent", host.object("ECCalendarEvent")}});
  const HostObject stranger = host.object("Other", {{"selectedEvent", idle}});
  const HostObject wrapper = host.object("OLCalendarGridViewWrapper",
                                         {{"gridViewControllers", Value(Value::Array{stranger, idle, busy})}});
  EXPECT_EQ(vnOLCalendarGridViewWrapper(wrapper).gridViewController(), busy);
  host.set(wrapper, "gridViewController", idle);
  EXPECT_EQ(vnOLCalendarGridViewWrapper(wrapper).gridViewController(), idle);
}

TEST_F(Views, AttachmentsHaveTheDefaultHeightWithoutASuitableController) {
  const HostObject model = host.object("OlkAttachmentViewModel");
  const HostObject source = host.object("Source", {{"attachmentList", Value(Value::Array{model})}});
  const HostObject tall =
      host.object("NSView", {{"frame", valueFromRect({0, 0, 300, 88})}, {"setFrame:", Value()}});
  const HostObject controller =
      host.object("OlkModernAttachmentsViewController", {{"view", tall}, {"dataSource", source}});
  const HostObject owner = host.object("RecordViewController", {{"attachmentsController", controller}});
  const HostObject header = host.object("OLAutoLayoutAttachmentsAcceptingView", {{"recordViewController", owner}});

  const vnOLAutoLayoutAttachmentsAcceptingView proxy(header);
  EXPECT_TRUE(proxy.hasAttachments());
  EXPECT_EQ(proxy.getAttachmentsViewHeight(), 88);
  setFrameOf(tall, {1, 2, 3, 44});
  EXPECT_EQ(host.get(tall, "frame"), valueFromRect({1, 2, 3, 44}));
  EXPECT_EQ(frameOf(tall).x + frameOf(tall).y + frameOf(tall).width, 6);
  host.set(controller, "view", Value());
  host.set(source, "attachmentList", Value(Value::Array{source}));
  EXPECT_FALSE(proxy.hasAttachments());
  EXPECT_EQ(proxy.getAttachmentsViewHeight(), 0);
  host.set(owner, "attachmentsController", header);
  EXPECT_EQ(proxy.getAttachmentsViewHeight(), 52);
}

}  // namespace
}  // namespace vorn

// The controls at the stand-in host: the bar's buttons, the ribbon's button and the toolbar's items.

#include <gtest/gtest.h>

#include <optional>

#include "channel/transport/vnIPCConstants.h"
#include "host/proxies/HostViews.h"
#include "host/proxies/vnERageMainWindowController.h"
#include "host/surface/HookInstaller.h"
#include "host/surface/MainWindowRibbon.h"
#include "host/surface/MainWindowToolbar.h"
#include "host/surface/vnActionAdditionView.h"
#include "host/surface/vnPopupToolbarView.h"
#include "host/surface/vnToolbarItemMgr.h"
#include "lab/outlook/OutlookHost.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "tests/support/TestPlatform.h"
#include "workflow/ThreadDictionary.h"
#include "workflow/vnMeetingMgr.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

using vornlab::OutlookHost;

class MainWindowControls : public testing::Test {
 protected:
  // A fresh world each time.
  void start(const OutlookHost::Options& options = {}, const char* version = "16.78",
             Surroundings::Version system = {14, 2, 0}) {
    end();
    world.emplace();
    world->surroundings.version = system;
    world->workspace.installed["com.microsoft.Outlook"] = "/Outlook.app";
    world->workspace.propertyLists["/Outlook.app/Contents/Info.plist"] =
        Value(Value::Dictionary{{"CFBundleShortVersionString", version}});
    world->surroundings.resourceFolder = std::string(VORN_PLUGIN_FOLDER) + "/resources";
    host = std::make_unique<OutlookHost>(world->classRuntime, world->runLoop, world->notificationCenter, options);
    host->defineClasses();
    HookInstaller::sharedInstance().load();
    host->openMainWindow();
    wait();
  }
  ~MainWindowControls() override { end(); }
  // What ends of ours still asks the host.
  void end() {
    Registry::reset();
    host.reset();
    world.reset();
  }
  void wait() {
    world->runLoop.runUntil([] { return false; }, 0.02);
  }
  HostObject container() {
    const Value windows = askHost(hostApplication(), "windows");
    return firstSubviewOfKind(askHost(windows.at(0).object(), "contentView").object(),
                              "OUIRibbonChunkContainerView");
  }
  std::size_t buttons() {
    std::size_t count = 0;
    for (const HostObject& view : subviewsOf(container())) count += isExactlyOfHostClass(view, "vnPopupButton");
    return count;
  }
  HostObject senderWithTag(const Value& tag) {
    const HostObject sender = world->classRuntime.create("NSMenuItem");
    world->classRuntime.send(sender, "setTag:", {tag});
    return sender;
  }
  std::uint64_t lastCommand() { return vnMeetingMgr::sharedInstance()->getMeetingAction(); }

  std::optional<TestPlatform> world;
  std::unique_ptr<OutlookHost> host;
};

TEST_F(MainWindowControls, EveryHookStands) {
  start();
  for (const HookState& state : HookInstaller::sharedInstance().states()) {
    EXPECT_EQ(nameOfHookStanding(state.standing), "stands") << state.row->addedSelector();
  }
}

TEST_F(MainWindowControls, OneButtonStandsBehindTheChunksHoweverOftenTheyAreBuilt) {
  start();
  for (int i = 0; i < 50; ++i) {
    i % 2 == 0 ? host->showMailPane() : host->showCalendarPane();
    if (i % 7 == 0) host->rebuildRibbon();
    if (i % 3 == 0) wait();
  }
  wait();
  EXPECT_EQ(buttons(), 1U);
  const std::vector<HostObject> views = subviewsOf(container());
  Rect button;
  double edge = 0;
  for (const HostObject& view : views) {
    const Rect frame = frameOf(view);
    if (isExactlyOfHostClass(view, "vnPopupButton")) {
      button = frame;
    } else {
      edge = std::max(edge, frame.x + frame.width);
    }
  }
  EXPECT_EQ(button, (Rect{edge, 0, 60, 60}));
  for (const HostObject& view : views) askHost(view, "removeFromSuperview");
  initVnRibbonView();
  EXPECT_EQ(frameOf(firstSubviewOfKind(container(), "vnPopupButton")), (Rect{0, 0, 60, 60})) << "no chunk is left";
}

TEST_F(MainWindowControls, PanesThatLoadOneAfterTheOtherLeadToOneLook) {
  start();
  const std::size_t before = world->runLoop.waiting();
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(world->classRuntime.send(container(), "drawRect:", {Value()}), Value(true));
  }
  EXPECT_EQ(world->runLoop.waiting(), before + 1);
  host->closeMainWindow();
  world->runLoop.runDue();
  EXPECT_EQ(world->runLoop.waiting(), before) << "a window that closes takes it along";
}

TEST_F(MainWindowControls, TheRibbonsMenuDoesWhatItSays) {
  start();
  EXPECT_EQ(host->ribbonControl("onClickAbout:").toolTip, "Schedule or start a Vorn meeting");
  const std::pair<const char*, std::uint64_t> starts[] = {{"onClickStartMeetingWithVideo:", 9},
                                                          {"onClickStartMeetingWithoutVideo:", 10}};
  for (const auto& [action, command] : starts) {
    EXPECT_TRUE(host->clickRibbon(action));
    EXPECT_EQ(lastCommand(), command);
  }
  EXPECT_TRUE(host->clickRibbon("onClickAbout:"));
  EXPECT_EQ(world->distributedNotifications.posted.back().name, kIPCPluginOpenAboutDialog);
  EXPECT_TRUE(host->clickRibbon("onClickScheduleMeeting:"));
  EXPECT_TRUE(ThreadDictionary::sharedInstance()[keyFlagAutoAddToVnMeeting].boolValue());
}

TEST_F(MainWindowControls, EachItemOfTheToolbarShowsItsName) {
  start();
  const struct {
    const char *identifier, *label, *image, *toolTip;
  } rows[] = {
      {"VNStartToolbarItem", "Start Meeting", "Start_Meeting_normal_32", "Start a Vorn meeting now"},
      {"VNScheduleToolbarItem", "Schedule Meeting", "Schedule_Meeting_normal_32", "Schedule a Vorn meeting"},
      {"VNSchedulePACToolbarItem", "Schedule Audio Conference", "Schedule_PACMeeting_32",
       "Schedule a meeting with your personal audio conference"},
      {"VNOpenLogFolder", "Open Log Folder", "OpenLogFolder_normal_32", "Open the folder with the plug-in’s logs"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.identifier);
    ASSERT_TRUE(host->addToolbarItem(row.identifier));
    const HostObject item = vnToolbarItemMgr::sharedInstance().itemForIdentifier(row.identifier, {});
    EXPECT_EQ(askHost(item, "label").text(), row.label);
    EXPECT_EQ(askHost(item, "paletteLabel").text(), "Vorn");
    EXPECT_EQ(askHost(item, "toolTip").text(), row.toolTip);
    EXPECT_EQ(askHost(askHost(item, "image").object(), "name").text(), row.image);
  }
  EXPECT_FALSE(host->addToolbarItem("SomebodyElses")) << "what is not ours is the host's to make";

  EXPECT_TRUE(host->clickToolbar({"onContextMenuAction_Start:", 0}));
  EXPECT_EQ(lastCommand(), 0U) << "the menu closes first";
  world->runLoop.runDue();
  EXPECT_EQ(lastCommand(), 9U);
  EXPECT_TRUE(host->clickToolbar({"onContextMenuAction_SchedulePAC:", 0}));
  const auto isLeft = [] {
    return ThreadDictionary::sharedInstance()[keyFlagVnMeetingArgument][vn_PAC_Setting_PACAccountNo] == Value(1);
  };
  EXPECT_TRUE(world->runLoop.runUntil(isLeft, 1));
}

TEST_F(MainWindowControls, ATagThatNoEntryHasDoesNothing) {
  start();
  vnToolbarItemMgr& items = vnToolbarItemMgr::sharedInstance();
  for (const Value& tag : {Value(2), Value(-1), Value(), Value("0")}) {
    items.onContextMenuAction_Start(senderWithTag(tag));
    items.onContextMenuAction_SchedulePAC(senderWithTag(tag));
  }
  items.onContextMenuAction_Start({});
  world->runLoop.runDue();
  EXPECT_EQ(lastCommand(), 0U);
  EXPECT_TRUE(ThreadDictionary::sharedInstance()[keyFlagAutoAddToPACMeeting].isAbsent());
}

TEST_F(MainWindowControls, AnItemIsForAHostAndASystemThatAreNewEnough) {
  const struct {
    const char* host;
    Surroundings::Version system;
    bool isEnabled, saysTooOld;
  } rows[] = {
      {"16.78", {14, 2, 0}, true, false}, {"14.1.3", {14, 2, 0}, false, false}, {"16.78", {10, 6, 0}, true, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.host);
    start({}, row.host, row.system);
    vnToolbarItemMgr& items = vnToolbarItemMgr::sharedInstance();
    for (const HostObject& item : {items.VNStartToolbarItem(), items.VNScheduleToolbarItem(),
                                   items.vnSchedulePACToolbarItem(), items.VNOpenLogFolderToolbarItem()}) {
      askHost(item, "validate");
      EXPECT_EQ(askHost(item, "isEnabled"), Value(row.isEnabled));
      EXPECT_EQ(askHost(item, "toolTip").text() == localizedString("OSVersionTooLow"), row.saysTooOld);
    }
  }
}

TEST_F(MainWindowControls, AToolbarThatRefusesOurItemGetsNoSeparatorForIt) {
  OutlookHost::Options options;
  options.toolbar = {"OLNewItem", "NSToolbarSeparatorItem", "NSToolbarFlexibleSpaceItem"};
  for (const bool hasToolbar : {true, false}) {
    options.hasToolbar = hasToolbar;
    start(options, "14.1.0");
    addUIToMainWindow(m_scheduleMeetingItemIdentifier);
    EXPECT_EQ(host->toolbarItems(), hasToolbar ? options.toolbar : std::vector<std::string>());
  }
}

TEST_F(MainWindowControls, AnItemHasOnePlaceAndAnotherToolbarGetsAnotherOne) {
  start();
  vnToolbarItemMgr& items = vnToolbarItemMgr::sharedInstance();
  using Items = vnToolbarItemMgr;
  const std::pair<const char*, const HostObject& (Items::*)()> rows[] = {
      {"VNStartToolbarItem", &Items::VNStartToolbarItem},
      {"VNScheduleToolbarItem", &Items::VNScheduleToolbarItem},
      {"VNSchedulePACToolbarItem", &Items::vnSchedulePACToolbarItem},
      {"VNOpenLogFolder", &Items::VNOpenLogFolderToolbarItem}};
  for (const auto& [identifier, kept] : rows) {
    SCOPED_TRACE(identifier);
    ASSERT_TRUE(host->addToolbarItem(identifier));
    const HostObject other = world->classRuntime.create("NSToolbar");
    const HostObject first = (items.*kept)();
    const HostObject shownIn = askHost(first, "toolbar").object();
    EXPECT_FALSE(first == items.itemForIdentifier(identifier, other)) << "the first stands somewhere else";
    EXPECT_EQ(items.itemForIdentifier(identifier, shownIn), first);
    const HostObject second = items.itemForIdentifier(identifier, other);
    EXPECT_EQ(askHost(second, "action").text(), askHost(first, "action").text());
    const HostObject inWords = askHost(first, "menuFormRepresentation").object();
    EXPECT_EQ(askHost(inWords, "submenu"), askHost(askHost(first, "view").object(), "menu"));
    EXPECT_EQ(askHost(inWords, "title").text(), inWords ? askHost(first, "label").text() : "");
  }
  // In a toolbar that shows words the item itself opens its menu.
  const HostObject start = items.VNStartToolbarItem();
  EXPECT_TRUE(host->clickToolbar({"onContextMenuAction_Start:", 0}));
  EXPECT_EQ(askHost(start, "action").text(), "popupStartContextMenu:");
  EXPECT_EQ(askHost(items.vnSchedulePACToolbarItem(), "action").text(), "popupSchedulePACContextMenu:");
}

TEST_F(MainWindowControls, AMenuOpensBelowTheViewThatIsPressedOrWhoseItemIsClicked) {
  start();
  struct Opened {
    std::string menu;
    HostObject view;
    double y = -1;
  } opened;
  world->classRuntime.setInstanceMethod(
      "NSMenu",
      "popUpMenuPositioningItem:atLocation:inView:", [&](const HostObject& menu, const Arguments& arguments) {
        opened = {askHost(menu, "title").text(), arguments.at(2).object(), arguments.at(1)["y"].realValue()};
        return Value(true);
      });
  vnToolbarItemMgr& items = vnToolbarItemMgr::sharedInstance();
  const auto bar = vnActionAdditionView::create(world->classRuntime.create("NSView"));
  const struct {
    HostObject item;
    const char* menu;
    double height;
  } rows[] = {{items.VNStartToolbarItem(), "vnStartMeetingMenu", 32},
              {items.vnSchedulePACToolbarItem(), "vnSchedulePACMeetingMenu", 32},
              {firstSubviewOfKind(container(), "vnPopupButton"), "Vorn", 60},
              {bar->addPACButton().button(), "vnSchedulePACMeetingMenu", 28}};
  for (const bool isFlipped : {false, true}) {
    world->classRuntime.setInstanceMethod(
        "NSView", "isFlipped", [isFlipped](const HostObject&, const Arguments&) { return Value(isFlipped); });
    for (const auto& [item, menu, height] : rows) {
      SCOPED_TRACE(menu);
      const HostObject inItem = askHost(item, "view").object();
      const HostObject view = inItem ? inItem : item;
      for (const bool isPressed : {true, false}) {
        opened = {};
        if (isPressed) {
          askHost(view, "mouseDown:", {Value()});
        } else {
          askHost(askHost(item, "target").object(), askHost(item, "action").text(), {item});
        }
        EXPECT_EQ(opened.menu, menu);
        EXPECT_EQ(opened.view, view);
        EXPECT_EQ(opened.y, isFlipped ? height : 0);
      }
    }
  }
}

TEST_F(MainWindowControls, WhatTheHostKeepsOfOursIsHarmlessAfterItsEndAndWorksAfterTheNextStart) {
  start();
  ASSERT_TRUE(host->addToolbarItem("VNScheduleToolbarItem"));
  const HostObject button = firstSubviewOfKind(container(), "vnPopupButton");
  const Platform ports = Registry::platform();
  Registry::reset();
  EXPECT_FALSE(host->clickRibbon("onClickStartMeetingWithVideo:"));
  host->clickToolbar("onClickScheduleVornMeeting:");
  world->classRuntime.send(button, "mouseDown:", {Value()});

  Registry::install(ports);
  const Value windows = askHost(hostApplication(), "windows");
  vnERageMainWindowController::sharedInstance().setDelegate(
      askHost(windows.at(0).object(), "windowController").object());
  initVnRibbonView();
  EXPECT_EQ(buttons(), 1U);
  EXPECT_TRUE(host->clickRibbon("onClickStartMeetingWithVideo:"));
  EXPECT_EQ(lastCommand(), 9U);
}

TEST_F(MainWindowControls, TheBarsButtonsStandWhereThereIsRoom) {
  const struct {
    const char *action, *title, *image, *toolTip;
    double left, width, narrowLeft, narrowWidth;
  } rows[] = {
      {"onClickAddVornMeeting:", "Add Vorn Meeting", "Schedule_Meeting_normal_32", "Schedule a Vorn meeting", 0,
       190, 0, 95},
      {"onClickCancelVornMeeting:", "Cancel Vorn Meeting", "Cancel_Meeting_normal",
       "Make this an appointment without a Vorn meeting", 0, 190, 0, 95},
      {"onClickChangeSettings:", "Meeting Settings", "Settings_normal", "", 195, 190, 97.5, 95},
      {"onClickAddPACAccount1:", "Schedule Audio Conference", "Schedule_PACMeeting_32",
       "Schedule a meeting with your personal audio conference", 195, 190, 97.5, 95},
  };
  start();
  const HostObject header = world->classRuntime.create("NSView");
  const auto bar = vnActionAdditionView::create(header);
  ASSERT_TRUE(bar);
  for (const bool isNarrow : {false, true}) {
    if (isNarrow) bar->layOut(192.5);
    for (const auto& row : rows) {
      SCOPED_TRACE(row.action);
      HostObject button;
      for (const HostObject& view : subviewsOf(bar->view())) {
        const bool opensIt = askHost(askHost(view, "menu").object(), "itemArray").at(0).isObject();
        if (askHost(view, "action").text() == row.action || (opensIt && row.image[9] == 'P')) button = view;
      }
      ASSERT_TRUE(button);
      EXPECT_EQ(askHost(button, "title").text(), row.title);
      EXPECT_EQ(askHost(askHost(button, "image").object(), "name").text(), row.image);
      EXPECT_EQ(askHost(button, "toolTip").text(), row.toolTip);
      EXPECT_EQ(askHost(button, "imagePosition"), 2) << "left of the title";
      const Rect expected =
          isNarrow ? Rect{row.narrowLeft, 2, row.narrowWidth, 28} : Rect{row.left, 2, row.width, 28};
      EXPECT_EQ(frameOf(button), expected);
    }
  }
  const Value accounts = askHost(askHost(bar->addPACButton().button(), "menu").object(), "itemArray");
  for (const int account : {1, 2}) {
    EXPECT_EQ(askHost(accounts.at(account - 1).object(), "title").text(),
              "Audio Conference Account " + std::to_string(account));
  }
  bar->enableChangeSettingButton(false);
  bar->onUIChanged(VnUINotMeeting);
  EXPECT_TRUE(bar->addButton().hidden && bar->addPACButton().hidden) << "no editor is known yet";
}

TEST_F(MainWindowControls, APressOnTheImageIsAPressOnItsView) {
  start();
  const HostObject view = makePopupToolbarView({10, 20, 32, 32}, "Start_Meeting_normal_32", {});
  const std::pair<std::pair<double, double>, bool> rows[] = {{{10, 20}, true},  {{41, 51}, true},
                                                             {{42, 30}, false}, {{9, 30}, false},
                                                             {{20, 52}, false}, {{20, 19}, false}};
  for (const auto& [point, isHit] : rows) {
    const Value at = Value::dictionaryFromPairs({{"x", point.first}, {"y", point.second}});
    EXPECT_EQ(askHost(view, "hitTest:", {at}).object() == view, isHit) << point.first << " " << point.second;
  }
  const HostObject image = askHost(firstSubviewOfKind(view, "NSImageView"), "image").object();
  EXPECT_EQ(askHost(image, "name").text(), "Start_Meeting_normal_32");
  askHost(view, "setImage:", {image});
  EXPECT_EQ(subviewsOf(view).size(), 1U);
}

}  // namespace
}  // namespace vorn

#include <stdexcept>

#include "host/surface/ActionBarPlacement.h"
#include "tests/surface/SurfaceWorld.h"

namespace vorn {
namespace {

TEST(ActionBarPlacement, KeepsTheRightEdgeUntilTheLeastPositionAndThenShrinks) {
  struct {
    double headerWidth;
    bool hasTimezone;
    Rect expected;
  } const cases[] = {
      {1200, true, {790, 13, 400, 30}}, {1200, false, {790, -10, 400, 30}}, {870, true, {460, 13, 400, 30}},
      {869, true, {460, 13, 399, 30}},  {500, false, {460, -10, 30, 30}},   {300, true, {460, 13, 0, 30}},
  };
  for (const auto& c : cases) {
    const Rect frame = actionBarFrame({7, 7, c.headerWidth, 100}, {0, 0, 10, 30}, c.hasTimezone);
    EXPECT_EQ(valueFromRect(frame), valueFromRect(c.expected)) << c.headerWidth;
  }
}

class Bar : public SurfaceWorld {
 protected:
  std::string shown(const std::shared_ptr<vnActionAdditionView>& bar) {
    return std::string(bar->addButton().hidden ? "-" : "A") + (bar->cancelButton().hidden ? "-" : "C") +
           (bar->changeButton().hidden ? "-" : "S");
  }
};

TEST_F(Bar, HidesForWhatMayHaveNoMeetingOfItsOwnButKeepsItsStatus) {
  struct {
    const char* why;
    bool isCancelMode, isOwner;
    // The meeting of the series that it is an occurrence of.
    const char *seriesKey, *expected;
  } const cases[] = {
      {"a meeting of one's own", false, true, nullptr, "-CS"},
      {"a cancellation", true, true, nullptr, "---"},
      {"somebody else's", false, false, nullptr, "---"},
      {"an occurrence of the series' meeting", false, true, "123", "---"},
      {"an occurrence with its own", false, true, "9", "-CS"},
  };
  const auto bar = openedBar("123");
  const HostObject series = host.object("ECCalendarEvent");
  host.set(event, "seriesMasterRecord", series);
  for (const auto& c : cases) {
    host.set(editor, "isCancelMode", c.isCancelMode);
    host.set(editor, "isOccurrenceOrException", c.seriesKey != nullptr);
    host.set(event, "isOccurrence", c.seriesKey != nullptr);
    if (c.seriesKey) host.set(series, "olmUCInband", recordOf(c.seriesKey));
    host.set(event, "isOwner", c.isOwner);
    vnActionAdditionView::onChangeUINotification(opened());
    EXPECT_EQ(shown(bar), c.expected) << c.why;
    EXPECT_EQ(bar->vnUIStatusNow(), VnUIMeeting) << c.why;
    const bool blocks = std::string(c.expected) == "---" && !c.isCancelMode;
    EXPECT_EQ(bar->blockDeleteVornMeeting(), blocks) << c.why;
  }
}

TEST_F(Bar, SaysWhatASaveHasToDo) {
  struct {
    const char *why, *key;
    int shown;
    bool cancelMode, stored, dirty;
    int expected;
  } const cases[] = {
      {"a stored meeting, changed or not", "1", VnUIMeeting, false, true, false, VnDataChanged},
      {"a new meeting that was touched", "1", VnUIMeeting, false, false, true, VnDataChanged},
      {"a new meeting as it was made", "1", VnUIMeeting, false, false, false, VnDataNone},
      {"a meeting that the bar no longer shows", "1", VnUINotMeeting, false, true, true, VnDataDeleted},
      {"a cancellation", "1", VnUIMeeting, true, true, true, VnDataDeleted},
      {"an appointment", "", VnUINotMeeting, false, true, true, VnDataNone},
      {"a meeting in the making", "", VnUIMeeting, false, true, true, VnDataAdded},
      {"a hidden bar keeps the last answer", "", VnUIHidden, false, true, true, VnDataAdded},
  };
  const auto bar = makeBar();
  EXPECT_EQ(bar->getVnDataStatus(), VnDataNone);
  bar->attachOutlookERCalendarEventEditorWindowController(controller);
  for (const auto& c : cases) {
    managerOf(bar)->setMeetingKey(c.key);
    host.set(editor, "isCancelMode", c.cancelMode);
    host.set(editor, "isDirty", c.dirty);
    host.set(event, "UUID", c.stored ? Value("U-1") : Value());
    bar->onUIChanged(c.shown);
    EXPECT_EQ(bar->getVnDataStatus(), c.expected) << c.why;
  }
  host.set(event, "isOwner", false);
  EXPECT_EQ(bar->getVnDataStatus(), VnDataNone);
}

TEST_F(Bar, AClickWorksOnlyOnTheStatusThatShowsItsButton) {
  const auto bar = openedBar();
  const auto manager = managerOf(bar);
  world.classRuntime.send(bar->view(), "onClickCancelVornMeeting:", {Value()});
  EXPECT_EQ(manager->getMeetingAction(), 0u);
  world.classRuntime.send(bar->view(), "onClickAddVornMeeting:", {Value()});
  EXPECT_EQ(manager->getMeetingAction(), VnCmdAdd);
  EXPECT_TRUE(bar->editorProxy());
  bar->onUIChanged(VnUIMeeting);
  manager->setMeetingAction(0);
  world.classRuntime.send(bar->view(), "onClickAddVornMeeting:", {Value()});
  EXPECT_EQ(manager->getMeetingAction(), 0u);
}

TEST_F(Bar, AClickThatFailsInsideOfUsReachesTheHostAsNothing) {
  const auto bar = openedBar();
  bool hasFailed = false;
  world.presenter.setAlertObserver([&](const auto&) {
    hasFailed = true;
    throw std::runtime_error("ours");
  });
  EXPECT_NO_THROW(world.classRuntime.sendAsHost(bar->view(), "onClickAddVornMeeting:", {Value()}));
  EXPECT_TRUE(hasFailed);
}

TEST_F(Bar, ADisabledSettingsButtonSaysWhy) {
  const auto bar = openedBar("123");
  bar->enableChangeSettingButton(false);
  EXPECT_FALSE(bar->changeButton().enabled);
  EXPECT_FALSE(bar->changeButton().toolTip.empty());
  world.classRuntime.send(bar->view(), "onClickCancelVornMeeting:", {Value()});
  EXPECT_TRUE(bar->changeButton().enabled) << "a cancel takes it back";
  EXPECT_TRUE(bar->changeButton().toolTip.empty());
}

TEST_F(Bar, StaysWhenTheHostLetsGoOfTheEventBeforeTheFirstClick) {
  const auto bar = openedBar();
  const std::string before = shown(bar);
  world.classRuntime.destroy(event);
  bar->refreshUI();
  EXPECT_EQ(shown(bar), before);
}

TEST_F(Bar, EndsALittleAfterItsOwnWindowCloses) {
  // A host may have taken the header apart before.
  for (const bool isApart : {false, true}) {
    auto bar = openedBar();
    const std::weak_ptr<vnActionAdditionView> watched = bar;
    const HostObject view(bar->view().address());
    bar.reset();
    if (isApart) inHeader = {};
    closeWindow(controller);
    EXPECT_EQ(barOfWindow() == nullptr, isApart);
    world.runLoop.runFor(0.02);
    EXPECT_FALSE(watched.expired());
    closeWindow(window);
    EXPECT_FALSE(barOfWindow());
    EXPECT_FALSE(watched.expired());
    world.runLoop.runUntil([&] { return watched.expired(); }, 0.02);
    EXPECT_TRUE(watched.expired());
    EXPECT_FALSE(world.classRuntime.isAlive(view));
    closeWindow(window);
  }
}

TEST_F(Bar, WhatTheStepAfterOpeningNeedsOfTheHostLivesUntilThenAndNoLonger) {
  const auto bar = makeBar();
  host.set(event, "olmUCInband", recordOf("123"));
  vnActionAdditionView::scheduleOnChangeUINotification(opened());
  world.classRuntime.destroy(controller);
  world.classRuntime.destroy(event);
  world.runLoop.runDue();
  EXPECT_EQ(shown(bar), "-CS");
  EXPECT_FALSE(world.classRuntime.isAlive(event));
  EXPECT_FALSE(world.classRuntime.isAlive(controller));
  vnActionAdditionView::onChangeUINotification(opened());
  EXPECT_TRUE(world.presenter.alerts().empty());
}

TEST_F(Bar, AfterASwitchToTheSeriesShowsWhatTheSeriesHas) {
  struct {
    const char* why;
    bool isOccurrence;
    const char *itemKey, *seriesKey;
    int expected;
  } const cases[] = {
      {"the series with a meeting", false, "1", "", VnUIMeeting},
      {"the series without", false, "", "", VnUINotMeeting},
      {"only the item has one", true, "1", "", VnUINotMeeting},
      {"only the series has one", true, "", "1", VnUIMeeting},
      {"both", true, "1", "1", VnUIHidden},
  };
  const auto bar = makeBar();
  bar->attachOutlookERCalendarEventEditorWindowController(controller);
  const HostObject series = host.object("ECCalendarEvent");
  host.set(event, "seriesMasterRecord", series);
  for (const auto& c : cases) {
    host.set(event, "isOccurrence", c.isOccurrence);
    host.set(event, "olmUCInband", recordOf(c.itemKey));
    host.set(series, "olmUCInband", recordOf(c.seriesKey));
    bar->onUIChanged(VnUIHidden);
    bar->refreshUIForSwitchToRecurringSeries();
    EXPECT_EQ(bar->vnUIStatusNow(), c.expected) << c.why;
  }
}

}  // namespace
}  // namespace vorn

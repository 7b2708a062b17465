#include <stdexcept>

#include "host/surface/ActionBarPlacement.h"
#include "tests/surface/SurfaceWorld.h"
#include "workflow/vnMeetingMgrMonitor.h"

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
  std::shared_ptr<vnMeetingMgr> managerOf(const std::shared_ptr<vnActionAdditionView>& bar) {
    return vnMeetingMgrMonitor::getMeetingMgrByVnView(bar.get());
  }
  std::string shown(const std::shared_ptr<vnActionAdditionView>& bar) {
    return std::string(bar->addButton().hidden ? "-" : "A") + (bar->cancelButton().hidden ? "-" : "C") +
           (bar->changeButton().hidden ? "-" : "S");
  }
  // A bar whose editor has opened, with a meeting or without.
  std::shared_ptr<vnActionAdditionView> openedBar(const std::string& key) {
    const auto bar = makeBar();
    if (!key.empty()) host.set(event, "olmUCInband", "{\"meetingKey\": \"" + key + "\"}");
    vnActionAdditionView::onChangeUINotification(opened());
    return bar;
  }
};

TEST_F(Bar, HidesForWhatMayHaveNoMeetingOfItsOwnButKeepsItsStatus) {
  struct {
    const char* why;
    std::vector<std::pair<std::string, Value>> editorAnswers;
    bool isOwner;
    bool single;
    const char* expected;
  } const cases[] = {
      {"a meeting of one's own", {}, true, false, "-CS"},
      {"a cancellation", {{"isCancelMode", true}}, true, false, "---"},
      {"somebody else's", {}, false, false, "---"},
      {"an occurrence of the series' meeting", {{"isOccurrenceOrException", true}}, true, false, "---"},
      {"an occurrence with its own", {{"isOccurrenceOrException", true}}, true, true, "-CS"},
  };
  const auto bar = openedBar("123");
  for (const auto& c : cases) {
    host.set(editor, "isCancelMode", false);
    host.set(editor, "isOccurrenceOrException", false);
    for (const auto& [selector, answer] : c.editorAnswers) host.set(editor, selector, answer);
    host.set(event, "isOwner", c.isOwner);
    managerOf(bar)->meetingDataMgr()->setOccurrenceIsSingleVornMeeting(c.single);
    bar->onUIChanged(VnUIMeeting);
    EXPECT_EQ(shown(bar), c.expected) << c.why;
    EXPECT_EQ(bar->vnUIStatusNow(), VnUIMeeting) << c.why;
    const bool blocks = std::string(c.expected) == "---" && !host.get(editor, "isCancelMode").boolValue();
    EXPECT_EQ(bar->blockDeleteVornMeeting(), blocks) << c.why;
  }
}

TEST_F(Bar, SaysWhatASaveHasToDo) {
  struct {
    const char* why;
    const char* key;
    int shown;
    bool cancelMode;
    bool stored;
    bool dirty;
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
  const auto bar = openedBar("");
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
  const auto bar = openedBar("");
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
  const auto bar = openedBar("");
  const std::string before = shown(bar);
  world.classRuntime.destroy(event);
  bar->refreshUI();
  EXPECT_EQ(shown(bar), before);
}

TEST_F(Bar, EndsALittleAfterItsOwnWindowCloses) {
  auto bar = makeBar();
  const std::weak_ptr<vnActionAdditionView> watched = bar;
  const HostObject view(bar->view().address());
  bar.reset();
  closeWindow(controller);
  EXPECT_TRUE(barOfWindow());
  closeWindow(window);
  EXPECT_FALSE(barOfWindow());
  EXPECT_FALSE(watched.expired());
  world.runLoop.runUntil([&] { return watched.expired(); }, 0.02);
  EXPECT_TRUE(watched.expired());
  EXPECT_FALSE(world.classRuntime.isAlive(view));
  closeWindow(window);
}

TEST_F(Bar, WhatTheStepAfterOpeningNeedsOfTheHostLivesUntilThenAndNoLonger) {
  const auto bar = makeBar();
  host.set(event, "olmUCInband", "{\"meetingKey\": \"123\"}");
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
    const char* itemKey;
    const char* seriesKey;
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
  const auto record = [](const std::string& key) { return "{\"meetingKey\": \"" + key + "\"}"; };
  const HostObject series = host.object("ECCalendarEvent");
  host.set(event, "seriesMasterRecord", series);
  for (const auto& c : cases) {
    host.set(event, "isOccurrence", c.isOccurrence);
    host.set(event, "olmUCInband", record(c.itemKey));
    host.set(series, "olmUCInband", record(c.seriesKey));
    bar->onUIChanged(VnUIHidden);
    bar->refreshUIForSwitchToRecurringSeries();
    EXPECT_EQ(bar->vnUIStatusNow(), c.expected) << c.why;
  }
}

}  // namespace
}  // namespace vorn

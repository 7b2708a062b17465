#include "host/surface/vnErageAppDelegate.h"
#include "tests/surface/SurfaceWorld.h"
#include "workflow/ThreadDictionary.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

using AudioClicks = SurfaceWorld;

TEST_F(AudioClicks, SendTheirCommandWhileTheBarOffersAnAddAndTheWindowIsTheUsersOwn) {
  const struct {
    const char *what, *selector;
    bool onBehalf;
    int shown;
    std::uint64_t action;
    bool refused;
  } rows[] = {
      {"the first account", "onClickAddPACAccount1:", false, VnUINotMeeting, VnCmdAddPACAccount1, false},
      {"the second account", "onClickAddPACAccount2:", false, VnUINotMeeting, VnCmdAddPACAccount2, false},
      {"a meeting", "onClickAddPACAccount1:", false, VnUIMeeting, 0, false},
      {"nothing shown", "onClickAddPACAccount2:", false, VnUIHidden, 0, false},
      {"somebody else's", "onClickAddPACAccount1:", true, VnUINotMeeting, 0, true},
      {"somebody else's meeting", "onClickAddPACAccount2:", true, VnUIMeeting, 0, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    world.presenter.forgetAlerts();
    host.set(editor, "isDelegating", row.onBehalf);
    const auto bar = openedBar();
    bar->onUIChanged(row.shown);
    world.classRuntime.send(bar->view(), row.selector, {Value()});
    EXPECT_EQ(managerOf(bar)->getMeetingAction(), row.action);
    EXPECT_EQ(world.presenter.alerts().size(), row.refused ? 1u : 0u);
    bar->cleanup();
    closeWindow(window);
  }
  EXPECT_EQ(world.trace.lastOf("alert")["message"], Value(world.presenter.alerts().at(0).alert.message));
}

TEST_F(AudioClicks, WordLeftForANewAppointmentIsTakenInTheOrderOfItsWeight) {
  const struct {
    const char* what;
    bool add, audio, update;
    Value argument;
    bool isNew;
    std::uint64_t action;
    bool addLeft, audioLeft, updateLeft, argumentLeft;
  } rows[] = {
      {"all three", true, true, true, 1, true, VnCmdAdd, false, true, true, false},
      {"audio and update", false, true, true, 1, true, VnCmdAddPACAccount1, false, false, true, false},
      {"the second account", false, true, false, "2", true, VnCmdAddPACAccount2, false, false, false, false},
      {"an account that nobody has", false, true, true, 3, true, 0, false, false, true, false},
      {"no account", false, true, false, Value(), true, 0, false, false, false, false},
      {"an update alone", false, false, true, Value(), true, VnCmdUpdate, false, false, false, false},
      {"a stored appointment", true, true, true, 2, false, VnCmdUpdate, true, true, false, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    ThreadDictionary& left = ThreadDictionary::sharedInstance();
    for (const auto& [key, isLeft] : {std::pair{keyFlagAutoAddToVnMeeting, row.add},
                                      {keyFlagAutoAddToPACMeeting, row.audio},
                                      {keyFlagAutoUpdateVnMeeting, row.update}}) {
      left.remove(key);
      if (isLeft) left.set(key, true);
    }
    left.remove(keyFlagVnMeetingArgument);
    if (row.argument.isPresent()) {
      left.set(keyFlagVnMeetingArgument,
               Value::dictionaryFromPairs({{vn_PAC_Setting_PACAccountNo, row.argument}}));
    }
    host.set(event, "UUID", row.isNew ? "" : "A");
    const auto bar = openedBar();
    EXPECT_EQ(managerOf(bar)->getMeetingAction(), row.action);
    EXPECT_EQ(left[keyFlagAutoAddToVnMeeting].boolValue(), row.addLeft);
    EXPECT_EQ(left[keyFlagAutoAddToPACMeeting].boolValue(), row.audioLeft);
    EXPECT_EQ(left[keyFlagAutoUpdateVnMeeting].boolValue(), row.updateLeft);
    EXPECT_EQ(left[keyFlagVnMeetingArgument].isPresent(), row.argumentLeft);
    bar->cleanup();
    closeWindow(window);
  }
}

using AppDelegate = SurfaceWorld;

TEST_F(AppDelegate, OpensANewMeetingLaterAndLeavesWordForItsBar) {
  const HostObject application = host.object("NSApplication", {{"isActive", false}});
  host.set(application, "activateIgnoringOtherApps:", Value());
  world.classRuntime.setClassMethod(
      "NSApplication", "sharedApplication",
      [application](const HostObject&, const Arguments&) { return Value(application); });
  const HostObject appDelegate = host.object("ErageAppDelegate", {{"newCalendarMeeting:", Value()}});
  const Value argument(Value::Dictionary{{"account", 1}});
  vnErageAppDelegate(appDelegate).autoAddPACToAppointment(argument);

  const ThreadDictionary& left = ThreadDictionary::sharedInstance();
  EXPECT_TRUE(left[keyFlagAutoAddToPACMeeting].boolValue());
  EXPECT_EQ(left[keyFlagVnMeetingArgument], argument);
  EXPECT_EQ(host.calls(application, "activateIgnoringOtherApps:").size(), 1u);
  EXPECT_TRUE(host.calls(appDelegate, "newCalendarMeeting:").empty());
  world.runLoop.runDue();
  EXPECT_EQ(host.calls(appDelegate, "newCalendarMeeting:").size(), 1u);
  EXPECT_TRUE(left[keyFlagAutoAddToPACMeeting].boolValue()) << "a busy host opens its window later";

  // The next command takes the place of the one before, and a window that never comes is not waited for.
  vnErageAppDelegate(appDelegate).autoAddVornToAppointment(Value());
  vnErageAppDelegate(appDelegate).autoAddVornToAppointment(Value());
  world.runLoop.runDue();
  EXPECT_EQ(host.calls(appDelegate, "newCalendarMeeting:").size(), 2u) << "two clicks in one turn are one";
  EXPECT_TRUE(left[keyFlagAutoAddToPACMeeting].isAbsent());
  EXPECT_TRUE(left[keyFlagVnMeetingArgument].isAbsent());
  EXPECT_TRUE(left[keyFlagAutoAddToVnMeeting].boolValue());
  world.runLoop.runFor(6);
  EXPECT_TRUE(left[keyFlagAutoAddToVnMeeting].isAbsent()) << "no window came, and the next one is another matter";
}

}  // namespace
}  // namespace vorn

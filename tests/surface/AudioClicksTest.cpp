#include "tests/surface/SurfaceWorld.h"
#include "workflow/ThreadDictionary.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnWorkflowKeys.h"

namespace vorn {
namespace {

class AudioClicks : public SurfaceWorld {
 protected:
  std::shared_ptr<vnActionAdditionView> openedBar() {
    const auto bar = makeBar();
    vnActionAdditionView::onChangeUINotification(opened());
    return bar;
  }
  std::uint64_t actionOf(const std::shared_ptr<vnActionAdditionView>& bar) {
    return vnMeetingMgrMonitor::getMeetingMgrByVnView(bar.get())->getMeetingAction();
  }
};

TEST_F(AudioClicks, SendTheirCommandWhileTheBarOffersAnAddAndTheWindowIsTheUsersOwn) {
  const struct {
    const char* what;
    const char* selector;
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
    EXPECT_EQ(actionOf(bar), row.action);
    EXPECT_EQ(world.presenter.alerts().size(), row.refused ? 1u : 0u);
    bar->cleanup();
    closeWindow(window);
  }
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
    EXPECT_EQ(actionOf(bar), row.action);
    EXPECT_EQ(left[keyFlagAutoAddToVnMeeting].boolValue(), row.addLeft);
    EXPECT_EQ(left[keyFlagAutoAddToPACMeeting].boolValue(), row.audioLeft);
    EXPECT_EQ(left[keyFlagAutoUpdateVnMeeting].boolValue(), row.updateLeft);
    EXPECT_EQ(left[keyFlagVnMeetingArgument].isPresent(), row.argumentLeft);
    bar->cleanup();
    closeWindow(window);
  }
}

}  // namespace
}  // namespace vorn

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/OptionBits.h"
#include "data/vnProfileKeys.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "meeting.pb.h"
#include "tests/support/PanelWindow.h"
#include "util/EncodeUtils.h"

namespace vorn {

using Account = com::tidemar::webapp::proto::UserProfile;

// An account of which these bits of its words of options are on.
template <typename... Bits>
Account accountWith(Bits... bits) {
  Account account;
  const auto turnOn = [&account]<typename Bit>(Bit bit) {
    const auto on = static_cast<std::int64_t>(bit);
    if constexpr (std::is_same_v<Bit, UserOption>) account.set_useroption(account.useroption() | on);
    if constexpr (std::is_same_v<Bit, UserOption3>) account.set_useroption3(account.useroption3() | on);
    if constexpr (std::is_same_v<Bit, UserOption4>) account.set_useroption4(account.useroption4() | on);
    if constexpr (std::is_same_v<Bit, UserOption5>) account.set_useroption5(account.useroption5() | on);
  };
  (turnOn(bits), ...);
  return account;
}

// The panel of an account, as its user sees and uses it.
class SettingsPanelTest : public testing::Test, protected PanelWindow {
 protected:
  SettingsPanelTest() : PanelWindow(std::string(VORN_PLUGIN_FOLDER) + "/resources") { knowProfile({}); }

  using Pairs = std::initializer_list<std::pair<std::string_view, Value>>;

  // A user of whom the profile says this.
  static void knowProfile(Pairs pairs) {
    Value profile = Value::dictionaryFromPairs(pairs);
    profile.set("userId", "me");
    vnUserProfileHelper::sharedInstance().setData(profile);
  }
  // With what the profile says beside its message.
  static void knowAccount(Account account, Pairs beside = {}) {
    account.set_id("me");
    Value profile = Value::dictionaryFromPairs(beside);
    profile.set(vn_Profile_Proto, EncodeUtils::base64Encode(account.SerializeAsString()));
    vnUserProfileHelper::sharedInstance().setData(profile);
  }

  void knowMeeting() {
    window->manager->meetingDataMgr()->setMeetingKey("91234567890");
    window->manager->getMeetingHelper()->setMeetingData(
        Value::dictionaryFromPairs({{"meetingKey", "91234567890"},
                                    {vn_Setting_EnableHostVideo, true},
                                    {vn_Setting_EnableParticipantsVideo, true},
                                    {vn_Setting_MeetingPassword, "abc123"}}),
        false);
  }
  const Control& control(const std::string& key) { return *shown()->find(key); }
  Use choose(const std::string& key, int index) {
    return click(key, [index](Control& changed) { changed.index = index; });
  }
  Use turn(const std::string& key, bool on) {
    return click(key, [on](Control& changed) { changed.on = on; });
  }
  Use type(const std::string& key, const std::string& text) {
    return click(key, [&text](Control& changed) { changed.text = text; });
  }
  // Whether the rules give the keyboard once more to a control that they have given it to before.
  bool asksAgainFor(const std::string& key, const std::function<void()>& act) {
    bool asks = false;
    const auto heard = view().controls().observe([&](const auto&) { asks = asks || !control(key).isFocused; });
    act();
    test.runLoop.runFor(0);
    return asks;
  }
  bool isOnScreen(std::string_view key) { return shown()->isOnScreen(key); }
  bool mayContinue() { return control("buttonContinue").enabled; }
  Value settings() { return panels.getSchSettingWindowInArray(id())->getVnSettingsData(); }
  VnSettingViewController& view() {
    return *std::static_pointer_cast<VnSettingWindowController>(panels.getSchSettingWindowInArray(id()))
                ->mySettingViewController();
  }
};

}  // namespace vorn

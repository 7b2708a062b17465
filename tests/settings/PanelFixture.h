#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/vnProfileKeys.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "meeting.pb.h"
#include "tests/support/PanelWindow.h"
#include "util/EncodeUtils.h"

namespace vorn {

// The panel of an account, as its user sees and uses it.
class SettingsPanelTest : public testing::Test, protected PanelWindow {
 protected:
  SettingsPanelTest() : PanelWindow(std::string(VORN_PLUGIN_FOLDER) + "/resources") {
    vnUserProfileHelper::sharedInstance().setData(Value::dictionaryFromPairs({{"userId", "me"}}));
  }

  static void knowAccount(com::tidemar::webapp::proto::UserProfile& account) {
    account.set_id("me");
    vnUserProfileHelper::sharedInstance().setData(
        Value::dictionaryFromPairs({{vn_Profile_Proto, EncodeUtils::base64Encode(account.SerializeAsString())},
                                    {vn_Profile_PublicEventListUrl, "https://vorn.example/events"}}));
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
  Value settings() { return panels.getSchSettingWindowInArray(id())->getVnSettingsData(); }
  VnSettingViewController& view() {
    return *std::static_pointer_cast<VnSettingWindowController>(panels.getSchSettingWindowInArray(id()))
                ->mySettingViewController();
  }
};

}  // namespace vorn

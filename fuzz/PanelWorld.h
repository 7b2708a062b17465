#pragma once

// The settings panel of one of the example accounts, as its user opens, uses and closes it.

#include <array>
#include <string>
#include <string_view>

#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "fuzz/Fuzzing.h"
#include "lab/client/Account.h"
#include "lab/client/Replies.h"
#include "tests/support/PanelWindow.h"
#include "util/Utf16.h"
#include "util/vStringUtils.h"

namespace vorn::fuzzing {

// What a front end hands on of typed bytes: characters.
inline std::string typedText(std::string_view bytes) {
  std::string text;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t length = utf8SequenceLength(bytes, at);
    if (length > 1 || static_cast<unsigned char>(bytes[at]) < 0x80) text += bytes.substr(at, length);
    at += length;
  }
  return text;
}

class PanelWorld : public PanelWindow {
 public:
  // By number; any number is one. The meeting, if there is one, is that of the account's owner.
  PanelWorld(unsigned account, bool hasMeeting) : PanelWindow(VORN_RESOURCES) {
    vnUserProfileHelper::sharedInstance().setData(profile(account));
    if (hasMeeting) {
      window->manager->meetingDataMgr()->setMeetingKey("91234567890");
      window->manager->getMeetingHelper()->setMeetingData(
          Value::dictionaryFromPairs({{"meetingKey", "91234567890"}, {vn_Setting_MeetingPassword, "abc123"}}),
          false);
    }
    open();
  }
  ~PanelWorld() { Registry::reset(); }
  // What is put off comes: the chips of a field, and where the keyboard goes.
  void wait() { test.runLoop.runFor(0.11); }
  Value settings() {
    const auto panel = panels.getSchSettingWindowInArray(id());
    return panel ? panel->getVnSettingsData() : Value();
  }

 private:
  static const Value& profile(unsigned account) {
    static const auto all = [] {
      std::array<Value, 4> made;
      std::size_t at = 0;
      for (const char* name : {"everything-on", "everything-locked", "three-people", "plain"}) {
        const auto read = vornlab::Account::fromFile(std::string(VORN_ACCOUNTS) + "/" + name + ".json");
        made.at(at++) = vStringUtils::toArrayOrNSDictionary(vornlab::profileReply(read));
      }
      return made;
    }();
    return all.at(account % all.size());
  }
};

}  // namespace vorn::fuzzing

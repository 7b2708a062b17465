#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "channel/commands/vnAPIKeys.h"
#include "data/vnGetPACHelper.h"
#include "data/vnProfileKeys.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "meeting.pb.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/RecordingClient.h"
#include "util/EncodeUtils.h"
#include "workflow/SettingsPanel.h"

namespace vorn {

inline constexpr const char* kKey = "5550123456";
inline constexpr double kStart = 1795514400;

// Notes what it is told, one short text a call.
class FakePanel final : public SettingsPanel {
 public:
  Value getVnSettingsData() override { return settings; }
  Value settingsToCommit() override { return settings; }
  std::string getScheduldForEmailFromUI() override { return scheduledFor; }
  Value getSiteMeetingInfo() override { return "site"; }
  void setPMIMeetingInfo(const Value& info) override { calls.push_back("personal " + info[vn_MeetingKey].text()); }
  void updatePasswordAfterCommit(const OptionalText& passcode) override {
    calls.push_back("passcode " + passcode.value_or("-"));
  }
  void filterInvalidAlternateHosts(const Value& emails) override {
    for (const Value& email : emails.items()) calls.push_back("filters " + email.text());
  }
  void resetMeetingItemWhenUpdateError() override { calls.push_back("resets"); }
  void commitRefused() override { calls.push_back("refused"); }
  void commitStands() override { calls.push_back("stands"); }
  void setScheduleForListInfo(bool forOther) override { calls.push_back(forOther ? "people" : "no people"); }

  Value settings = Value::dictionary();
  std::string scheduledFor;
  std::vector<std::string> calls;
};

// One panel, which is open for one window at most.
class FakePanels final : public SettingsPanels, public AlternateHostHistory {
 public:
  void addSchSettingWindowToArray(const std::string& windowId, const Value&, const HostObject&) override {
    added = windowId;
  }
  void showSchSettingWindow(const std::string& windowId) override {
    panel->calls.push_back(windowId == added ? "shown" : "shown without having been made");
  }
  std::shared_ptr<SettingsPanel> getSchSettingWindowInArray(const OptionalText& windowId) override {
    return openFor && windowId == openFor ? panel : nullptr;
  }
  void refreshSettingWindow(const std::string&, bool forPMI) override {
    panel->calls.push_back(forPMI ? "refreshed as personal" : "refreshed");
  }
  void endSettingWindow(const OptionalText& windowId) override {
    if (windowId == openFor) openFor.reset();
  }
  bool tellsOfRefusal(int) const override { return tells; }
  void addToInputAlternateHostHistory(const Value& hosts) override {
    for (const Value& host : hosts.items()) panel->calls.push_back("remembers " + host.text());
  }

  OptionalText openFor;
  bool tells = true;
  std::string added;
  std::shared_ptr<FakePanel> panel = std::make_shared<FakePanel>();
};

// The host's classes, and no window yet.
class WorkflowFixture : public testing::Test {
 protected:
  WorkflowFixture() {
    defineWindowClasses(test.classRuntime);
    WorkflowDirectory::sharedInstance().install();
  }

  HostObject hostObject(const char* className, const Value& state = Value::dictionary()) {
    return test.classRuntime.create(className, std::make_shared<Value>(state));
  }

  TestPlatform test;
};

// What only a meeting's message says, as a reply brings it.
inline OptionalText encoded(const google::protobuf::MessageLite& message) {
  return EncodeUtils::base64Encode(message.SerializeAsString());
}

// One conference as the client tells it.
struct Conference {
  std::int64_t id;
  std::vector<const char*> tollNumbers;
  const char *dedicated = "", *place = "", *invitation = "Call us", *html = "";
};

inline void clientTells(const std::vector<Conference>& conferences) {
  com::tidemar::webapp::proto::Response response;
  response.mutable_pacinfo();
  for (const Conference& told : conferences) {
    auto& conference = *response.mutable_pacinfo()->add_meetings();
    conference.set_meetingnumber(told.id);
    for (const char* number : told.tollNumbers) {
      auto& added = *conference.add_tollnumbers();
      if (*number != '\0') added.set_number(number);
    }
    conference.set_dedicateddailinnumber(told.dedicated);
    conference.set_location(told.place);
    conference.set_invitationemail(told.invitation);
    conference.set_invitationhtmlemail(told.html);
  }
  vnGetPACHelper::sharedInstance().setPACInfo(encoded(response));
}

// A window whose meeting has been read and is as the service has it, with a panel and a client that takes every
// request.
class MeetingFixture : public WorkflowFixture {
 protected:
  MeetingFixture() {
    test.classRuntime.setInstanceMethod("ERCalendarEventEditorViewController",
                                        "vn_ERCalendarEventEditorViewController_save",
                                        [this](const HostObject&, const Arguments&) {
                                          ++hostSaves;
                                          return Value();
                                        });
    defineStartTime();
    setSettingsPanels(&panels);
    setAlternateHostHistory(&panels);
    openWindow();
  }

  // Without a time that can be read no commit goes out.
  void defineStartTime() {
    test.classRuntime.defineClass("OLCalendarDate");
    test.classRuntime.setInstanceMethod("OLCalendarDate", "dateUTC",
                                        [](const HostObject&, const Arguments&) { return Value(kStart); });
    const HostObject date = test.classRuntime.create("OLCalendarDate");
    test.classRuntime.setInstanceMethod("ECCalendarEvent", "startTime",
                                        [date](const HostObject&, const Arguments&) { return Value(date); });
  }

  // An editor with a meeting that has been read and is as the service has it.
  void openWindow() {
    window = std::make_unique<FakeWindow>(test);
    window->bar->action = VnApptActionAutoUpdate;
    data().setMeetingKey(kKey);
    data().setForceIncludeJoinUrlInLocation(true);
    data().setOldForceIncludeJoinurlInLocation(true);
    data().setSelectInvitationLanguage("en-US");
    data().setOldSelectInvitationLanguage("en-US");
    helper().setMeetingData(meeting(), false);
  }

  static Value meeting() {
    return Value::dictionaryFromPairs({{"meetingKey", kKey},
                                       {"subject", "Review"},
                                       {"startTime", kStart},
                                       {"joinUrl", "https://vorn.example/j/5550123456"},
                                       {"meetingPassword", "abc123"}});
  }
  vnMeetingMgr& manager() { return *window->manager; }
  vnMeetingDataMgr& data() { return *manager().meetingDataMgr(); }
  vnGetMeetingHelper& helper() { return *manager().getMeetingHelper(); }
  // The appointment as the meeting already is.
  Value unchanged() { return helper().getMeetingInfo(); }
  void knowAccount() {
    vnUserProfileHelper::sharedInstance().setData(
        Value::dictionaryFromPairs({{"userId", "me"}, {"roomMeetingId", "5550142871"}}));
  }
  static void knowAccountOfType(int userType) {
    com::tidemar::webapp::proto::UserProfile message;
    message.set_usertype(userType);
    message.set_id("me");
    vnUserProfileHelper::sharedInstance().setData(
        Value::dictionaryFromPairs({{vn_Profile_Proto, encoded(message)}}));
  }
  std::string id() { return window->bar->ownWindow.windowId(); }
  void openPanel() { panels.openFor = id(); }
  bool isWritten() { return !window->get(window->bar->editor, "olmUCInband").text().empty(); }
  void reply(std::uint64_t number, Value response = Value::dictionary()) {
    Value dictionary = Value::dictionary();
    dictionary.set(keyVnAPIResponse, response);
    dictionary.set(keyApptWindowID, id());
    manager().onExcuteCommandFinished(number, dictionary);
    test.runLoop.runFor(0.01);
  }

  RecordingClient& client = RecordingClient::install(test);
  FakePanels panels;
  std::unique_ptr<FakeWindow> window;
  int hostSaves = 0;
};

}  // namespace vorn

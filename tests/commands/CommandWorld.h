#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "channel/commands/MeetingCommandOwner.h"
#include "channel/commands/vnAPIKeys.h"
#include "channel/commands/vnAPIMgr.h"
#include "channel/store/ApptWindowDirectory.h"
#include "data/vnGetMeetingHelper.h"
#include "tests/support/RecordingClient.h"

namespace vorn {

// A meeting manager that records what the commands tell it, and answers from its fields.
class FakeOwner : public MeetingCommandOwner {
 public:
  struct Finished {
    std::uint64_t number;
    Value data;
  };

  int onExcuteCommandFinished(std::uint64_t command, const Value& data) override {
    finished.push_back({command, data});
    if (whenFinished) whenFinished();
    return 0;
  }
  void setMeetingAction(std::uint64_t action) override { told.push_back("action " + std::to_string(action)); }
  vnGetMeetingHelper* getMeetingHelper() override { return &helper; }
  OptionalText meetingKey() override { return key; }
  void setMeetingKey(const OptionalText& newKey) override { key = newKey; }
  OptionalText scheduleForEmail() override { return otherHost; }
  void setScheduleForEmail(const OptionalText& email) override { otherHost = email; }
  void clearAllSavedData() override { told.push_back("cleared"); }
  bool checkScheduleForEmailValidity() override { return scheduleForIsValid; }
  void changeUIWithScheduleForEmainError(const HostObject& window) override { tell("scheduleFor", window); }
  std::string getDisplayNameWithOnbehalfEmail(const std::string&) override { return displayName; }
  void showSettingsWindowWithCommitError(const HostObject& window, int code) override {
    tell("settings " + std::to_string(code), window);
  }
  void resetMeetingItemWhenUpdateError(const HostObject& window) override { tell("reset", window); }
  Value getSiteMeetingInfo(const OptionalText&) override { return siteMeeting; }
  void showCommitWarning(const HostObject& window, const Value&) override { tell("template", window); }
  void showNoMeetingLicenseWindow(const HostObject& window) override { tell("licence", window); }

  std::vector<Finished> finished;
  std::function<void()> whenFinished;
  std::vector<std::string> told;
  vnGetMeetingHelper helper;
  OptionalText key;
  OptionalText otherHost;
  std::string displayName;
  Value siteMeeting;
  bool scheduleForIsValid = true;

 private:
  void tell(const std::string& what, const HostObject& window) { told.push_back(what + " @" + window.windowId()); }
};

// A world with a client that can be missing, old or asleep, and a socket that records what is sent to it.
class CommandWorld : public testing::Test, private ApptWindowDirectory, private ApptBar {
 protected:
  using Envelope = RecordingClient::Request;

  CommandWorld();
  ~CommandWorld() override;

  void installClient(const std::string& version) { RecordingClient::setVersion(world, version); }
  void removeClient();
  void runClient(bool runs = true);
  // Otherwise the channel drops what is sent.
  void connectClient(bool isConnected) { m_client.isConnected = isConnected; }

  // A message of the client on the socket channel.
  void reply(const std::string& action, const Value& content);
  // Action and content of what was sent, in order.
  const std::vector<Envelope>& sent() const { return m_client.requests; }
  std::string lastContent() const { return sent().empty() ? "nothing sent" : sent().back().second; }
  std::size_t activations() const;
  std::vector<std::string> alertTexts() const;
  void runFor(double seconds);
  // A profile as the client sends it, without its binary part.
  void setProfile(Value profile);
  // The same with option words 3 and 4.
  void setProfileOptions(std::uint64_t userOption3, std::uint64_t userOption4);
  // Texts with their placeholders, so that a test sees what was filled in.
  void setTexts(const std::vector<std::pair<std::string, std::string>>& texts);

  TestPlatform world;
  const HostObject window{0xabc};
  FakeOwner owner;
  std::unique_ptr<vnAPIMgr> mgr;

 private:
  ApptBar* barByWindow(const HostObject& asked) override { return asked == window ? this : nullptr; }
  HostObject mainWindow() override { return {}; }
  OptionalText getAppointmentWindowID() override { return "bar of " + window.windowId(); }
  HostObject editorViewWindow() override { return window; }

  RecordingClient& m_client = RecordingClient::install(world, "6.0.0");
};

// The reply to a request for a meeting: thirteen fields that nobody reads, and those given.
std::string meetingReply(const std::vector<std::string>& fields);
// Base64 of a dictionary's JSON.
std::string packed(const Value& meeting);

}  // namespace vorn

#include "lab/client/Service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <set>
#include <thread>
#include <tuple>

#include "ReplyReader.h"
#include "lab/client/Invitation.h"
#include "lab/client/MeetingStore.h"
#include "tests/support/TemporaryFolder.h"

namespace vornlab {
namespace {

using nlohmann::json;
using test::readMeeting;
using testing::HasSubstr;
using testing::Not;

class ServiceTest : public testing::Test {
 protected:
  static json commitOf(const json& setting = json::object()) {
    json document = {{"apptInfo",
                      {{"subject", "Quarterly <review> & Überblick"},
                       {"duration", "45"},
                       {"startTime", "1793000000"},
                       {"recurrence", false},
                       {"timezone", "Europe/Berlin"},
                       {"olApptUUID", "A1B2-C3"}}},
                     {"setting", {{"audioOption", 2}, {"meetingPassword", "pass-771"}, {"vnSrc", "msOutlook"}}}};
    document["setting"].update(setting);
    return document;
  }

  std::string ask(const std::string& content) {
    const auto replies = service.handle({action::kMeetings, content});
    if (replies.size() != 1) return "no reply";
    EXPECT_EQ(std::to_string(replies[0].action), content.substr(0, content.find(';')));
    return replies[0].content;
  }

  std::string schedule(const json& document) { return ask("1;;;;;;;;;;;;;" + document.dump(2)); }
  std::string update(const json& document) { return ask("2;;;;;;;;;;;;;" + document.dump(2)); }
  std::string keyOf(const std::string& reply) { return reply.substr(0, reply.find(';')); }
  test::MeetingLayers fetch(const std::string& key) { return readMeeting(ask("4;" + key + ";msOutlook;0")); }

  Service service{Account::plain(), {":memory:", "5.12.3.9654", 7}};
};

TEST_F(ServiceTest, returnsAScheduledMeetingAsItWasCommitted) {
  const std::string reply =
      schedule(commitOf({{"enableHostVideo", true}, {"jbhPriorTime", 10}, {"enableJBH", true}}));
  const std::string key = keyOf(reply);
  EXPECT_THAT(key, testing::MatchesRegex("[1-9][0-9]{9,10}"));

  const auto meeting = fetch(key);
  const json& layer = meeting.json;
  const json expected = {{"meetingKey", key},
                         {"originalMeetingNumber", "0"},
                         {"subject", "Quarterly <review> & Überblick"},
                         {"duration", "45"},
                         {"startTime", 1793000000},
                         {"recurrence", false},
                         {"audioOption", 2},
                         {"enableHostVideo", true},
                         {"enableParticipantsVideo", false},
                         {"enableJBH", true},
                         {"jbhPriorTime", 10},
                         {"usePMI", false},
                         {"meetingPassword", "pass-771"},
                         {"scheduleFor", ""}};
  for (const auto& [name, value] : expected.items()) EXPECT_EQ(layer[name], value) << name;
  EXPECT_THAT(layer["joinUrl"].get<std::string>(),
              testing::MatchesRegex("https://vorn.example/j/" + key + "\\?pwd=[A-Za-z0-9]+"));
  EXPECT_EQ(layer["invitationEmail"].get<std::string>(), reply.substr(key.size() + 1));

  EXPECT_EQ(std::to_string(meeting.packed.number(12)), key);
  EXPECT_EQ(meeting.packed.text(2), service.account().userId);
  EXPECT_EQ(meeting.packed.text(35), "robin.vale@example.com");
  EXPECT_EQ(json::parse(meeting.packed.text(95))["olApptUUID"], "A1B2-C3");
}

TEST_F(ServiceTest, putsEachOptionOfACommitIntoItsBit) {
  using Case = std::tuple<const char*, int, std::uint64_t>;
  for (const auto& [setting, field, mask] :
       {Case{"muteOnEntry", 78, 0x20}, Case{"enableAutoRecordingLocal", 78, 0x40000},
        Case{"enableAutoRecordingCloud", 78, 0x80000}, Case{"enableAutoRecordingMtgLevelFirst", 78, 0x100000},
        Case{"enableMeetingToPublicEvent", 78, 0x200000}, Case{"enableWaitingRoom", 78, 0x400000000},
        Case{"supportWaitingRoom", 78, 0x800000000}, Case{"enableAudioWatermark", 78, 0x2000000000000},
        Case{"enableRegionCustomization", 116, 0x20000000000000}, Case{"enableE2ee", 150, 0x100},
        Case{"enableUnmuteAll", 150, 0x200}, Case{"enableAllowDenyJoinMeetingRegion", 150, 0x100000000}}) {
    const auto packed = fetch(keyOf(schedule(commitOf({{setting, true}})))).packed;
    for (const int word : {78, 116, 150}) EXPECT_EQ(packed.number(word), word == field ? mask : 0) << setting;
  }
  const auto signedIn = fetch(keyOf(schedule(commitOf({{"isSignedInUsersMeetingOn", true}})))).packed;
  EXPECT_NE(signedIn.number(29) & 0x1800000000000000U, 0U);
}

TEST_F(ServiceTest, keepsNumberAndUrlInAnUpdateUntilThePasscodeChanges) {
  const std::string key = keyOf(schedule(commitOf()));
  const std::string url = fetch(key).json["joinUrl"];

  json changed = commitOf({{"enableHostVideo", true}});
  changed["meetingKey"] = key;
  changed["apptInfo"]["startTime"] = "1793003600";
  EXPECT_EQ(keyOf(update(changed)), key);
  EXPECT_EQ(fetch(key).json["startTime"], 1793003600);
  EXPECT_EQ(fetch(key).json["joinUrl"], url);

  changed["setting"]["meetingPassword"] = "another-1";
  update(changed);
  EXPECT_NE(fetch(key).json["joinUrl"], url);
  EXPECT_EQ(service.meetings().count(), 1);
  std::set<std::string> keys{key};
  for (int i = 0; i < 300; ++i) keys.insert(keyOf(schedule(commitOf())));
  EXPECT_EQ(keys.size(), 301U) << "no number is given twice";
}

TEST_F(ServiceTest, refusesWhatTheServiceRefuses) {
  json unknown = commitOf();
  unknown["meetingKey"] = "99999999999";
  json noStart = commitOf();
  noStart["apptInfo"].erase("startTime");
  json zeroStart = commitOf();
  zeroStart["apptInfo"]["startTime"] = "0";

  using Case = std::pair<std::string, std::string>;
  for (const auto& [content, expected] :
       {Case{"2;;;;;;;;;;;;;" + unknown.dump(), "0;Error 3001"},
        Case{"2;;;;;;;;;;;;;" + commitOf().dump(), "0;Error 3001"}, Case{"3;;msOutlook", "0;Error 3001"},
        Case{"3;0", "0;Error 3001"}, Case{"4;", "0;Error 3001"}, Case{"4;12x", "0;Error 3001"},
        Case{"10;", "0;Error 3001"}, Case{"10;nobody", "0;Error 3001"},
        Case{"1;;;;;;;;;;;;;" + noStart.dump(), "0;Error 300 "},
        Case{"1;;;;;;;;;;;;;" + zeroStart.dump(), "0;Error 300 "},
        Case{"1;;;;;;;;;;;;;{\"apptInfo\": {", "0;Error 300 "}, Case{"1;;;;;;;;;;;;;[]", "0;Error 300 "},
        Case{"1", "0;Error 300 "},
        Case{"1;;;;;;;;;;;;;" + commitOf({{"meetingPassword", "abc"}}).dump(), "0;Error 3402"},
        Case{"1;;;;;;;;;;;;;" + commitOf({{"scheduleFor", "stranger@example.com"}}).dump(), "0;Error 3161"}}) {
    EXPECT_THAT(ask(content), testing::StartsWith(expected)) << content;
  }
  EXPECT_EQ(service.meetings().count(), 0);
  for (const char* content : {"5;1", "x", "", "0;;"}) EXPECT_EQ(ask(content), "no reply") << content;
}

TEST_F(ServiceTest, writesInvitationsThatCarryEverythingAndNoForeignMarkup) {
  const std::string key = keyOf(schedule(commitOf()));
  const auto meeting = fetch(key);
  const std::string plain = meeting.json["invitationEmail"];
  const std::string html = meeting.packed.text(79);
  EXPECT_THAT(plain.size(), testing::AllOf(testing::Gt(1800U), testing::Lt(4096U)));
  EXPECT_THAT(html.size(), testing::AllOf(testing::Gt(8000U), testing::Lt(20480U)));
  for (const std::string& part : {meeting.json["joinUrl"].get<std::string>(), grouped(key),
                                  std::string("pass-771"), std::string("Europe/Berlin")}) {
    EXPECT_THAT(plain, HasSubstr(part));
    EXPECT_THAT(html, HasSubstr(part));
  }
  EXPECT_THAT(plain, HasSubstr("Oct 26, 2026 08:33 AM"));
  EXPECT_THAT(html, HasSubstr("Quarterly &lt;review&gt; &amp; Überblick"));
  EXPECT_THAT(html, Not(HasSubstr("<review>")));
}

TEST_F(ServiceTest, answersTheVersionAndKeepsSilentOnWhatNeedsNoAnswer) {
  EXPECT_EQ(service.handle({action::kVersion, ""}), (std::vector<Envelope>{{200, "5.12.3.9654"}}));
  EXPECT_THAT(service.handle({action::kStartMeeting, "{\"launchtype\": \"groupVideo\"}"}), testing::IsEmpty());
  EXPECT_THAT(service.handle({77, "77"}), testing::IsEmpty());
}

TEST(MeetingStore, WaitsForAnotherClientOfItsFileAndSaysWhenThatTakesTooLong) {
  const test::TemporaryFolder folder;
  const std::string path = folder / "meetings.db";
  MeetingStore other(path);
  std::optional<MeetingStore::Transaction> busy(std::in_place, other);
  Meeting meeting;
  meeting.number = 1;
  MeetingStore hasty(path, 20);
  try {
    hasty.put(meeting);
    FAIL() << "wrote into a transaction of somebody else";
  } catch (const StoreError& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("another program has kept the database busy"));
  }
  std::jthread ends([&busy] {
    std::this_thread::sleep_for(std::chrono::milliseconds(2300));
    busy.reset();
  });
  MeetingStore patient(path);
  patient.put(meeting);
  EXPECT_EQ(hasty.count(), 1);
}

}  // namespace
}  // namespace vornlab

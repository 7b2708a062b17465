#include "lab/client/Service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "ReplyReader.h"
#include "lab/client/Invitation.h"
#include "tests/support/ContentFields.h"

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

TEST_F(ServiceTest, returnsListsAndChoicesInTheirOrder) {
  const auto packed =
      fetch(keyOf(schedule(commitOf(
                {{"alternateHosts", {"b@example.com", "a@example.com"}},
                 {"trackingFields",
                  {{{"id", "t1"}, {"trackingField", "Team"}, {"trackingValue", "x^^^y"}, {"mtValue", "y"}}}},
                 {"availableDialinCountry",
                  {{"hash", "h1"}, {"includedTollfree", true}, {"selectedCountries", {"JP", "US"}}}},
                 {"meetingAuth",
                  {{"authId", "a1"}, {"authName", "Us"}, {"authType", 1}, {"authDomain", "example.com"}}},
                 {"meetingTemplate", {{"templateId", "tpl"}, {"templateName", "Talk"}, {"templateType", 1}}},
                 {"RegionPolicy", {{"regionType", 1}, {"regionCodes", {"AQ"}}}},
                 {"additionalDCRegions", {"EU", "US"}}}))))
          .packed;
  ASSERT_EQ(packed.texts.at(73).size(), 2U);
  EXPECT_EQ(test::unpack(packed.texts.at(73)[0]).text(2), "b@example.com");
  EXPECT_NE(test::unpack(packed.texts.at(73)[0]).text(1), "");
  EXPECT_EQ(test::unpack(packed.text(81)).text(5), "y");
  EXPECT_EQ(test::unpack(packed.text(94)).texts.at(3), (std::vector<std::string>{"JP", "US"}));
  EXPECT_EQ(test::unpack(packed.text(94)).number(4), 1U);
  EXPECT_EQ(test::unpack(packed.text(134)).text(4), "example.com");
  EXPECT_EQ(test::unpack(packed.text(160)).text(1), "tpl");
  EXPECT_EQ(test::unpack(packed.text(157)).text(2), "AQ");
  EXPECT_EQ(packed.texts.at(145), (std::vector<std::string>{"EU", "US"}));
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

TEST_F(ServiceTest, keepsAppointmentAndLanguageWhenAnUpdateSaysNothingOfThem) {
  const std::string key = keyOf(schedule(commitOf({{"language", "de-DE"}})));
  json changed = commitOf();
  changed["meetingKey"] = key;
  changed["apptInfo"].erase("olApptUUID");
  EXPECT_THAT(update(changed), HasSubstr("Kenncode"));
  EXPECT_EQ(ask("10;A1B2-C3"), ask("4;" + key));
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

TEST_F(ServiceTest, tellsTheInvitationInTheLanguageThatIsAskedFor) {
  const std::string key = keyOf(schedule(commitOf({{"language", "fr-FR"}})));
  const auto textFor = [&](const std::string& language) {
    return readMeeting(ask("4;" + key + ";msOutlook;0;" + language)).json["invitationEmail"].get<std::string>();
  };
  EXPECT_THAT(textFor("de-DE"), HasSubstr("Kenncode: pass-771"));
  EXPECT_THAT(textFor(""), HasSubstr("Code secret: pass-771"));
  EXPECT_THAT(textFor("xx"), HasSubstr("Passcode: pass-771"));
}

TEST_F(ServiceTest, answersTheDefaultsOfANewMeetingWithNumberZero) {
  const auto fresh = fetch("new");
  EXPECT_EQ(fresh.packed.numbers.count(12), 1U);
  EXPECT_EQ(fresh.packed.number(12), 0U);
  EXPECT_EQ(fresh.json["enableHostVideo"], true);
}

TEST_F(ServiceTest, givesAMeetingUnderAPersonalNumberANumberOfItsOwn) {
  service.setAccount(Account::fromFile(VORNCLIENT_ACCOUNTS "/three-people.json"));
  for (const auto& [host, personal] : {std::pair{"", "5550119926"}, {"dana.birch@example.com", "5550131144"}}) {
    json wanted = commitOf({{"usePMI", true}, {"scheduleFor", host}});
    const std::string first = keyOf(schedule(wanted));
    wanted["apptInfo"]["olApptUUID"] = "D4-E5";
    wanted["setting"]["meetingPassword"] = "another-1";
    const std::string second = keyOf(schedule(wanted));
    EXPECT_EQ((std::set<std::string>{first, second, personal}.size()), 3U);

    const auto room = fetch(personal).json;
    EXPECT_EQ(room["meetingKey"], personal);
    EXPECT_EQ(room["originalMeetingNumber"], "0");
    for (const std::string& key : {first, second}) {
      const auto layer = fetch(key).json;
      EXPECT_EQ(layer["meetingKey"], personal);
      EXPECT_EQ(layer["originalMeetingNumber"], key);
      EXPECT_EQ(layer["usePMI"], true);
      EXPECT_EQ(layer["scheduleFor"], host);
      EXPECT_EQ(layer["meetingPassword"], "another-1") << "one room, one passcode";
      EXPECT_EQ(layer["joinUrl"], room["joinUrl"]);
    }
    EXPECT_EQ(ask("10;D4-E5"), ask("4;" + second));
    wanted["meetingKey"] = first;
    EXPECT_EQ(keyOf(update(wanted)), first);
    EXPECT_EQ(ask("3;" + first), first);
    EXPECT_EQ(fetch(second).json["meetingKey"], personal);
  }
}

TEST_F(ServiceTest, namesTheAlternateHostsThatAreRefused) {
  service.setAccount(Account::fromFile(VORNCLIENT_ACCOUNTS "/everything-on.json"));
  const auto reply = schedule(
      commitOf({{"meetingPassword", "Passcode1"}, {"alternateHosts", {"a@example.com", "nobody@example.com"}}}));
  EXPECT_EQ(vorn::contentFields(reply),
            (std::vector<std::string>{"0", "Error 1113", "nobody@example.com#not allowed"}));
}

TEST_F(ServiceTest, answersTheVersionAndKeepsSilentOnWhatNeedsNoAnswer) {
  EXPECT_EQ(service.handle({action::kVersion, ""}), (std::vector<Envelope>{{200, "5.12.3.9654"}}));
  EXPECT_THAT(service.handle({action::kStartMeeting, "{\"launchtype\": \"groupVideo\"}"}), testing::IsEmpty());
  EXPECT_THAT(service.handle({77, "77"}), testing::IsEmpty());
}

}  // namespace
}  // namespace vornlab

#include "channel/commands/vnAPICommitMeeting.h"

#include <limits>

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnCommon.h"
#include "tests/commands/CommandWorld.h"
#include "util/Utf16.h"
#include "util/vnOLUtils.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// Profile bits: the waiting room may be on by default, obeys the new rules, and is locked.
constexpr std::uint64_t kWaitingRoomOn = 0x200;
constexpr std::uint64_t kNewWaitingRoomRules = 0x800000000000;
constexpr std::uint64_t kWaitingRoomLocked = 0x20000;

class Commit : public CommandWorld {
 protected:
  Commit() {
    data.set("apptInfo", Value::dictionaryFromPairs({{"subject", "Weekly"}, {"startTime", start()}}));
    data.set("setting", Value::dictionary());
  }

  static Value start() {
    return Value::dictionaryFromPairs({{"UTCTime", "2026-03-01 12:00:00"}, {"timezone", "UTC"}});
  }

  void setSetting(std::string_view key, const Value& value) {
    Value setting = data["setting"];
    setting.set(key, value);
    data.set("setting", setting);
  }
  void setAppt(std::string_view key, const Value& value) {
    Value apptInfo = data["apptInfo"];
    apptInfo.set(key, value);
    data.set("apptInfo", apptInfo);
  }

  // The document of a request that is sent now.
  Value document() {
    const std::size_t before = sent().size();
    EXPECT_EQ(mgr->scheduleMeeting(window, data), 0);
    EXPECT_EQ(sent().size(), before + 1);
    const std::string content = lastContent();
    EXPECT_THAT(content, StartsWith("1;;;;;;;;;;;;;{"));
    return vnOLUtils::toArrayOrNSDictionary(content.substr(content.find('{')));
  }
  Value sentSetting() { return document()["setting"]; }

  Value data = Value::dictionary();
};

TEST_F(Commit, TheHeadNamesTheOperationAndPutsTheDocumentIntoFieldThirteen) {
  mgr->updateMeeting(window, data);
  EXPECT_EQ(sent().back().first, "3");
  EXPECT_THAT(lastContent(), StartsWith("2;;;;;;;;;;;;;{"));
  EXPECT_EQ(document()["apptInfo"]["startTime"].text(), "1772366400");
}

TEST_F(Commit, TheSubjectIsCutToTwoHundredCharacters) {
  const std::string letters(200, 'a');
  const std::pair<Value, std::string> cases[] = {
      {letters, letters},
      {letters + "b", letters},
      {nullptr, ""},
      {letters.substr(0, 199) + "\xF0\x9F\x98\x80", letters.substr(0, 199)},
  };
  for (const auto& [subject, shown] : cases) {
    setAppt("subject", subject);
    EXPECT_EQ(document()["apptInfo"]["subject"].text(), shown);
  }
}

TEST_F(Commit, TheAppointmentGoesOutAsTheClientWantsIt) {
  Value attendees = Value::array();
  attendees.append(Value::dictionaryFromPairs({{"name", "Ann"}, {"email", "ann@x.org"}, {"type", "1"}}));
  setAppt("attendees", attendees);
  setAppt("duration", "30");
  setAppt("recurrence", false);
  setAppt("emailBody", "never sent");
  setAppt("olApptUUID", "U-1");
  const Value apptInfo = document()["apptInfo"];
  EXPECT_EQ(apptInfo["attendees"], attendees);
  EXPECT_EQ(apptInfo["duration"].text(), "30");
  EXPECT_EQ(apptInfo["recurrence"], Value(false));
  EXPECT_EQ(apptInfo["olApptUUID"].text(), "U-1");
  EXPECT_FALSE(apptInfo.contains("location"));
  EXPECT_FALSE(apptInfo.contains("emailBody"));

  setAppt("attendees", Value::array());
  installClient("4.1.10729");
  EXPECT_FALSE(document()["apptInfo"].contains("attendees"));
  EXPECT_FALSE(document()["apptInfo"].contains("olApptUUID"));
}

TEST_F(Commit, TheZoneOfAHostObjectIsItsName) {
  world.surroundings.resources["timezones_map.txt"] = "Pacific Standard Time;America/Los_Angeles\n";
  world.classRuntime.defineClass("Zone");
  world.classRuntime.setInstanceMethod(
      "Zone", "name", [](const HostObject&, const Arguments&) { return Value("Pacific Standard Time"); });
  const HostObject zone = world.classRuntime.create("Zone");
  Value when = start();
  when.set("timezone", zone);
  setAppt("startTime", when);
  EXPECT_EQ(document()["apptInfo"]["timezone"].text(), "America/Los_Angeles");
}

TEST_F(Commit, TheMeetingNumberIsSentWhenThereIsOne) {
  data.set("meetingKey", "987");
  EXPECT_EQ(document()["meetingKey"].text(), "987");
  data.erase("meetingKey");
  EXPECT_FALSE(document().contains("meetingKey")) << "nothing of the request before";
  data.set("meetingKey", "");
  EXPECT_FALSE(document().contains("meetingKey"));

  vnAPICommitMeeting command;
  command.setData(Value::dictionaryFromPairs({{"meetingKey", "0"}}));
  EXPECT_EQ(command.getAPIData().find("meetingKey"), std::string::npos);
}

TEST_F(Commit, AudioAndRecordingChoicesAreToldInTheClientsTerms) {
  for (const auto& [audio, option, tsp] : {std::tuple{3, Value(3), Value()},
                                           {100, Value(100), Value()},
                                           {9, Value(9), Value()},
                                           {10, Value(), Value(1)},
                                           {11, Value(), Value(2)},
                                           {12, Value(), Value(3)},
                                           {13, Value(), Value(4)},
                                           {14, Value(), Value(5)},
                                           {15, Value(15), Value()}}) {
    setSetting("audioOption", audio);
    setSetting("thirdPartyAudio", "call me");
    const Value setting = sentSetting();
    EXPECT_EQ(setting["audioOption"], option) << audio;
    EXPECT_EQ(setting["tspAudioOption"], tsp) << audio;
    EXPECT_EQ(setting.contains("thirdPartyAudio"), audio == 3) << audio;
  }
  setSetting("enableAutoRecordingMtgLevelFirst", true);
  for (const auto& [type, cloud, local] : {std::tuple{0, false, false},
                                           {1, false, true},
                                           {2, true, false},
                                           {3, false, true},
                                           {4, true, false},
                                           {6, false, false}}) {
    setSetting("enableAutoRecordingType", type);
    const Value setting = sentSetting();
    EXPECT_EQ(setting["enableAutoRecordingCloud"], Value(cloud)) << type;
    EXPECT_EQ(setting["enableAutoRecordingLocal"], Value(local)) << type;
    EXPECT_EQ(setting["enableAutoRecordingMtgLevelFirst"], Value(true)) << type;
    EXPECT_FALSE(setting.contains("enableAutoRecordingType")) << type;
  }
  setSetting("enableAutoRecordingType", 5);
  for (const char* key :
       {"enableAutoRecordingCloud", "enableAutoRecordingLocal", "enableAutoRecordingMtgLevelFirst"}) {
    EXPECT_FALSE(sentSetting().contains(key)) << key;
  }
}

TEST_F(Commit, PlainSettingsGoOutUnchangedAndNothingIsInvented) {
  const char* plain[] = {"enableHostVideo",    "enableJBH",         "enableParticipantsVideo",  "usePMI",
                         "jbhPriorTime",       "meetingAuth",       "isSignedInUsersMeetingOn", "language",
                         "supportWaitingRoom", "enableWaitingRoom", "enableUnmuteAll",          "enableE2ee"};
  std::vector<std::string> always;
  const Value without = sentSetting();
  for (const auto& [key, value] : without.entries()) always.push_back(key);
  EXPECT_THAT(always, ElementsAre("enableAutoRecordingCloud", "enableAutoRecordingLocal",
                                  "enableAutoRecordingMtgLevelFirst", "meetingPassword", "muteOnEntry", "vnSrc"));
  for (const char* key : plain) setSetting(key, std::string("of ") + key);
  for (const char* key : {"roomMeetingId", "restrictJoinDomains", "notShowMeAgain"}) setSetting(key, "stays here");
  const Value setting = sentSetting();
  for (const char* key : plain) EXPECT_EQ(setting[key].text(), std::string("of ") + key);
  EXPECT_EQ(setting.count(), always.size() + std::size(plain));
}

TEST_F(Commit, SettingsThatDependOnOthersFollowThem) {
  const Value chosen = Value::dictionaryFromPairs({{"templateName", "without an id"}});
  setSetting("meetingPassword", "secret");
  setSetting("meetingTemplate", chosen);
  EXPECT_EQ(sentSetting()["meetingPassword"], Value(""));
  EXPECT_EQ(sentSetting()["meetingTemplate"], chosen);
  setSetting("requiredMeetingPassword", true);
  setSetting("usePMI", true);
  EXPECT_EQ(sentSetting()["meetingPassword"].text(), "secret");
  EXPECT_FALSE(sentSetting().contains("meetingTemplate"));
  EXPECT_FALSE(sentSetting().contains("requiredMeetingPassword"));
  EXPECT_EQ(sentSetting()["vnSrc"].text(), "msOutlook");
}

TEST_F(Commit, TheManagerLearnsWhomTheMeetingIsScheduledForEvenWhenItIsNobody) {
  setSetting("scheduleFor", "ann@x.org");
  EXPECT_EQ(sentSetting()["scheduleFor"].text(), "ann@x.org");
  EXPECT_EQ(owner.otherHost, "ann@x.org");
  setSetting("scheduleFor", "");
  EXPECT_FALSE(sentSetting().contains("scheduleFor"));
  EXPECT_EQ(owner.otherHost, "");
}

TEST_F(Commit, AClientGetsOnlyTheSettingsThatItUnderstands) {
  const Value list = vnOLUtils::toArrayOrNSDictionary(R"(["a"])");
  for (const char* key : {"muteOnEntry", "enableMeetingToPublicEvent", "enableAudioWatermark",
                          "enableRegionCustomization", "enableAllowDenyJoinMeetingRegion"}) {
    setSetting(key, true);
  }
  for (const char* key : {"alternateHosts", "additionalDCRegions", "regionCodes"}) setSetting(key, list);
  setSetting("regionType", 1);
  setSetting("availableDialinCountry", Value::dictionaryFromPairs({{"hash", "h"}}));
  const struct {
    const char *key, *before, *from;
  } gates[] = {
      {"muteOnEntry", "4.0.40459", "4.0.40460"},
      {"alternateHosts", "4.0.40459", "4.0.40460"},
      {"enableMeetingToPublicEvent", "4.2.28914", "4.2.28915"},
      {"enableAudioWatermark", "4.3.40530", "4.3.40531"},
      {"enableRegionCustomization", "4.6.20614", "4.6.20615"},
      {"additionalDCRegions", "4.6.20614", "4.6.20615"},
      {"enableAllowDenyJoinMeetingRegion", "5.4.59939", "5.4.59940"},
      {"RegionPolicy", "5.4.59939", "5.4.59940"},
  };
  for (const auto& [key, before, from] : gates) {
    installClient(before);
    EXPECT_FALSE(sentSetting().contains(key)) << key;
    installClient(from);
    EXPECT_TRUE(sentSetting().contains(key)) << key;
  }
  EXPECT_EQ(sentSetting()["RegionPolicy"], Value::dictionaryFromPairs({{"regionType", 1}, {"regionCodes", list}}));
  EXPECT_FALSE(sentSetting().contains("regionType"));
  setSetting("enableAllowDenyJoinMeetingRegion", false);
  EXPECT_FALSE(sentSetting().contains("RegionPolicy"));

  // The account decides about dial-in countries, whatever the client's version.
  EXPECT_FALSE(sentSetting().contains("availableDialinCountry"));
  setProfile(Value::dictionaryFromPairs({{"supportFeatureOptions", 1}}));
  EXPECT_TRUE(sentSetting().contains("availableDialinCountry"));
}

TEST_F(Commit, WhatHasNoStartOrMustBeLeftAloneIsNotSent) {
  setProfile(Value::dictionaryFromPairs({{"roomMeetingId", "1234567890"}}));
  for (const char* key : {"1234567890", "0"}) {
    data.set("meetingKey", key);
    EXPECT_EQ(mgr->updateMeeting(window, data), 0);
  }
  EXPECT_THAT(alertTexts(), IsEmpty());
  data.set("meetingKey", "987");
  setAppt("startTime", Value::dictionaryFromPairs({{"UTCTime", "soon"}}));
  EXPECT_EQ(mgr->updateMeeting(window, data), 0);
  EXPECT_THAT(alertTexts(), ElementsAre("LN_Schedule_ErrorMessage_InvalidStartTime"));
  // The window of this request is not known yet.
  EXPECT_EQ(world.presenter.alerts()[0].window, HostObject());
  EXPECT_THAT(sent(), IsEmpty());
}

TEST_F(Commit, WhatCannotBeWrittenIsRefusedWithAWord) {
  for (const Value& unwritable : {Value("caf\xE9"), Value(std::numeric_limits<double>::infinity())}) {
    setAppt("location", unwritable);
    EXPECT_EQ(mgr->updateMeeting(window, data), 0);
    EXPECT_EQ(mgr->scheduleMeeting(window, data), 0);
  }
  EXPECT_THAT(alertTexts(), ElementsAre("SystemError", "SystemError", "SystemError", "SystemError"));
  EXPECT_THAT(sent(), IsEmpty());
  // No request is open that a stray reply could answer.
  reply("1", "987;invitation");
  EXPECT_THAT(owner.finished, IsEmpty());

  setAppt("location", "café");
  EXPECT_EQ(document()["apptInfo"]["location"].text(), "café");
}

TEST_F(Commit, ALockedOffWaitingRoomDemandsAPasscodeOrSignedInUsers) {
  const struct {
    std::uint64_t options, locks;
    const char* passcode;
    bool isForSignedIn, isSent;
  } cases[] = {
      {kNewWaitingRoomRules, kWaitingRoomLocked, "", false, false},
      {kNewWaitingRoomRules, kWaitingRoomLocked, "secret", false, true},
      {kNewWaitingRoomRules, kWaitingRoomLocked, "", true, true},
      {kNewWaitingRoomRules | kWaitingRoomOn, kWaitingRoomLocked, "", false, true},
      {kNewWaitingRoomRules, 0, "", false, true},
      {0, kWaitingRoomLocked, "", false, true},
  };
  for (const auto& [options, locks, passcode, isForSignedIn, isSent] : cases) {
    setProfileOptions(options, locks);
    setSetting("meetingPassword", passcode);
    setSetting("isSignedInUsersMeetingOn", isForSignedIn);
    owner.told.clear();
    const std::size_t before = sent().size();
    EXPECT_EQ(mgr->updateMeeting(window, data), 0);
    EXPECT_EQ(sent().size() > before, isSent);
    EXPECT_EQ(owner.told,
              isSent ? std::vector<std::string>{} : std::vector<std::string>({"action 2", "settings 3402 @abc"}));
  }
}

TEST_F(Commit, AnUnknownTemplateAsksTheUserAndAMissingTrackingValueReopensTheSettings) {
  setProfile(
      vnOLUtils::toArrayOrNSDictionary(R"({"meetingTemplates":[{"templateId":"T1"},{"templateId":"T2"}]})"));
  setSetting("meetingTemplate", Value::dictionaryFromPairs({{"templateId", "T3"}}));
  setSetting("trackingFields", vnOLUtils::toArrayOrNSDictionary(R"([{"id":"a"},{"id":"b","required":true}])"));
  EXPECT_EQ(mgr->scheduleMeeting(window, data), 0);
  EXPECT_THAT(owner.told, ElementsAre("action 1", "template @abc"));
  setSetting("meetingTemplate", Value::dictionaryFromPairs({{"templateId", "T2"}}));
  owner.told.clear();
  EXPECT_EQ(mgr->scheduleMeeting(window, data), 0);
  EXPECT_THAT(owner.told, ElementsAre("action 1", "settings 555 @abc"));
  EXPECT_THAT(sent(), IsEmpty());

  setSetting("trackingFields", vnOLUtils::toArrayOrNSDictionary(R"([{"id":"b","required":true,"mtValue":"x"}])"));
  EXPECT_EQ(sentSetting()["trackingFields"].count(), 1u);
}

TEST_F(Commit, WithoutAManagerTheClientDecides) {
  mgr->setMeetingMgrInstance(nullptr);
  setSetting("trackingFields", vnOLUtils::toArrayOrNSDictionary(R"([{"id":"b","required":true}])"));
  mgr->scheduleMeeting(window, data);
  EXPECT_EQ(sent().size(), 1u);
}

TEST_F(Commit, EachReplyIsReadByItsRule) {
  const struct {
    const char *content, *key, *invitation;
    std::vector<std::string> alerts, told;
  } cases[] = {
      {"987 654;Join: a;b;;c;", "987654", "Join: a;b;;c;", {}, {}},
      {"987;", "987", "", {}, {}},
      {"one field", nullptr, nullptr, {}, {}},
      {"0;Err what", nullptr, nullptr, {"0;Err what"}, {}},
      {"0;anything", nullptr, nullptr, {"0;anything"}, {}},
      {";anything", nullptr, nullptr, {";anything"}, {}},
      {"0;Error 3403", nullptr, nullptr, {}, {"action 2", "settings 3403 @abc"}},
      {"0;Error 3402", nullptr, nullptr, {}, {"action 2", "settings 3402 @abc"}},
      {"0;Error 3113;more", nullptr, nullptr, {}, {"action 2", "settings 3113 @abc"}},
      {"0;Error 3001", nullptr, nullptr, {"MeetingNotFound"}, {"reset @abc"}},
      {"0;Error 77", nullptr, nullptr, {"0;Error 77"}, {"reset @abc"}},
      {"", nullptr, nullptr, {"SystemError"}, {"reset @abc"}},
  };
  for (const auto& [content, key, invitation, alerts, told] : cases) {
    owner.finished.clear();
    owner.told.clear();
    world.presenter.forgetAlerts();
    mgr->updateMeeting(window, data);
    reply("2", content);
    EXPECT_EQ(alertTexts(), alerts) << content;
    EXPECT_EQ(owner.told, told) << content;
    ASSERT_EQ(owner.finished.size(), key ? 1u : 0u) << content;
    if (!key) continue;
    EXPECT_EQ(owner.finished[0].number, 5u);
    EXPECT_EQ(owner.finished[0].data[keyVnAPIResponse],
              Value::dictionaryFromPairs(
                  {{"meetingKey", key}, {"invitationEmail", invitation}, {"keyVnResult", "Success"}}));
  }
  mgr->scheduleMeeting(window, data);
  reply("1", "987;text");
  EXPECT_EQ(owner.finished.back().number, 4u);
}

TEST_F(Commit, ADisabledPersonalIdIsTakenOutOfTheStoredSettings) {
  setProfile(Value::dictionaryFromPairs({{"userId", "user"}}));
  const JsonTextFile file(vnCommon::getVnUserProfilePath("user"));
  mgr->updateMeeting(window, data);
  reply("2", "0;Error 3105");
  EXPECT_TRUE(file.read().isAbsent());
  EXPECT_THAT(owner.told, ElementsAre("reset @abc"));

  file.write(Value::dictionaryFromPairs({{"usePMI", true}, {"audioOption", 2}}));
  mgr->updateMeeting(window, data);
  reply("2", "0;Error 3105");
  EXPECT_EQ(file.read(), Value::dictionaryFromPairs({{"usePMI", false}, {"audioOption", 2}}));
  EXPECT_EQ(alertTexts().size(), 2u);
}

TEST_F(Commit, ZoneNamesAreMappedByTheFirstLineThatFits) {
  world.surroundings.resources["timezones_map.txt"] =
      "# a remark\n\nThree;Parts;Here\nthree;Second\nPacific Time; America/Los_Angeles \r\nPacific Time;Later\n"
      "Z\xC3\xBCrich;Europe/Zurich\nOnly one part\nLast;Line";
  const std::pair<OptionalText, OptionalText> cases[] = {
      {"Three", "Second"},
      {"PACIFIC time", "America/Los_Angeles"},
      {"Z\xC3\x9CRICH", "Europe/Zurich"},
      {"last", "Line"},
      {" Unknown Zone \n", "Unknown Zone"},
      {"Only one part", "Only one part"},
      {"", ""},
      {std::nullopt, std::nullopt},
  };
  for (const auto& [name, mapped] : cases) EXPECT_EQ(vnAPICommitMeeting::getJodaTimezoneName(name), mapped);

  for (const char* broken : {"", "\n\n", "last;\xFF"}) {
    world.surroundings.resources["timezones_map.txt"] = broken;
    EXPECT_EQ(vnAPICommitMeeting::getJodaTimezoneName("last"), "last");
  }
  world.surroundings.resources.clear();
  EXPECT_EQ(vnAPICommitMeeting::getJodaTimezoneName(" last"), "last");
}

TEST_F(Commit, TheShippedMapKnowsTheNamesThatHostsUse) {
  world.surroundings.resourceFolder = VORN_RESOURCE_FOLDER;
  const std::pair<const char*, const char*> cases[] = {
      {"Pacific Standard Time", "America/Los_Angeles"},
      {"(UTC-08:00) Pacific Time (US & Canada)", "America/Los_Angeles"},
      {"W. Europe Standard Time", "Europe/Berlin"},
      {"(UTC+01:00) Amsterdam, Berlin, Bern, Rome, Stockholm, Vienna", "Europe/Berlin"},
      {"europe/paris", "Europe/Paris"},
      {"UTC", "UTC"},
      {"Nowhere Standard Time", "Nowhere Standard Time"},
  };
  for (const auto& [name, mapped] : cases) EXPECT_EQ(vnAPICommitMeeting::getJodaTimezoneName(name), mapped);
}

}  // namespace
}  // namespace vorn

#include "channel/commands/vnAPIStartMeeting.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnGetPACHelper.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnUserProfileHelper.h"
#include "tests/commands/CommandWorld.h"
#include "util/vnOLUtils.h"

namespace vorn {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

using Catalogue = CommandWorld;

Value request(const std::string& key, const std::string& language = "", bool forPMI = false) {
  Value data = Value::dictionaryFromPairs({{"meetingKey", key}, {"isForPMI", forPMI}});
  data.set("setting", Value::dictionaryFromPairs({{"language", language}}));
  return data;
}

JsonTextFile siteFile() { return JsonTextFile(vnMeetingCommon::getLocalVnSiteConfigPath()); }

TEST_F(Catalogue, EachRequestHasTheContentThatTheClientUnderstands) {
  const Value byUUID = Value::dictionaryFromPairs({{"olApptUUID", "U-1"}});
  const struct {
    const char* version;
    std::function<int()> send;
    const char *action, *content;
  } cases[] = {
      {"6.0.0", [&] { return mgr->getMeeting(window, request("0")); }, "3", "4;0;msOutlook;0"},
      {"4.3.99999", [&] { return mgr->getMeeting(window, request("987", "de", true)); }, "3", "4;987"},
      {"4.4.0", [&] { return mgr->getMeeting(window, request("987", "", true)); }, "3", "4;987;msOutlook;1;de"},
      {"4.4.0", [&] { return mgr->getMeeting(window, request("", "fr")); }, "3", "4;;msOutlook;0;fr"},
      {"4.4.0", [&] { return mgr->getNewMeetingDefault(window); }, "3", "4;new;msOutlook;0;fr"},
      {"4.3.40530", [&] { return mgr->deleteMeeting(window, request("987")); }, "3", "3;987"},
      {"4.3.40531", [&] { return mgr->deleteMeeting(window, request("987")); }, "3", "3;987;msOutlook"},
      {"4.3.0", [&] { return mgr->getMeetingByApptUUID(window, byUUID); }, "3", "10;U-1"},
      {"3.5.0", [&] { return mgr->getUserProfile(window, Value()); }, "6", "6"},
      {"3.5.22781", [&] { return mgr->getPAC(window, Value()); }, "9", "9"},
      {"3.5.0", [&] { return mgr->getScheduleForList(window); }, "11", "11"},
  };
  for (const auto& [version, send, action, content] : cases) {
    installClient(version);
    EXPECT_EQ(send(), 0) << content;
    ASSERT_FALSE(sent().empty());
    EXPECT_EQ(sent().back(), Envelope(action, content)) << version;
  }
}

TEST_F(Catalogue, StartingAMeetingSaysHowAndWaitsForNothing) {
  mgr->startMeeting(true);
  mgr->startMeeting(false);
  ASSERT_EQ(sent().size(), 2u);
  for (const std::size_t i : {0u, 1u}) {
    const Value content = vnOLUtils::toArrayOrNSDictionary(sent()[i].second);
    EXPECT_EQ(sent()[i].first, "2");
    EXPECT_EQ(content["from"].text(), "macOutlookPlugin");
    EXPECT_EQ(content["launchtype"].text(), i == 0 ? "groupVideo" : "groupShare");
  }
  EXPECT_EQ(activations(), 0u);
  EXPECT_EQ(world.runLoop.waiting(), 0u);
}

TEST_F(Catalogue, AnAudioRequestToAnOldClientDoesNothing) {
  installClient("3.5.22780");
  EXPECT_EQ(mgr->getPAC(window, Value()), 0);
  EXPECT_THAT(sent(), IsEmpty());
  reply("9", "");
  EXPECT_THAT(alertTexts(), IsEmpty());
}

TEST_F(Catalogue, ANumberThatMustBeLeftAloneIsNotDeleted) {
  setProfile(Value::dictionaryFromPairs({{"roomMeetingId", "1234567890"}}));
  const auto isDeleted = [&](const std::string& key) {
    const std::size_t before = sent().size();
    EXPECT_EQ(mgr->deleteMeeting(window, request(key)), 0);
    return sent().size() > before;
  };
  EXPECT_FALSE(isDeleted(""));
  EXPECT_FALSE(isDeleted("0"));
  EXPECT_FALSE(isDeleted("1234567890"));
  EXPECT_FALSE(isDeleted("01234567890"));  // numbers are compared, not texts
  EXPECT_TRUE(isDeleted("1234567891"));

  Value bosses = Value::array();
  bosses.append(Value::dictionaryFromPairs({{"email", "ann@x.org"}, {"pmi", "555"}}));
  setProfile(Value::dictionaryFromPairs({{"roomMeetingId", "1234567890"}, {"bosses", bosses}}));
  EXPECT_FALSE(isDeleted("555"));

  // Without the profile's number those of earlier times count, but only then.
  Value rooms = Value::array();
  rooms.append("4711");
  siteFile().setKey(vn_LocalProfile_CachedRoomMeetingIds, rooms);
  EXPECT_TRUE(isDeleted("4711"));
  setProfile(Value::dictionaryFromPairs({{"userId", "user"}}));
  EXPECT_FALSE(isDeleted("4711"));
  EXPECT_TRUE(isDeleted("4712"));
}

TEST_F(Catalogue, EachFormOfAMeetingReplyIsReadAsFarAsItGoes) {
  const std::string meeting = packed(Value::dictionaryFromPairs({{"meetingKey", "987"}}));
  const struct {
    const char* name;
    std::string content;
    bool isHanded;
    const char* key;
    bool hasMessage;
  } cases[] = {
      {"13 fields", meetingReply({}), false, "", false},
      {"14 fields", meetingReply({meeting}), true, "987", false},
      {"broken base64", meetingReply({"!!!"}), true, "", false},
      {"base64 of no JSON", meetingReply({"aGVsbG8="}), true, "", false},
      {"a JSON that is no dictionary", meetingReply({packed(Value::array())}), true, "", false},
      {"an empty field", meetingReply({""}), true, "", false},
      {"15 fields", meetingReply({meeting, "eAA="}), true, "987", true},
      {"many fields", meetingReply({meeting, "eAA=", "more", "", ""}), true, "987", true},
  };
  for (const bool byUUID : {false, true}) {
    for (const auto& [name, content, isHanded, key, hasMessage] : cases) {
      owner.finished.clear();
      owner.helper.cleanup();
      owner.helper.setMeetingData(Value::dictionaryFromPairs({{"meetingKey", "before"}}), false);
      if (byUUID) {
        mgr->getMeetingByApptUUID(window, Value());
      } else {
        mgr->getMeeting(window, request("987"));
      }
      reply(byUUID ? "10" : "4", content);
      ASSERT_EQ(owner.finished.size(), isHanded ? 1u : 0u) << name;
      if (!isHanded) continue;
      EXPECT_EQ(owner.finished[0].number, byUUID ? 15u : 7u) << name;
      EXPECT_EQ(owner.finished[0].data[keyVnAPIResponse]["meetingKey"].text(), key) << name;
      EXPECT_EQ(owner.finished[0].data.contains(keyVnAPIResponse), *key != 0) << name;
      // The reader has the new dictionary, even if it is an empty one.
      EXPECT_EQ(owner.helper.hasMeetingInfo(), *key != 0) << name;
      EXPECT_EQ(owner.helper.NeedRequestGetMeeting(), byUUID || *key == 0) << name;
      // A message without a number is that of a new meeting, and shows that there is one.
      EXPECT_EQ(owner.helper.isNewMeetingDefault(), hasMessage) << name;
    }
  }
  EXPECT_THAT(alertTexts(), IsEmpty());
}

std::string meetingReplyOf(const std::string& number, const std::string& original = "0") {
  return meetingReply(
      {packed(Value::dictionaryFromPairs({{"meetingKey", number}, {"originalMeetingNumber", original}}))});
}

// Replies name no request: those of other windows come as well.
TEST_F(Catalogue, AMeetingIsTakenForTheOneThatWasAskedForOrThatTheServiceInsistsOn) {
  const struct {
    const char *name, *asked;
    std::vector<std::string> told;
    std::size_t requests;
    bool isHanded;
    const char* original = "0";
  } rows[] = {
      {"the meeting itself", "987", {"987"}, 1, true},
      {"in another form", "9 87", {"987"}, 1, true},
      {"a personal meeting by a number of its own", "987", {"555"}, 1, true, "987"},
      {"what a new meeting starts from", "new", {"987"}, 1, true},
      {"another window's", "987", {"1"}, 2, false},
      {"those of many windows before it", "987", {"1", "2", "3", "4", "5", "6", "987"}, 7, true},
      {"a service that insists", "987", {"1", "1", "1", "1", "1"}, 5, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    owner.finished.clear();
    const std::size_t before = sent().size();
    mgr->getMeeting(window, request(row.asked));
    for (const std::string& number : row.told) reply("4", meetingReplyOf(number, row.original));
    EXPECT_EQ(sent().size() - before, row.requests);
    EXPECT_EQ(owner.finished.size(), row.isHanded ? 1u : 0u);
    EXPECT_EQ(mgr->isWaitingForMeeting(), !row.isHanded);
  }
  mgr->getMeeting(window, request("987"));
  runFor(61);
  reply("4", meetingReplyOf("1"));
  EXPECT_TRUE(mgr->isWaitingForMeeting()) << "for what went out once more";
}

TEST_F(Catalogue, ANumberThatAnotherWindowAskedForIsNoInsistenceUntilThatWindowIsAnsweredOrLetsGo) {
  auto other = std::make_unique<vnAPIMgr>();
  mgr->getMeeting(window, request("987"));
  other->getMeeting(window, request("5 55"));
  vnAPIMgr withoutNumber;
  withoutNumber.getMeeting(window, request("0"));
  for (int i = 0; i < 150; ++i) reply("4", i < 75 ? meetingReplyOf("555") : meetingReplyOf("1", "555"));
  EXPECT_TRUE(owner.finished.empty() && mgr->isWaitingForMeeting());
  EXPECT_EQ(sent().size(), 103u) << "asked once more as often as is of use";
  FakeOwner others;
  other->setMeetingMgrInstance(&others);
  for (int i = 0; i < 5; ++i) {
    reply("4", meetingReplyOf("555"));
    EXPECT_EQ(others.finished.size(), 1u);
    EXPECT_TRUE(owner.finished.empty()) << i;
    runFor(0.1);
  }
  reply("4", meetingReplyOf("555"));
  EXPECT_EQ(owner.finished.size(), 1u);
  // Nor for ever, when no answer comes.
  for (const bool letsGo : {true, false}) {
    owner.finished.clear();
    mgr->getMeeting(window, request("987"));
    other->getMeeting(window, request("777"));
    letsGo ? other->letGoOfMeeting() : runFor(61);
    for (int i = 0; i < 5; ++i) reply("4", meetingReplyOf("777"));
    EXPECT_EQ(owner.finished.size(), 1u);
  }
}

TEST_F(Catalogue, ARepetitionThatTheChannelDropsLeavesTheQuestionOutAndAnInsistingServiceIsBelieved) {
  mgr->getMeeting(window, request("987"));
  connectClient(false);
  reply("4", meetingReplyOf("1"));
  connectClient(true);
  EXPECT_TRUE(mgr->isWaitingForMeeting());
  for (int i = 0; i < 4; ++i) reply("4", meetingReplyOf("1"));
  EXPECT_EQ(owner.finished.size(), 1u);
}

TEST_F(Catalogue, AStrangersMeetingIsTakenOffAndTheManagerHearsNothing) {
  owner.scheduleForIsValid = false;
  owner.key = "987";
  mgr->getMeeting(window, request("987"));
  reply("4", meetingReplyOf("987"));
  EXPECT_EQ(owner.key, "");
  EXPECT_FALSE(owner.helper.hasMeetingInfo()) << "no new meeting may start from it";
  EXPECT_THAT(owner.told, ElementsAre("scheduleFor @" + window.windowId()));
  EXPECT_THAT(owner.finished, IsEmpty());
}

TEST_F(Catalogue, WhatWasRefusedOrDroppedIsNotWaitedForAndNotSentForAnothersAnswer) {
  for (const bool isRefused : {true, false}) {
    mgr->getMeeting(window, request("987"));
    reply("4", meetingReplyOf("987"));
    const std::size_t before = sent().size();
    owner.finished.clear();
    runClient(!isRefused);
    connectClient(isRefused);
    mgr->getMeeting(window, request("987"));
    runClient();
    connectClient(true);
    EXPECT_FALSE(mgr->isWaitingForMeeting());
    for (int i = 0; i < 9; ++i) reply("4", meetingReplyOf("1"));
    // An error that names no meeting is another window's only where none can come.
    if (!isRefused) reply("4", "0;Error 3001");
    EXPECT_TRUE(sent().size() == before && owner.finished.empty());
    reply("4", meetingReplyOf("987"));
    EXPECT_EQ(owner.finished.size(), 1u) << "its own answer all the same";
  }
}

// Of what the channel dropped every reply is another window's, which matters where it is about one meeting.
TEST_F(Catalogue, AMeetingsReplyIsNoAnswerToWhatTheChannelDropped) {
  const Value data = request("987");
  const struct {
    std::function<void()> send;
    const char* action;
    std::string content;
    bool isEverybodys = false;
  } cases[] = {
      {[&] { mgr->scheduleMeeting(window, data); }, "1", "555;text"},
      {[&] { mgr->updateMeeting(window, data); }, "2", "555;text"},
      {[&] { mgr->deleteMeeting(window, data); }, "3", "555"},
      {[&] { mgr->getMeetingByApptUUID(window, data); }, "10", meetingReplyOf("555")},
      {[&] { mgr->getUserProfile(window, data); }, "6", "{}", true},
      {[&] { mgr->getPAC(window, data); }, "9", "{}", true},
      {[&] { mgr->getScheduleForList(window); }, "11", "{}", true},
  };
  for (const auto& [send, action, content, isEverybodys] : cases) {
    SCOPED_TRACE(action);
    const auto taken = [&, action = action, content = content] {
      owner.finished.clear();
      reply(action, content);
      return owner.finished.size();
    };
    const auto drop = [&, send = send] {
      connectClient(false);
      send();
      connectClient(true);
    };
    runClient(false);
    send();
    runClient();
    EXPECT_EQ(taken(), 1u) << "refused at the gate";
    drop();
    EXPECT_EQ(taken(), isEverybodys ? 1u : 0u);
    send();
    drop();
    EXPECT_EQ(taken(), 1u) << "the answer to the one before it";
  }
}

TEST_F(Catalogue, OnlyARequestForThePersonalIdTakesItsNumberForOne) {
  setProfile(Value::dictionaryFromPairs({{"roomMeetingId", "987"}}));
  const std::string content = meetingReply({packed(Value::dictionaryFromPairs({{"meetingKey", "987"}}))});
  mgr->getMeeting(window, request("987"));
  mgr->letGoOfMeeting();
  reply("4", content);
  EXPECT_FALSE(owner.helper.hasMeetingInfo()) << "it was let go of";
  const auto usesPMI = [&] { return owner.helper.getMeetingInfo()["setting"]["usePMI"].boolValue(); };
  for (const bool forPMI : {true, false}) {
    mgr->getMeeting(window, request("987", "", forPMI));
    reply("4", content);
    EXPECT_EQ(usesPMI(), forPMI);
  }
  mgr->getMeetingByApptUUID(window, Value());
  reply("10", content);
  EXPECT_FALSE(usesPMI());
}

TEST_F(Catalogue, AnErrorIsShownAndTheManagerHearsNothing) {
  const Value silent = Value::dictionaryFromPairs({{"silentAPIError", true}});
  const struct {
    std::function<void()> send;
    const char* action;
    std::vector<std::string> texts, told;
  } cases[] = {
      {[&] { mgr->deleteMeeting(window, request("987")); }, "3", {"MeetingNotFound"}, {"cleared"}},
      {[&] { mgr->getMeeting(window, request("987")); }, "4", {"MeetingNotFound"}, {}},
      {[&] { mgr->getMeetingByApptUUID(window, Value()); }, "10", {}, {}},
      {[&] { mgr->getUserProfile(window, Value()); }, "6", {"MeetingNotFound"}, {}},
      {[&] { mgr->getUserProfile(window, silent); }, "6", {}, {}},
      {[&] { mgr->getPAC(window, Value()); }, "9", {"MeetingNotFound"}, {}},
      {[&] { mgr->getScheduleForList(window); }, "11", {"MeetingNotFound"}, {}},
  };
  for (const auto& [send, action, texts, told] : cases) {
    world.presenter.forgetAlerts();
    owner.told.clear();
    send();
    reply(action, "0;Error 3001");
    EXPECT_EQ(alertTexts(), texts) << action;
    EXPECT_EQ(owner.told, told) << action;
  }
  EXPECT_THAT(owner.finished, IsEmpty());
}

TEST_F(Catalogue, ASuccessfulDeleteReplyIsTheKeyWhateverItHolds) {
  mgr->deleteMeeting(window, request("987"));
  reply("3", "any text; really");
  ASSERT_EQ(owner.finished.size(), 1u);
  EXPECT_EQ(owner.finished[0].number, 6u);
  EXPECT_EQ(owner.finished[0].data[keyVnAPIResponse],
            Value::dictionaryFromPairs(
                {{"meetingKey", "any text; really"}, {"invitationEmail", ""}, {"keyVnResult", "Success"}}));
}

// Until when it is told, a scenario shows.
TEST_F(Catalogue, ADeleteTellsWhereTheMeetingIs) {
  setTexts({{"LN_Schedule_DeleteMeetingInfo_RecentlyDeleted_120529", "Trash"}});
  const auto deletes = [&] {
    world.presenter.forgetAlerts();
    mgr->deleteMeeting(window, request("987"));
    reply("3", "987");
    std::string shown;
    for (const auto& each : world.presenter.alerts()) {
      EXPECT_EQ(each.window, window);
      EXPECT_EQ(each.alert.buttons.size(), 2u);
      shown += each.alert.message;
      if (each.alert.link) shown += "(" + each.alert.link->address + ")";
    }
    return shown;
  };

  owner.whenFinished = [&] { EXPECT_THAT(world.presenter.alerts(), SizeIs(1)) << "before the window may close"; };
  EXPECT_THAT(deletes(), AllOf(HasSubstr("Trash"), Not(HasSubstr("("))));
  owner.whenFinished = nullptr;
  siteFile().setKey(vn_LocalProfile_TrashCanLink, "https://old.example");
  EXPECT_THAT(deletes(), AllOf(HasSubstr("Trash"), HasSubstr("(https://old.example)")));
  setProfile(Value::dictionaryFromPairs({{"trashCanLink", "https://new.example"}}));
  EXPECT_THAT(deletes(), HasSubstr("(https://new.example)"));
  world.presenter.followLink(0);
  EXPECT_THAT(world.workspace.openedPages, ElementsAre("https://new.example"));

  mgr.reset();
  world.presenter.answerAlert(0, {0, true});
  EXPECT_EQ(world.userDefaults.objectForKey(vn_Delete_DoNotRemind), Value(true))
      << "the answer outlives the window that was deleted from";
}

TEST_F(Catalogue, TheProfileReachesItsReaderBeforeTheManagerHearsOfIt) {
  bool known = false;
  owner.whenFinished = [&] { known = vnUserProfileHelper::sharedInstance().hasUserProfile(); };
  mgr->getUserProfile(window, Value());
  reply("6", R"({"userId":"u"})");
  EXPECT_TRUE(known);
  EXPECT_EQ(owner.finished[0].number, 8u);

  for (const char* broken : {"no JSON", "[1]", "17"}) {
    owner.finished.clear();
    mgr->getUserProfile(window, Value());
    reply("6", broken);
    ASSERT_EQ(owner.finished.size(), 1u) << broken;
    EXPECT_FALSE(owner.finished[0].data.contains(keyVnAPIResponse)) << broken;
    EXPECT_FALSE(vnUserProfileHelper::sharedInstance().hasUserProfile()) << broken;
  }
}

TEST_F(Catalogue, WhatOutlastsAProfileIsNotedInTheSiteConfiguration) {
  const auto receive = [&](const std::string& profile) {
    mgr->getUserProfile(window, Value());
    reply("6", profile);
  };
  world.userDefaults.setObject("old place", vn_LocalProfile_TrashCanLink);
  receive(R"({"roomMeetingId":"0","trashCanLink":"unseen"})");
  EXPECT_TRUE(world.userDefaults.objectForKey(vn_LocalProfile_TrashCanLink).isAbsent());
  EXPECT_TRUE(siteFile().read().isAbsent());

  receive(R"({"roomMeetingId":"123","trashCanLink":"link","vornDomain":"vorn.example"})");
  receive(R"({"roomMeetingId":"456","trashCanLink":""})");
  receive(R"({"roomMeetingId":"123"})");
  const Value site = siteFile().read();
  EXPECT_THAT(site["cachedRoomMeetingIds"].items(), ElementsAre(Value("123"), Value("456")));
  EXPECT_EQ(site["trashCanLink"].text(), "link");
}

}  // namespace
}  // namespace vorn

// Whatever goes wrong at whatever moment: the calendar holds what it held or what it should hold, the editor stays
// open with what the user has typed, and when the trouble is over the next save does what an undisturbed one does.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <string>
#include <vector>

#include "platform/Localization.h"
#include "tests/road/Calendars.h"

namespace vorn {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using EditorId = RoadWorld::EditorId;

constexpr const char* kPlain = "SUMMARY:Review\r\nLOCATION:Castle\r\nDESCRIPTION:Bring the figures.\r\n";
const std::string kWithGuest = std::string(kPlain) + kGuest;
constexpr const char* kTyped = "Review, renamed";

// What a person does, until it is done or visibly cannot be done.
struct Operation {
  const char* name;
  std::string appointment;
  bool hadMeeting;
  bool endsMeeting;
  // The requests before this one, counted from 1, are those of another operation and are tried there.
  std::size_t firstMoment;
  std::function<void(RoadWorld&, EditorId)> perform;
};

void finish(RoadWorld& world, EditorId editor) {
  if (world.host.hasAttendees(editor)) {
    world.send(editor);
  } else {
    world.saveAndClose(editor);
  }
}

void addAndFinish(RoadWorld& world, EditorId editor) {
  if (world.offersAdd(editor)) world.clickAdd(editor);
  if (world.showsMeeting(editor)) finish(world, editor);
}

void cancelAndFinish(RoadWorld& world, EditorId editor) {
  world.clickCancel(editor);
  if (world.offersAdd(editor)) finish(world, editor);
}

const Operation kOperations[] = {
    {"add and save", kPlain, false, false, 1, addAndFinish},
    {"change and save", kPlain, true, false, 1, finish},
    {"change and send", kWithGuest, true, false, 3, finish},
    {"cancel and save", kPlain, true, true, 2, cancelAndFinish},
};

// What befalls one request: what the client does wrong with its reply, or what happens to the client meanwhile.
struct Cause {
  const char* name;
  const char* fault = nullptr;
  // Answers whether the request still reaches the client.
  bool (*incident)(RoadWorld&) = nullptr;
};

// Tried with every request.
const Cause kCauses[] = {
    {"lost on its way", nullptr, [](RoadWorld&) { return false; }},
    {"answered by nobody", "silent"},
    {"the last that is answered by nobody", nullptr,
     [](RoadWorld& world) {
       world.client->setFaults("every reply: silent");
       return true;
     }},
    {"answered twice", "twice"},
    {"answered after the sheet has gone", "delay 70"},
    {"an empty answer", "content"},
    {"an answer that says nothing", "content %%%"},
    {"an answer cut short", "fields 1"},
    {"an answer without its packed meeting", "fields 13"},
    {"the client quits and its answer comes all the same", nullptr,
     [](RoadWorld& world) {
       world.quitClient();
       return true;
     }},
    {"the client dies", "die"},
    {"the connection ends", "close"},
    {"no such meeting", "error 3001"},
    {"not signed in", "error VornClientNotSignIn"},
    {"own words", "content 0;Error 9999 the moon is full"},
};

// Tried at commits alone: elsewhere another cause of its kind stands for it.
const Cause kCausesAtCommits[] = {
    {"the client is taken off the machine", nullptr,
     [](RoadWorld& world) {
       world.removeClient();
       return true;
     }},
    {"the client is exchanged for an old one", nullptr,
     [](RoadWorld& world) {
       world.installClientVersion("3.4.99999");
       return true;
     }},
    {"2", "error 2"},
    {"5003", "error 5003"},
    {"3068", "error 3068"},
    {"1113", "content 0;Error 1113;ada@vorn.example#no"},
    {"1114", "content 0;Error 1114;ada@vorn.example#no"},
    {"1115", "error 1115"},
    {"3070", "error 3070"},
    {"3402", "error 3402"},
    {"no error that is known", "content 0;Err something else"},
};

void befall(RoadWorld& world, std::size_t request, const Cause& cause) {
  if (cause.fault) world.client->setFaults("reply " + std::to_string(request) + ": " + cause.fault);
  if (cause.incident) world.client->setIncident(request, [&world, &cause] { return cause.incident(world); });
}

// Numbers, passcodes, tokens and digests differ from one run to the next: words of digits alone become "#", and so
// do those with many digits and those of 32 characters and more.
std::string withoutVaryingWords(const std::string& text) {
  const auto isWordCharacter = [](unsigned char c) { return std::isalnum(c) != 0; };
  std::string result;
  for (auto at = text.begin(); at != text.end();) {
    const auto end = std::find_if_not(at, text.end(), isWordCharacter);
    if (at == end) {
      result += *at++;
      continue;
    }
    const auto digits = std::count_if(at, end, [](unsigned char c) { return std::isdigit(c) != 0; });
    const bool isVarying = digits == end - at || digits >= 9 || end - at >= 32;
    result += isVarying ? std::string("#") : std::string(at, end);
    at = end;
  }
  return result;
}

// A calendar with the appointment as the operation finds it, and the editor open with something typed.
struct Scene {
  explicit Scene(const Operation& operation) : world(calendarWith(operation.appointment)) {
    if (operation.hadMeeting) {
      editor = world.openEditor("one");
      world.clickAdd(editor);
      finish(world, editor);
      EXPECT_FALSE(world.host.isOpen(editor));
    }
    before = world.calendarText();
    world.client->forgetRequests();
  }

  void openAndType() {
    editor = world.openEditor("one");
    world.host.typeSubject(editor, kTyped);
  }

  // What is stored, as far as it does not differ from one run to the next.
  std::string outcome() {
    const auto event = world.store.find("one");
    std::string text = event->summary().value_or("-") + "\n" + event->location().value_or("-") + "\n" +
                       event->description().value_or("-") + "\n" + event->htmlDescription().value_or("-") + "\n" +
                       event->olmUCInband().value_or("-");
    return withoutVaryingWords(text);
  }

  bool meetingIsGone() { return !world.service.meetings().find(world.record("one")["meetingKey"].integerValue()); }

  RoadWorld world;
  EditorId editor{};
  std::string before;
};

class Failures : public testing::TestWithParam<Operation> {
 protected:
  Failures() {
    Scene undisturbed(GetParam());
    undisturbed.openAndType();
    GetParam().perform(undisturbed.world, undisturbed.editor);
    EXPECT_FALSE(undisturbed.world.host.isOpen(undisturbed.editor));
    m_good = undisturbed.outcome();
    m_requests = undisturbed.world.client->requestNames();
  }

  // The operation failed or it did not; it did nothing by halves.
  void expectAllOrNothing(Scene& scene) {
    RoadWorld& world = scene.world;
    EXPECT_FALSE(world.showsProgress());
    if (!world.host.isOpen(scene.editor)) {
      EXPECT_EQ(scene.outcome(), m_good);
      return;
    }
    EXPECT_EQ(world.calendarText(), scene.before);
    EXPECT_TRUE(world.host.isDirty(scene.editor));
    EXPECT_EQ(world.host.subject(scene.editor), kTyped);
  }

  void expectTheNextTrySucceeds(Scene& scene) {
    RoadWorld& world = scene.world;
    world.bringClientBack();
    const bool meetingIsGone = GetParam().endsMeeting && scene.meetingIsGone();
    if (world.host.isOpen(scene.editor)) {
      // A cancel that failed has cleared what the window knew of the meeting: the next one begins in a fresh
      // window.
      if (GetParam().endsMeeting) {
        world.abandon(scene.editor);
        scene.openAndType();
      }
      GetParam().perform(world, scene.editor);
      if (meetingIsGone) {
        // It was deleted and the answer was lost. The service does not know it any more and says so.
        EXPECT_EQ(world.lastAlert(), localizedString("MeetingNotFound"));
        EXPECT_EQ(world.calendarText(), scene.before);
        return;
      }
    }
    EXPECT_FALSE(world.host.isOpen(scene.editor)) << world.lastAlert();
    EXPECT_EQ(scene.outcome(), m_good);
  }

  std::string m_good;
  std::vector<std::string> m_requests;
};

TEST_P(Failures, AtAnyRequestCostNothingAndAreOverWhenTheTroubleIs) {
  for (std::size_t moment = GetParam().firstMoment; moment <= m_requests.size(); ++moment) {
    const std::string& request = m_requests[moment - 1];
    // Nothing waits for the audio conferences, whatever the operation.
    if (request == "9" && GetParam().hadMeeting) continue;
    std::vector<Cause> causes(std::begin(kCauses), std::end(kCauses));
    if (request == "3/1" || request == "3/2") {
      causes.insert(causes.end(), std::begin(kCausesAtCommits), std::end(kCausesAtCommits));
    }
    for (const Cause& cause : causes) {
      SCOPED_TRACE("request " + request + ", the " + std::to_string(moment) + "th: " + cause.name);
      Scene scene(GetParam());
      befall(scene.world, moment, cause);
      scene.openAndType();
      GetParam().perform(scene.world, scene.editor);
      scene.world.settle(130);
      expectAllOrNothing(scene);
      expectTheNextTrySucceeds(scene);
    }
  }
}

TEST_P(Failures, BeforeTheFirstRequestCostNothing) {
  const std::pair<const char*, void (*)(RoadWorld&)> troubles[] = {
      {"not running", [](RoadWorld& world) { world.quitClient(); }},
      {"not installed", [](RoadWorld& world) { world.removeClient(); }},
      {"too old", [](RoadWorld& world) { world.installClientVersion("3.4.99999"); }},
  };
  for (const bool beforeTheEditorOpens : {true, false}) {
    for (const auto& [name, trouble] : troubles) {
      SCOPED_TRACE(std::string(name) + (beforeTheEditorOpens ? " before" : " after") + " the editor opens");
      Scene scene(GetParam());
      if (beforeTheEditorOpens) trouble(scene.world);
      scene.openAndType();
      EXPECT_EQ(scene.world.lastAlert(), "") << "who merely opens an appointment is not told";
      trouble(scene.world);
      GetParam().perform(scene.world, scene.editor);
      EXPECT_NE(scene.world.lastAlert(), "");
      EXPECT_TRUE(scene.world.host.isOpen(scene.editor));
      expectAllOrNothing(scene);
      expectTheNextTrySucceeds(scene);
    }
  }
}

TEST_P(Failures, OfTheHostsOwnSaveLeaveTheEditorOpen) {
  Scene scene(GetParam());
  scene.openAndType();
  scene.world.setHostStores(false);
  GetParam().perform(scene.world, scene.editor);
  ASSERT_TRUE(scene.world.host.isOpen(scene.editor));
  EXPECT_EQ(scene.world.calendarText(), scene.before);
  EXPECT_TRUE(scene.world.host.isDirty(scene.editor));
  EXPECT_EQ(scene.world.host.subject(scene.editor), kTyped);

  scene.world.setHostStores(true);
  finish(scene.world, scene.editor);
  EXPECT_FALSE(scene.world.host.isOpen(scene.editor));
  EXPECT_EQ(scene.outcome(), m_good);
}

INSTANTIATE_TEST_SUITE_P(Of, Failures, testing::ValuesIn(kOperations), [](const auto& info) {
  std::string name = info.param.name;
  std::replace(name.begin(), name.end(), ' ', '_');
  return name;
});

// The sheet goes after a minute, and nothing else happens then: an answer is taken whenever it comes.
TEST(Waiting, ShowsItsSheetForAMinuteAndTakesTheAnswerAllTheSame) {
  Scene scene(kOperations[0]);
  scene.world.client->setFaults("reply 3: delay 90");
  scene.openAndType();
  scene.world.host.clickBar(scene.editor, "onClickAddVornMeeting:");
  scene.world.settle(59.5);
  EXPECT_TRUE(scene.world.showsProgress());
  scene.world.settle(1);
  EXPECT_FALSE(scene.world.showsProgress());
  EXPECT_TRUE(scene.world.offersAdd(scene.editor));
  EXPECT_EQ(scene.world.lastAlert(), "");
  scene.world.settle(30);
  EXPECT_TRUE(scene.world.showsMeeting(scene.editor));
  EXPECT_FALSE(scene.world.showsProgress());
}

// What is stored about the meeting fits together, and fits what the service knows.
void expectNothingByHalves(Scene& scene) {
  RoadWorld& world = scene.world;
  const auto event = world.store.find("one");
  const std::string location = event->location().value_or("");
  const std::string html = event->htmlDescription().value_or("");
  const Value record = world.record("one");
  EXPECT_THAT(event->description().value_or(""), HasSubstr("Bring the figures."));
  EXPECT_THAT(location, StartsWith("Castle"));
  if (scene.meetingIsGone()) {
    EXPECT_TRUE(record["meetingKey"].isAbsent());
    EXPECT_EQ(location, "Castle");
    EXPECT_THAT(html, Not(HasSubstr("MacVnBookmark")));
    return;
  }
  EXPECT_EQ(location, "Castle; " + record["joinUrl"].text());
  const std::size_t bookmark = html.find("MacVnBookmarkBegin");
  EXPECT_NE(bookmark, std::string::npos);
  EXPECT_EQ(html.find("MacVnBookmarkBegin", bookmark + 1), std::string::npos);
  const auto meeting = world.service.meetings().find(record["meetingKey"].integerValue());
  EXPECT_EQ(meeting->subject, event->summary().value_or(""));
}

// Commands are not queued: a new one overwrites what the manager waits for, and the older one's reply is read in
// the new state.
TEST(CommandsThatOvertakeOneAnother, LeaveNothingByHalves) {
  const auto add = [](Scene& scene) { scene.world.host.clickBar(scene.editor, "onClickAddVornMeeting:"); };
  const auto cancel = [](Scene& scene) { scene.world.host.clickBar(scene.editor, "onClickCancelVornMeeting:"); };
  const auto save = [](Scene& scene) { scene.world.host.save(scene.editor); };
  const auto saveAndClose = [](Scene& scene) { scene.world.host.saveAndClose(scene.editor); };
  using Act = std::function<void(Scene&)>;
  const struct {
    const char* name;
    const Operation& operation;
    std::vector<Act> acts;
  } rows[] = {
      {"add twice", kOperations[0], {add, add}},
      {"save while the add waits", kOperations[0], {add, save}},
      {"save and close while the add waits", kOperations[0], {add, saveAndClose}},
      {"save twice", kOperations[1], {save, save}},
      {"save and close twice", kOperations[1], {saveAndClose, saveAndClose}},
      {"close while the save waits", kOperations[1], {save, saveAndClose}},
      {"cancel while the save waits", kOperations[1], {save, cancel}},
      {"save while the cancel waits", kOperations[1], {cancel, save}},
      {"save and close while the cancel waits", kOperations[1], {cancel, saveAndClose}},
      {"cancel twice", kOperations[1], {cancel, cancel}},
      {"cancel while the save and close waits", kOperations[1], {saveAndClose, cancel}},
  };
  // From the next act before anything has come back to the next act when nearly all has.
  for (const double between : {0.0, 0.06, 0.12}) {
    for (const auto& row : rows) {
      SCOPED_TRACE(std::string(row.name) + " after " + std::to_string(between));
      Scene scene(row.operation);
      scene.openAndType();
      for (const Act& act : row.acts) {
        act(scene);
        scene.world.settle(between);
      }
      scene.world.settle(130);
      EXPECT_FALSE(scene.world.showsProgress());
      if (scene.world.host.isOpen(scene.editor)) scene.world.saveAndClose(scene.editor);
      EXPECT_FALSE(scene.world.host.isOpen(scene.editor));
      expectNothingByHalves(scene);
    }
  }
}

TEST(CommandsThatOvertakeOneAnother, ACancelBeforeTheInvitationHasComeKeepsTheBody) {
  RoadWorld world(calendarWith(kPlain));
  const EditorId editor = world.openEditor("one");
  world.client->setFaults("every reply to action 3 operation 4: silent");
  world.clickAdd(editor);
  ASSERT_TRUE(world.showsMeeting(editor));
  cancelAndFinish(world, editor);
  EXPECT_THAT(world.store.find("one")->description().value_or(""), HasSubstr("Bring the figures."));
}

// Requests carry no number that a reply repeats. Of two windows that wait for what became of their new meetings
// both take the first reply, and the second finds nobody who waits.
TEST(TwoWindows, ThatWaitAtOnceBothTakeTheFirstReply) {
  RoadWorld world(calendarOfTwo("SUMMARY:Review\r\n"));
  const EditorId first = world.openEditor("one");
  const EditorId second = world.openEditor("two");
  const EditorId bystander = world.host.openNew(1795514400);
  world.settle();
  world.clickAdd(bystander);
  world.client->forgetRequests();
  const std::string bystandersLocation = world.host.location(bystander);
  world.host.clickBar(first, "onClickAddVornMeeting:");
  world.host.clickBar(second, "onClickAddVornMeeting:");
  world.settle();
  EXPECT_EQ(world.host.location(first), world.host.location(second));
  EXPECT_EQ(world.host.location(bystander), bystandersLocation);
  EXPECT_FALSE(world.showsProgress());
  world.saveAndClose(first);
  world.saveAndClose(second);
  EXPECT_FALSE(world.host.isOpen(first));
  EXPECT_FALSE(world.host.isOpen(second));
  EXPECT_EQ(world.record("one")["meetingKey"], world.record("two")["meetingKey"]);
}

// A window whose answer was lost waits on, and the next fetch of another one must not give it that one's meeting.
TEST(TwoWindows, OfWhichOneWaitsForEverKeepTheirOwnMeetings) {
  RoadWorld world(calendarOfTwo("SUMMARY:Review\r\n"));
  const EditorId first = world.openEditor("one");
  const EditorId second = world.openEditor("two");
  world.client->setFaults("reply 1 to action 3 operation 4: silent");
  world.clickAdd(first);
  world.settle(130);
  world.clickAdd(second);
  for (const auto& [editor, uid] : {std::pair(first, "one"), std::pair(second, "two")}) {
    const auto meeting = world.service.meetings().findByAppointment(uid);
    ASSERT_TRUE(meeting) << uid;
    EXPECT_THAT(world.host.location(editor), HasSubstr(std::to_string(meeting->number)));
  }
}

// However many ask at once, each comes to its end, with what was typed in it and a meeting that the service knows;
// and the next save of one is undisturbed.
TEST(FiftyWindows, ThatAskAtOnceAllComeToTheirEnd) {
  constexpr std::size_t kMany = 50;
  RoadWorld world(calendarOfMany(kMany));
  const auto uid = [](std::size_t i) { return "a" + std::to_string(i); };
  std::vector<EditorId> editors;
  for (std::size_t i = 0; i < kMany; ++i) editors.push_back(world.host.openEditor(uid(i)));
  world.settle();
  for (std::size_t i = 0; i < kMany; ++i) {
    world.host.clickBar(editors[i], "onClickAddVornMeeting:");
    world.host.typeSubject(editors[i], "Typed in " + uid(i));
  }
  world.settle();
  for (const EditorId editor : editors) world.host.saveAndClose(editor);
  world.settle(130);
  EXPECT_EQ(world.lastAlert(), "");
  EXPECT_FALSE(world.showsProgress());
  for (std::size_t i = 0; i < kMany; ++i) {
    SCOPED_TRACE(uid(i));
    EXPECT_FALSE(world.host.isOpen(editors[i]));
    EXPECT_EQ(world.store.find(uid(i))->summary(), "Typed in " + uid(i));
    EXPECT_THAT(world.store.find(uid(i))->description().value_or(""), HasSubstr("Bring the figures."));
    EXPECT_TRUE(world.service.meetings().find(world.record(uid(i))["meetingKey"].integerValue()));
  }
  const EditorId again = world.openEditor(uid(7));
  world.host.typeSubject(again, "Typed anew");
  world.saveAndClose(again);
  EXPECT_FALSE(world.host.isOpen(again));
  EXPECT_EQ(world.store.find(uid(7))->summary(), "Typed anew");
}

}  // namespace
}  // namespace vorn

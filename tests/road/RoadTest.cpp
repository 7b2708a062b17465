#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Registry.h"
#include "tests/road/world/RoadWorld.h"

namespace vorn {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const char* const kPlain =
    "SUMMARY:Weekly review\r\nLOCATION:Castle\r\nDESCRIPTION:Bring the figures.\\nThanks\r\n";

std::size_t countOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

TEST(Road, AnAppointmentBecomesAMeeting) {
  RoadWorld world(calendarWith(kPlain));
  const auto editor = world.openEditor("one");
  ASSERT_TRUE(world.offersAdd(editor));
  ASSERT_FALSE(world.showsMeeting(editor));

  world.clickAdd(editor);
  EXPECT_TRUE(world.showsMeeting(editor));
  EXPECT_THAT(world.client->requestNames(), ElementsAre("6", "9", "3/1", "3/4"));
  EXPECT_THAT(world.host.location(editor), StartsWith("Castle; https://"));

  world.saveAndClose(editor);
  EXPECT_FALSE(world.host.isOpen(editor));
  const Value record = world.record("one");
  EXPECT_THAT(record["meetingKey"].text(), Not(IsEmpty()));
  const auto event = world.store.find("one");
  EXPECT_EQ(event->location(), "Castle; " + record["joinUrl"].text());
  EXPECT_EQ(event->summary(), "Weekly review");
  EXPECT_THAT(event->description().value_or(""), HasSubstr("Bring the figures."));
  const std::string html = event->htmlDescription().value_or("");
  EXPECT_EQ(countOf(html, "MacVnBookmarkBegin"), 1u);
  EXPECT_EQ(countOf(html, "MacVnBookmarkEnd"), 1u);
  EXPECT_THAT(html, HasSubstr("Bring the figures."));
  EXPECT_THAT(world.test.presenter.alerts, IsEmpty());
  EXPECT_FALSE(world.test.presenter.showsProgress());
}

TEST(Road, GoingItTwiceChangesNothing) {
  RoadWorld first(calendarWith(kPlain));
  auto editor = first.openEditor("one");
  first.clickAdd(editor);
  first.saveAndClose(editor);
  const std::string once = first.calendarText();

  editor = first.openEditor("one");
  EXPECT_TRUE(first.showsMeeting(editor));
  first.client->forgetRequests();
  first.saveAndClose(editor);
  EXPECT_THAT(first.client->requestNames(), ElementsAre("3/4"));
  EXPECT_FALSE(first.host.isOpen(editor));
  EXPECT_EQ(first.calendarText(), once);
}

TEST(Road, ANewAppointmentTellsTheServiceItsUUIDOnceItIsStored) {
  RoadWorld world(calendarWith(kPlain));
  auto editor = world.host.openNew(1795514400);
  world.settle();
  world.host.typeSubject(editor, "Fresh");
  world.clickAdd(editor);
  world.client->forgetRequests();
  world.saveAndClose(editor);
  EXPECT_FALSE(world.host.isOpen(editor));
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/2"));

  // The service knows it now, so an unchanged save has nothing to tell.
  editor = world.openEditor(world.store.eventAt(1).uid());
  world.client->forgetRequests();
  world.saveAndClose(editor);
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/4"));
  EXPECT_THAT(world.test.presenter.alerts, IsEmpty());
}

TEST(Road, AMovedMeetingKeepsItsKeyAndItsOneInvitation) {
  RoadWorld world(calendarWith(kPlain));
  auto editor = world.openEditor("one");
  world.clickAdd(editor);
  world.saveAndClose(editor);
  const Value before = world.record("one");

  editor = world.openEditor("one");
  world.host.typeTimes(editor, 1795514400, 1795521600);
  world.client->forgetRequests();
  world.saveAndClose(editor);
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/4", "3/2", "3/4"));
  const Value after = world.record("one");
  EXPECT_EQ(after["meetingKey"], before["meetingKey"]);
  const auto meeting = world.service.meetings().find(before["meetingKey"].integerValue());
  ASSERT_TRUE(meeting);
  EXPECT_EQ(meeting->minutes, "120");
  const auto event = world.store.find("one");
  EXPECT_EQ(event->end()->seconds, 1795521600);
  EXPECT_EQ(countOf(event->location().value_or(""), "https://"), 1u);
  EXPECT_EQ(countOf(event->htmlDescription().value_or(""), "MacVnBookmarkBegin"), 1u);
}

TEST(Road, WithAttendeesOnlyASendFinishes) {
  RoadWorld world(calendarWith(
      "SUMMARY:Board\r\nORGANIZER:mailto:me@vorn.example\r\nATTENDEE;CN=Ada:mailto:ada@vorn.example\r\n"
      "ATTENDEE;CUTYPE=ROOM;CN=Room 7:mailto:room7@vorn.example\r\n"));
  const auto editor = world.openEditor("one");
  world.clickAdd(editor);
  EXPECT_THAT(world.host.location(editor), StartsWith("Room 7; https://"));
  world.saveAndClose(editor);
  EXPECT_TRUE(world.host.isOpen(editor));
  EXPECT_TRUE(world.record("one").isAbsent());
  world.send(editor);
  EXPECT_FALSE(world.host.isOpen(editor));
  EXPECT_EQ(world.host.sentCount(), 1);
  EXPECT_TRUE(world.record("one")["meetingKey"].isPresent());
}

TEST(Road, ACancelTakesTheMeetingOffAgain) {
  RoadWorld world(calendarWith(kPlain));
  auto editor = world.openEditor("one");
  world.clickAdd(editor);
  world.saveAndClose(editor);

  editor = world.openEditor("one");
  world.client->forgetRequests();
  world.clickCancel(editor);
  EXPECT_THAT(world.client->requestNames(), ElementsAre("3/3"));
  EXPECT_TRUE(world.offersAdd(editor));
  world.saveAndClose(editor);
  const auto event = world.store.find("one");
  EXPECT_EQ(event->location(), "Castle");
  EXPECT_THAT(event->htmlDescription().value_or(""), Not(HasSubstr("MacVnBookmark")));
  EXPECT_THAT(event->description().value_or(""), HasSubstr("Bring the figures."));
  EXPECT_FALSE(world.record("one")["meetingKey"].isPresent());
}

TEST(Road, AClientInTroubleCostsNothing) {
  struct Row {
    const char* name;
    std::function<void(RoadWorld&)> trouble;
    bool alerts;
  };
  const auto dropFrom = [](std::size_t reply) {
    return [reply](RoadWorld& world) {
      world.client->setInterference(
          [reply, seen = std::make_shared<std::size_t>(0)](const vornlab::Envelope&, vornlab::Envelope envelope) {
            return ++*seen >= reply ? std::nullopt : std::optional(std::move(envelope));
          });
    };
  };
  const auto refuse = [](std::uint32_t action, const char* text) {
    return [action, text](RoadWorld& world) {
      world.client->setInterference([action, text](const vornlab::Envelope&, vornlab::Envelope envelope) {
        if (envelope.action == action) envelope.content = text;
        return std::optional(std::move(envelope));
      });
    };
  };
  const Row rows[] = {
      {"missing", [](RoadWorld& world) { world.removeClient(); }, true},
      {"too old", [](RoadWorld& world) { world.installClientVersion("3.4.99999"); }, true},
      {"not running", [](RoadWorld& world) { world.quitClient(); }, true},
      {"silent from the start", dropFrom(1), false},
      {"gone before the commit is answered", dropFrom(3), false},
      {"gone before the invitation came", dropFrom(4), false},
      {"not signed in", refuse(6, "0;Error VornClientNotSignIn"), true},
      {"commit refused", refuse(1, "0;Error 5003"), true},
      {"commit answered with nothing", refuse(1, ""), true},
      {"invitation is garbage", refuse(4, "1;2;3"), false},
      {"own words", refuse(1, "0;Error the moon is full"), true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string before = calendarWith(kPlain);
    RoadWorld world(before);
    row.trouble(world);
    const auto editor = world.openEditor("one");
    world.host.typeSubject(editor, "Weekly review, renamed");
    world.clickAdd(editor);
    world.settle(61);
    EXPECT_TRUE(world.host.isOpen(editor));
    EXPECT_TRUE(world.host.isDirty(editor));
    EXPECT_EQ(world.host.subject(editor), "Weekly review, renamed");
    EXPECT_EQ(world.calendarText(), before);
    EXPECT_EQ(!world.lastAlert().empty(), row.alerts) << world.lastAlert();
    EXPECT_FALSE(world.test.presenter.showsProgress());
  }
}

TEST(Road, AWindowMayCloseBeforeAnyReply) {
  const auto closeBefore = [](RoadWorld& world, RoadWorld::EditorId& editor, std::size_t reply) {
    world.client->setInterference([&world, &editor, reply, seen = std::make_shared<std::size_t>(0)](
                                      const vornlab::Envelope&, vornlab::Envelope envelope) {
      if (++*seen == reply) world.host.closeWithoutSaving(editor);
      return std::optional(std::move(envelope));
    });
  };
  for (std::size_t reply = 1; reply <= 4; ++reply) {
    SCOPED_TRACE(reply);
    RoadWorld world(calendarWith(kPlain));
    const std::string plain = world.calendarText();
    auto editor = world.openEditor("one");
    closeBefore(world, editor, reply);
    world.clickAdd(editor);
    EXPECT_THAT(world.host.editors(), IsEmpty());
    EXPECT_EQ(world.calendarText(), plain);

    world.client->setInterference({});
    editor = world.openEditor("one");
    world.clickAdd(editor);
    world.saveAndClose(editor);
    EXPECT_TRUE(world.record("one")["meetingKey"].isPresent());
    const std::string stored = world.calendarText();
    editor = world.openEditor("one");
    world.host.typeSubject(editor, "Renamed");
    closeBefore(world, editor, reply);
    world.saveAndClose(editor);
    EXPECT_THAT(world.host.editors(), IsEmpty());
    // Three replies stand before the host's own save.
    EXPECT_EQ(world.calendarText() == stored, reply <= 3);
    EXPECT_FALSE(world.test.presenter.showsProgress());
  }
}

}  // namespace
}  // namespace vorn

#include "lab/host/Appointment.h"

#include <gtest/gtest.h>

#include "util/HtmlText.h"

namespace vornlab {
namespace {

constexpr const char* kCalendar =
    "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:test\r\n"
    "BEGIN:VEVENT\r\nUID:one\r\nDTSTAMP:20300101T000000Z\r\nDTSTART:20300514T120000Z\r\n"
    "DTEND:20300514T133000Z\r\nSUMMARY:Review\r\nLOCATION:Room 1\r\nEND:VEVENT\r\n"
    // In no encoding of today, which the file keeps.
    "BEGIN:VEVENT\r\nUID:old\r\nDTSTAMP:20300101T000000Z\r\nSUMMARY:Caf\xE9\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";

class AppointmentTest : public testing::Test {
 protected:
  void SetUp() override {
    IcsProblem problem;
    ASSERT_TRUE(calendar.loadText(kCalendar, problem)) << problem.message;
    host.store = &calendar;
  }
  Appointment named(const char* uid) const { return Appointment::find(host, uid, "").value(); }

  CalendarStore calendar;
  HostState host;
};

TEST_F(AppointmentTest, ReadsWhatWasChangedAndOtherwiseWhatIsStoredUntilARecordIsTakenOver) {
  Appointment shown = named("one");
  shown.changes().summary = "";
  shown.changes().body = "<p>Agenda</p>";
  EXPECT_EQ(shown.summary(), "") << "an emptied text is a change";
  EXPECT_EQ(shown.body(), "<p>Agenda</p>");
  EXPECT_FALSE(shown.isBodyHtml());
  EXPECT_EQ(shown.location(), "Room 1");
  EXPECT_EQ(calendar.find("one")->summary(), "Review");

  AppointmentChanges later;
  later.summary = "Second review";
  later.olmUCCapabilities = "{}";
  later.end = shown.timeLikeStart(shown.start()->seconds + 60);
  Appointment record = shown.withChanges(later);
  EXPECT_EQ(shown.summary(), "");
  EXPECT_TRUE(record.write(host));
  shown.takeOver(record);
  EXPECT_EQ(shown.summary(), "Second review");
  EXPECT_EQ(shown.olmUCCapabilities(), "{}");
  EXPECT_TRUE(shown.isBodyHtml()) << "stored so unless told otherwise";
  shown.changes().isBodyHtml = false;
  EXPECT_FALSE(shown.isBodyHtml());
  EXPECT_EQ(shown.end()->seconds - shown.start()->seconds, 60) << "the start stays when the end alone is changed";
  EXPECT_EQ(host.storedCount, 1);
}

TEST_F(AppointmentTest, ShowsTheBodyThatStandsInTheCalendarNowWhoeverHasChangedIt) {
  const Appointment shown = named("one");
  const auto words = [&shown] { return vorn::htmlToPlainText(shown.body().value_or("")); };
  EXPECT_EQ(words(), "");
  calendar.find("one")->setDescription("added", {});
  EXPECT_EQ(words(), "added");
  calendar.find("one")->setDescription("changed", {});
  EXPECT_EQ(words(), "changed");
  EXPECT_FALSE(calendar.change(*calendar.find("one"), [&](CalendarEvent& event) {
    event.setDescription("half done", {});
    EXPECT_EQ(words(), "half done");
    calendar.find("old")->setSummary("€");
  }));
  EXPECT_EQ(words(), "changed") << "what was refused is taken back";
  calendar.add("two", 0, 0, "");
  IcsProblem problem;
  ASSERT_TRUE(calendar.loadText(kCalendar, problem));
  EXPECT_EQ(words(), "") << "another file has come";
}

// The plug-in knows a text by the name in front of its colon.
TEST_F(AppointmentTest, TellsADescriptionAndAPlaceWithoutTheirOtherForms) {
  const auto file = [](const std::string& altrep) {
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:one\r\nDESCRIPTION" + altrep + ":ü\r\nLOCATION" +
           altrep + ";LANGUAGE=de:Room 1\r\nX-OTHER;ALTREP=\"cid:2\":3\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
  };
  const std::string stored = file(";ALT\r\n REP=\"data:text/html,%3Cp%3E\"");
  IcsProblem problem;
  ASSERT_TRUE(calendar.loadText(stored, problem)) << problem.message;
  EXPECT_EQ(named("one").calendarText(), file(""));
  EXPECT_EQ(calendar.text(), stored);
}

TEST_F(AppointmentTest, IsOnesOwnByEachOfOnesAddresses) {
  const Appointment shown = named("one");
  using Senders = std::vector<std::string>;
  EXPECT_EQ(shown.sender(host, std::nullopt), "") << "an owner without an address";
  host.options.otherAccounts = {"room@a.example"};
  EXPECT_EQ(shown.sender(host, std::nullopt), "room@a.example");
  EXPECT_EQ(shown.sender(host, "jo@b.example"), "jo@b.example");
  AppointmentChanges called;
  called.attendees = {{"Jo", "jo@b.example", 0}};
  called.organizer = "Kim@a.example";
  ASSERT_TRUE(shown.withChanges(called).write(host));
  EXPECT_EQ(shown.senders(host, "kim@a.example"), (Senders{"room@a.example", "Kim@a.example"}));
  EXPECT_EQ(shown.senders(host, "jo@b.example"), (Senders{"room@a.example", "Kim@a.example", "jo@b.example"}))
      << "who is chosen is shown, also when that account has signed out";
  EXPECT_EQ(shown.sender(host, std::nullopt), "Kim@a.example");
  host.options.otherAccounts.clear();
  EXPECT_TRUE(shown.isOwnedIn(host)) << "nobody is known";
  host.options.userAddress = "owner@a.example";
  EXPECT_FALSE(shown.isOwnedIn(host));
  host.options.otherAccounts = {"room@a.example", "kim@A.example"};
  EXPECT_TRUE(shown.isOwnedIn(host));
}

TEST_F(AppointmentTest, ANewOneEntersTheCalendarOnceAndOnlyWhenItIsStored) {
  host.options.clock = [] { return 1795001399.0; };
  host.pointedAt = 1904990400;
  Appointment made = Appointment::newOne(host);
  EXPECT_EQ(made.end()->seconds - made.start()->seconds, HostState::kHalfAnHour);
  EXPECT_FALSE(made.recordExists());
  EXPECT_TRUE(made.isOwnedIn(host));

  AppointmentChanges changes;
  changes.summary = "\xE2\x82\xAC 5";
  const std::string before = calendar.text();
  for (int attempt = 0; attempt < 2; ++attempt) EXPECT_FALSE(made.withChanges(changes).write(host));
  EXPECT_EQ(calendar.text(), before) << "the file has no bytes for the sign";

  changes.summary = "5 euros";
  for (int attempt = 0; attempt < 2; ++attempt) {
    Appointment record = made.withChanges(changes);
    EXPECT_TRUE(record.write(host));
    made.takeOver(record);
  }
  EXPECT_EQ(calendar.events().size(), 3U);
  EXPECT_EQ(made.start()->seconds, 1904990400);
  EXPECT_EQ(made.summary(), "5 euros");
  EXPECT_NE(calendar.text().find("DTSTAMP:20261118T112959Z"), std::string::npos)
      << "it was made today, and lies ahead";
  EXPECT_EQ(Appointment::newOne(host).start()->seconds, 1795001400);
}

TEST_F(AppointmentTest, OneThatIsGoneAnswersNothingAndCannotBeStored) {
  Appointment shown = named("one");
  const std::int64_t number = shown.recordId();
  shown.cancel(host);
  shown.cancel(host);
  EXPECT_EQ(host.sentCount, 1) << "what is gone is not cancelled again";
  EXPECT_FALSE(shown.remove());
  EXPECT_FALSE(shown.summary() || shown.uid() || shown.start() || shown.recordExists());
  EXPECT_EQ(shown.recordId(), number);
  shown.changes().summary = "late";
  EXPECT_FALSE(shown.write(host));
  EXPECT_FALSE(Appointment().write(host));
  EXPECT_FALSE(Appointment::find(host, "one", ""));
  EXPECT_FALSE(Appointment::at(host, 0));
  EXPECT_FALSE(Appointment::at(host, calendar.eventCount()));
}

}  // namespace
}  // namespace vornlab

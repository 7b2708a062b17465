#include "lab/ics/CalendarStore.h"

#include <gtest/gtest.h>

#include <tuple>

#include "lab/ics/MissingLines.h"
#include "util/TextSearch.h"

namespace vornlab {
namespace {

std::string calendar(const std::string& inside) {
  return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + inside + "END:VCALENDAR\r\n";
}

std::string event(const std::string& properties) {
  return calendar("BEGIN:VEVENT\r\nUID:1\r\n" + properties + "END:VEVENT\r\n");
}

struct Loaded : CalendarStore {
  explicit Loaded(std::string text, Options options = {}) : CalendarStore(std::move(options)) {
    IcsProblem problem;
    EXPECT_TRUE(loadText(std::move(text), problem)) << problem.line << ": " << problem.message;
  }
  explicit Loaded(const char* shipped) {
    IcsProblem problem;
    EXPECT_TRUE(load(std::string(LAB_CALENDARS "/") + shipped, problem)) << problem.message;
  }
};

constexpr const char* kOddZone =
    "BEGIN:VTIMEZONE\r\nTZID:Our Zone\r\nBEGIN:STANDARD\r\nDTSTART:19700101T000000\r\nTZOFFSETFROM:+0430\r\n"
    "TZOFFSETTO:+0430\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";

TEST(CalendarEvent, ReadsEachKindOfTime) {
  constexpr double noon = 1904904000;  // 2030-05-13T12:00:00Z
  const struct {
    const char* name;
    std::string properties;
    double start, length;
    const char* zone;
    bool allDay;
  } cases[] = {
      {"UTC", "DTSTART:20300513T120000Z\r\nDTEND:20300513T130000Z\r\n", noon, 3600, "UTC", false},
      {"database zone", "DTSTART;TZID=Europe/Berlin:20300513T140000\r\nDURATION:PT90M\r\n", noon, 5400,
       "Europe/Berlin", false},
      {"zone of another system", "DTSTART;TZID=W. Europe Standard Time:20300513T140000\r\nDURATION:P1DT2H\r\n",
       noon, 93600, "Europe/Berlin", false},
      {"zone with a prefix", "DTSTART;TZID=/producer/20300101_1/Europe/Berlin:20300513T140000\r\n", noon, 0,
       "Europe/Berlin", false},
      {"zone of the file", "DTSTART;TZID=Our Zone:20300513T163000\r\n", noon, 0, "Our Zone", false},
      {"quoted zone", "DTSTART;TZID=\"Our Zone\":20300513T163000\r\n", noon, 0, "Our Zone", false},
      {"unknown zone", "DTSTART;TZID=Nowhere:20300513T120000\r\n", noon, 0, "Nowhere", false},
      {"floating", "DTSTART:20300513T080000\r\nDTEND:20300513T083000\r\n", noon, 1800, "America/New_York", false},
      {"whole day", "DTSTART;VALUE=DATE:20300513\r\n", noon - 8 * 3600, 86400, "America/New_York", true},
      {"two days", "DTSTART;VALUE=DATE:20300513\r\nDTEND;VALUE=DATE:20300515\r\n", noon - 8 * 3600, 172800,
       "America/New_York", true},
      {"before 1970", "DTSTART:19600101T000000Z\r\n", -315619200, 0, "UTC", false},
      {"the first year", "DTSTART:00010101T000000Z\r\n", -62135596800, 0, "UTC", false},
      {"the last year", "DTSTART:99991231T235959Z\r\n", 253402300799, 0, "UTC", false},
      {"end before start", "DTSTART:20300513T120000Z\r\nDTEND:20300513T110000Z\r\n", noon, -3600, "UTC", false},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.name);
    CalendarStore::Options options;
    options.zone = "America/New_York";
    Loaded store(calendar(kOddZone + ("BEGIN:VEVENT\r\nUID:1\r\n" + each.properties) + "END:VEVENT\r\n"), options);
    const CalendarEvent read = store.eventAt(0);
    ASSERT_TRUE(read.start() && read.end());
    EXPECT_EQ(read.start()->seconds, each.start);
    EXPECT_EQ(read.end()->seconds - read.start()->seconds, each.length);
    EXPECT_EQ(read.start()->zone, each.zone);
    EXPECT_EQ(read.isAllDay(), each.allDay);
  }
}

TEST(CalendarStore, TellsWhatIsDoubtfulInAFileWithItsLine) {
  const std::string text = calendar(
      "junk\r\nBEGIN:VEVENT\r\nDTSTART;TZID=Nowhere:20300513T120000\r\nEND:VEVENT\r\n"
      "BEGIN:VEVENT\r\nDTSTART;TZID=Nowhere:20300514T120000\r\nEND:VEVENT\r\n"
      "BEGIN:VEVENT\r\nUID:1\r\nDTSTART:20300513T080000\r\nEND:VEVENT\r\n"
      "BEGIN:VEVENT\r\nDTSTART;VALUE=DATE:20300513\r\nEND:VEVENT\r\n"
      "BEGIN:VEVENT\r\nDTSTART:20300513T080000Z\r\nDTEND:banana\r\nEND:VEVENT\r\n"
      "BEGIN:VEVENT\r\nDTSTART:20300513T080000Z\r\nDTEND:20300513T070000Z\r\nEND:VEVENT\r\n"
      "BEGIN:VEVENT\r\nDTSTART:20300513T080000Z\r\nDURATION:long\r\nEND:VEVENT\r\n"
      "BEGIN:VEVENT\r\nDTSTART;TZID=Nowhere:20300514T120000\r\nDTEND:banana\r\nEND:VEVENT\r\n"
      "BEGIN:VEVENT\r\nDTSTART:20300513T080000\r\nDTEND:20300513T070000\r\nEND:VEVENT\r\n");
  const std::pair<const char*, std::vector<std::size_t>> rows[] = {{"", {3, 5, 12, 19, 23, 27, 31, 35}},
                                                                   {"Europe/Berlin", {3, 5, 19, 23, 27, 31, 35}}};
  for (const auto& [zone, lines] : rows) {
    CalendarStore::Options options;
    options.zone = zone;
    Loaded store(text, options);
    std::vector<std::size_t> told;
    for (const IcsProblem& doubt : store.doubts()) told.push_back(doubt.line);
    EXPECT_EQ(told, lines) << zone;
    EXPECT_NE(store.eventAt(1).doubtOfTimes().message.find("\"Nowhere\""), std::string::npos);
    EXPECT_NE(store.eventAt(7).doubtOfTimes().message.find("\"banana\""), std::string::npos);
    EXPECT_EQ(store.eventAt(3).doubtOfTimes().message, "") << "a whole day is one everywhere";
  }
}

TEST(CalendarStore, ChangesAnEventWhollyOrNotAtAll) {
  Loaded store(event("SUMMARY:caf\xE9\r\nLOCATION:Bar\r\n"));
  const auto rename = [&](const char* location, const char* description) {
    return store.change(store.eventAt(0), [&](CalendarEvent& changed) {
      changed.setLocation(location);
      changed.setDescription(description, {});
    });
  };
  EXPECT_TRUE(rename("Café", "b"));
  const std::string before = store.text();
  EXPECT_FALSE(rename("Room", "会議"));
  EXPECT_EQ(store.text(), before);
  const auto refusal = store.takeRefusal();
  ASSERT_TRUE(refusal);
  EXPECT_NE(refusal->message.find("Latin-1, which has no \"会\" for the new DESCRIPTION"), std::string::npos);
  EXPECT_TRUE(rename("Caf\u00E8", "c"));
  EXPECT_FALSE(store.takeRefusal());
}

TEST(CalendarEvent, ATimeThatIsNoneIsAbsent) {
  for (const char* value : {"", "tomorrow", "2030", "20301313T100000", "20300532", "20300513X100000", "20300513T9",
                            "20300513T250000Z", "-0300513T100000", "99999999999999"}) {
    Loaded store(event(std::string("DTSTART:") + value + "\r\n"));
    EXPECT_FALSE(store.eventAt(0).start()) << value;
    EXPECT_FALSE(store.eventAt(0).end()) << value;
  }
}

TEST(CalendarEvent, FollowsSummerTimeOfTheZoneThatTheFileDefines) {
  Loaded store("demo.ics");
  const CalendarEvent review = *store.find("weekly-product-review@calendar.example");
  EXPECT_EQ(review.start()->seconds, 1904889600) << "08:00 in UTC";
  CalendarEvent moved = review;
  moved.setTimes(1926172800, 1926176400);  // 2031-01-14T16:00:00Z
  EXPECT_NE(store.text().find("DTSTART;TZID=Europe/Berlin:20310114T170000"), std::string::npos);
  EXPECT_EQ(moved.start()->seconds, 1926172800);
}

TEST(CalendarEvent, ATimeAtAChangeOfTheClockIsReadAlikeFromTheFileAndFromTheDatabase) {
  const std::string definedZone =
      "BEGIN:VTIMEZONE\r\nTZID:Office\r\n"
      "BEGIN:DAYLIGHT\r\nDTSTART:19810329T020000\r\nRRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=3\r\n"
      "TZOFFSETFROM:+0100\r\nTZOFFSETTO:+0200\r\nEND:DAYLIGHT\r\n"
      "BEGIN:STANDARD\r\nDTSTART:19961027T030000\r\nRRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=10\r\n"
      "TZOFFSETFROM:+0200\r\nTZOFFSETTO:+0100\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";
  // A time that is skipped counts with the offset before, one that comes twice as the earlier.
  const std::pair<const char*, double> rows[] = {
      {"20260329T015959", 1774745999}, {"20260329T023000", 1774747800}, {"20260329T030000", 1774746000},
      {"20261025T015959", 1792886399}, {"20261025T023000", 1792888200}, {"20261025T030000", 1792893600},
  };
  for (const auto& [time, seconds] : rows) {
    for (const char* zone : {"Office", "Europe/Berlin"}) {
      Loaded store(calendar(definedZone + "BEGIN:VEVENT\r\nUID:1\r\nDTSTART;TZID=" + zone + ":" + time +
                            "\r\nEND:VEVENT\r\n"));
      EXPECT_EQ(store.eventAt(0).start()->seconds, seconds) << zone << " " << time;
    }
  }
}

TEST(CalendarEvent, AZoneWithARuleThatCouldRunForEverIsNotUsed) {
  Loaded store(
      calendar("BEGIN:VTIMEZONE\r\nTZID:Slow\r\nBEGIN:STANDARD\r\nDTSTART:19700101T000000\r\n"
               "TZOFFSETFROM:+0100\r\nTZOFFSETTO:+0100\r\nRRULE:FREQ=SECONDLY\r\nEND:STANDARD\r\n"
               "END:VTIMEZONE\r\nBEGIN:VEVENT\r\nDTSTART;TZID=Slow:20300513T120000\r\nEND:VEVENT\r\n"));
  EXPECT_EQ(store.eventAt(0).start()->seconds, 1904904000);
}

TEST(CalendarEvent, MovingKeepsTheFormOfTheFile) {
  const std::pair<const char*, const char*> cases[] = {
      {"DTSTART:20300513T120000Z\r\nDTEND:20300513T130000Z\r\n",
       "DTSTART:20300514T120000Z\r\nDTEND:20300514T133000Z\r\n"},
      {"DTSTART;TZID=Europe/Berlin:20300513T140000\r\nDURATION:PT1H\r\n",
       "DTSTART;TZID=Europe/Berlin:20300514T140000\r\nDURATION:PT1H30M\r\n"},
      {"DTSTART:20300513T120000Z\r\nDURATION:PT90M\r\n", "DTSTART:20300514T120000Z\r\nDURATION:PT90M\r\n"},
      {"DTSTART:20300513T120000\r\nDTEND:20300513T130000\r\n",
       "DTSTART:20300514T120000\r\nDTEND:20300514T133000\r\n"},
      {"", "DTSTART:20300514T120000Z\r\nDTEND:20300514T133000Z\r\n"},
      {"DTSTART;VALUE=DATE:soon\r\nDURATION:PT1H\r\n", "DTSTART:20300514T120000Z\r\nDTEND:20300514T133000Z\r\n"},
  };
  for (const auto& [before, after] : cases) {
    Loaded store(event(before));
    store.eventAt(0).setTimes(1904990400, 1904995800);
    EXPECT_EQ(store.text(), event(after));
  }
}

TEST(CalendarStore, LinksExceptionsToTheirSeries) {
  Loaded store("series.ics");
  const CalendarEvent master = *store.find("series@calendar.example");
  EXPECT_TRUE(master.isRecurring());
  EXPECT_FALSE(master.isException());
  EXPECT_EQ(master.recurrence().endType, 1);
  EXPECT_EQ(master.recurrence().occurrenceCount, 4);
  // The fourth Monday, by then in summer time.
  EXPECT_EQ(master.recurrence().lastStart->seconds - master.start()->seconds, 21 * 86400 - 3600);
  const auto exceptions = store.exceptionsOf("series@calendar.example");
  ASSERT_EQ(exceptions.size(), 1U);
  EXPECT_EQ(exceptions[0].recurrenceId(), "20300401T090000");
  EXPECT_EQ(exceptions[0].master()->index(), master.index());
  EXPECT_EQ(store.find("series@calendar.example", "20300401T090000")->summary(), "Planning (moved)");
  EXPECT_TRUE(store.find("dates@calendar.example")->isRecurring()) << "single dates make a series too";
}

TEST(CalendarStore, EveryItemOfASeriesFindsItsOwnPlace) {
  const auto item = [](const char* id, const char* summary) {
    return std::string("BEGIN:VEVENT\r\nUID:s\r\n") + id + "SUMMARY:" + summary + "\r\nEND:VEVENT\r\n";
  };
  Loaded store(calendar(item("RECURRENCE-ID:2\r\n", "second") + item("RECURRENCE-ID:1\r\n", "first") +
                        item("", "series") + item("RECURRENCE-ID:1\r\n", "first again")));
  EXPECT_EQ(store.find("s")->summary(), "series");
  EXPECT_EQ(store.eventAt(0).master()->summary(), "series") << "the master may come late";
  EXPECT_EQ(store.find("s", "1")->summary(), "first");
  EXPECT_FALSE(store.find("s", "3"));
  std::vector<vorn::OptionalText> inFileOrder;
  for (const CalendarEvent& each : store.exceptionsOf("s")) inFileOrder.push_back(each.summary());
  EXPECT_EQ(inFileOrder, (std::vector<vorn::OptionalText>{"second", "first", "first again"}));
  store.find("s", "1")->remove();
  EXPECT_EQ(store.find("s", "1")->summary(), "first again");
  store.find("s")->remove();
  EXPECT_FALSE(store.eventAt(0).master());
  EXPECT_FALSE(store.find("s"));
  EXPECT_FALSE(store.find(""));
  EXPECT_EQ(Loaded(store.text()).events().size(), 2U) << "what is removed leaves the text";
}

TEST(CalendarEvent, CountsASeriesThatNeverEndsOrIsNoneWithoutHanging) {
  const std::tuple<const char*, int, int> cases[] = {{"FREQ=DAILY", 0, 0},
                                                     {"FREQ=DAILY;UNTIL=20300515T235959Z", 2, 3},
                                                     {"FREQ=SECONDLY;UNTIL=20991231T000000Z", 2, 0},
                                                     {"FREQ=DAILY;UNTIL=99991231T000000Z", 2, 1000},
                                                     {"FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30;COUNT=3", 1, 3},
                                                     {"FREQ=NEVER;COUNT=2", 1, 2},
                                                     {"COUNT=999999999999999999999", 1, 0}};
  for (const auto& [rule, endType, count] : cases) {
    Loaded store(event(std::string("DTSTART:20300513T120000Z\r\nRRULE:") + rule + "\r\n"));
    EXPECT_EQ(store.eventAt(0).recurrence().endType, endType) << rule;
    EXPECT_EQ(store.eventAt(0).recurrence().occurrenceCount, count) << rule;
  }
}

TEST(CalendarEvent, ReadsTheTextsThatPeopleHave) {
  Loaded odd("html-body.ics");
  EXPECT_EQ(odd.eventAt(1).location(), "Room 1, Room 2; ground floor\nback door\\left");
  EXPECT_FALSE(odd.eventAt(1).summary());
  EXPECT_TRUE(odd.eventAt(0).htmlDescription()->starts_with("<!DOCTYPE HTML>"));

  Loaded folded("folded-in-character.ics");
  EXPECT_EQ(folded.eventAt(0).summary(), "Größere Änderungen überall — ありがとうございます");

  Loaded unknown("unknown-things.ics");
  ASSERT_EQ(unknown.events().size(), 2U) << "to-dos and journals are no appointments";
  EXPECT_EQ(unknown.eventAt(0).summary(), "Lower case");
  EXPECT_FALSE(unknown.eventAt(0).htmlInDescription());
  EXPECT_TRUE(unknown.eventAt(1).htmlInDescription());
  EXPECT_TRUE(unknown.eventAt(1).isCancelled());

  Loaded latin(event("SUMMARY:caf\xE9\r\n"));
  EXPECT_EQ(latin.eventAt(0).summary(), "café");
}

TEST(CalendarEvent, KnowsTheLinesThatSomebodyHasWrittenInOneOfItsTwoBodiesAlone) {
  const std::string bookmark = "<a name=\"MacVnBookmarkBegin\"></a>";
  const std::string page = "<html><body>" + bookmark +
                           "<p>Agenda v1 &amp; <b>ca</b>ke</p><ol><li>Wir "
                           "pr&uuml;fen</li></ol>"
                           "<A HREF='https://a.example/x?k=7&amp;l=2'>site</A><hr></body></html>";
  const std::tuple<std::string, const char*, const char*> rows[] = {
      {page, "agenda V1\n & cake\n\n1. Wir pr\u00FCfen\n___\nsite <https://a.example/x?k=7&l=2>\n", ""},
      {page, "Agenda v2 BRING IT\nsite", "Agenda v2 BRING IT"},
      {page, "Wir prüfen\n- 契約書\n---\nAgenda\n2) Tee\nYes \n\n", "- 契約書\n---\n2) Tee\nYes"},
      {page, "Agenda v1 & cake\n\U0001F44D\n___\nWir prüfen\n\u2192\nsite", "\U0001F44D\n___\n\u2192"},
      {bookmark + "<link rel=\"x\"><p>2. Mai \u2605</p>", "3. Mai\n\u2605\u00A0\u2605 \uFFFC\n\u2500\u2500",
       "3. Mai"},
      {"", "the 1\n\n:-)\n", "the 1\n\n:-)"},
      {"<html><title>Tea</title><body style='color: red'><!-- red --></body></html>", "Tea red", "Tea red"},
      {"<title>Tea</title>", "Tea", "Tea"},
      {"<p></p>", ":-)", ":-)"},
      {"<p>Agenda</p>", "When: Monday\n\nAgenda [logo]", ""},
      {"<p>:-)</p>", ":-)", ""},
      {"", " \n", ""},
  };
  for (const auto& [html, text, lines] : rows) {
    Loaded store(event(""));
    store.eventAt(0).setDescription(text, html);
    EXPECT_EQ(linesMissingIn(html, text), lines) << text;
    EXPECT_EQ(store.doubts().size(), *lines == '\0' ? 0U : 1U) << text;
  }
}

TEST(CalendarEvent, ReadsABodyInWhateverFormAProgramHasWrittenItAndWritesItIntoItsPlace) {
  const std::string beside = "DESCRIPTION;ALTREP=\"data:text/html,%3Cp%3EM%C3%BC%3C%2Fp%3E\":Mü\r\n";
  struct Row {
    std::string before;
    const char* text;
    const char* html;
    std::string afterwards;
  };
  const std::string plainThen = "DESCRIPTION:Mü pwd=4D\r\n";
  const std::string thenHtml = "X-ALT-DESC;FMTTYPE=text/html:<p>new</p>\r\n";
  const Row rows[] = {
      {beside, "Mü", "<p>Mü</p>", "DESCRIPTION;ALTREP=\"data:text/html,%3Cp%3Enew%3C%2Fp%3E\":Mü pwd=4D\r\n"},
      {"DESCRIPTION;ALTREP=\"data:text/html;charset=utf-8;base64,PHA+TTwvcD4=\":M\r\n", "M", "<p>M</p>",
       "DESCRIPTION;ALTREP=\"data:text/html,%3Cp%3Enew%3C%2Fp%3E\":Mü pwd=4D\r\n"},
      {"X-ALT-DESC;LANGUAGE=de;FMTTYPE=text/html;X-FOO=1:<p>M</p>\r\n" + beside, "Mü", "<p>M</p>",
       "X-ALT-DESC;LANGUAGE=de;FMTTYPE=text/html;X-FOO=1:<p>new</p>\r\n" + plainThen},
      {"DESCRIPTION;ALTREP=\"https://a.example/1,2\":Mü\r\n", "Mü", nullptr, plainThen + thenHtml},
      {"DESCRIPTION;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:M=C3=BC=2C=0D=0Aa=4\r\n", "Mü,\r\na=4", nullptr,
       plainThen + thenHtml},
      {"DESCRIPTION;ENCODING=QUOTED-PRINTABLE;CHARSET=windows-1251:=CF=F0\r\n", "\u041F\u0440", nullptr,
       plainThen + thenHtml},
      {"DESCRIPTION;ENCODING=QUOTED-PRINTABLE:goes on=20=\r\n", "goes on=20=", nullptr, plainThen + thenHtml},
      {"DESCRIPTION;ENCODING=QUOTED-PRINTABLE;CHARSET=unheard-of:=CF\r\n", "=CF", nullptr,
       "DESCRIPTION;CHARSET=unheard-of:Mü pwd=4D\r\n" + thenHtml},
      {"DESCRIPTION;CHARSET=ISO-8859-1:M\r\n", "M", nullptr,
       "DESCRIPTION;CHARSET=ISO-8859-1:Mü pwd=4D\r\n" + thenHtml},
      {"DESCRIPTION;ENCODING=QUOTED-PRINTABLE:M=FC=4x\r\n", "Mü=4x", nullptr, plainThen + thenHtml},
      {"DESCRIPTION;ENCODING=BASE64;VALUE=BINARY:TcO8\r\n", "Mü", nullptr, plainThen + thenHtml},
      {"DESCRIPTION;ENCODING=BASE64:no base-64!\r\n", "no base-64!", nullptr, plainThen + thenHtml},
  };
  for (const auto& [before, text, html, afterwards] : rows) {
    Loaded store(event(before));
    EXPECT_EQ(store.eventAt(0).description(), text) << before;
    EXPECT_EQ(store.eventAt(0).htmlDescription(), html ? vorn::OptionalText(html) : std::nullopt) << before;
    store.eventAt(0).setDescription("Mü pwd=4D", "<p>new</p>");
    std::string unfolded = vorn::replacingAll(store.text(), "\r\n ", "");
    EXPECT_EQ(unfolded, event(afterwards)) << before;
    Loaded again(store.text());
    EXPECT_EQ(again.eventAt(0).description(), "Mü pwd=4D") << before;
    EXPECT_EQ(again.eventAt(0).htmlDescription(), "<p>new</p>") << before;
  }
}

TEST(CalendarEvent, WhatElseNamesAPlaceStaysAsLongAsThePlaceIsNamed) {
  Loaded store(event("LOCATION;ALTREP=\"https://maps.example/1\":Room 7\r\n"));
  for (const char* place : {"Room 7; online", "Room 7", "online; Room 7"}) {
    store.eventAt(0).setLocation(place);
    EXPECT_EQ(store.text(), event("LOCATION;ALTREP=\"https://maps.example/1\":" + escapedText(place) + "\r\n"));
  }
  store.eventAt(0).setLocation("Room 77");
  EXPECT_EQ(store.text(), event("LOCATION:Room 77\r\n"));
}

TEST(CalendarEvent, KnowsTheHtmlOfAWebCalendarByItsTags) {
  const std::pair<const char*, const char*> rows[] = {
      {"Plan: <a href=\"https://a.example/p\">doc</a>\nlaptop\n\nroom",
       "Plan: <a href=\"https://a.example/p\">doc</a><br>\nlaptop<br>\n<br>\nroom"},
      {"<ol><li>one</li>\n<li>two</li></ol>\nthree<BR>\nfour\n<UL>", nullptr},
      {"<p dir=\"ltr\">one</p> \ntwo\nthree", "<p dir=\"ltr\">one</p> \ntwo<br>\nthree"},
      {"<a target=\"_blank\" href=\"https://a.example\">x", nullptr},
      {"<pre>a\nb</pre>\nc\nd", "<pre>a\nb</pre>\nc<br>\nd"},
      {"a < b, <3, <robin@vorn.example> and <abbreviated or a <b then\nc > d", ""},
      {"<", ""},
  };
  for (const auto& [text, html] : rows) {
    Loaded store(calendar("PRODID:-//Google Inc//Google Calendar 70.9054//EN\r\nBEGIN:VEVENT\r\nDESCRIPTION:" +
                          escapedText(text) + "\r\nEND:VEVENT\r\n"));
    const vorn::OptionalText expected = !html ? text : *html == '\0' ? vorn::OptionalText() : html;
    EXPECT_EQ(store.eventAt(0).htmlInDescription(), expected) << text;
  }
}

TEST(CalendarEvent, KeepsARecordThroughTheFileAndTakesItOutWithoutATrace) {
  const std::string before = event("SUMMARY:a\r\n");
  const std::string record = "{\n  \"meetingKey\" : \"123\", \"url\" : \"https://a.example/j/1?p=\\\"ä;\\\"\"\n}";
  Loaded store(before);
  store.eventAt(0).setOlmUCInband(record);
  Loaded again(store.text());
  EXPECT_EQ(again.eventAt(0).olmUCInband(), record);
  again.eventAt(0).setOlmUCInband("");
  EXPECT_EQ(again.text(), before);
}

TEST(CalendarEvent, KnowsPeopleByTheirMailWhereTheirAddressIsAnother) {
  Loaded store(
      event("ORGANIZER;CN=Kim;EMAIL=kim@a.example:/aMTIz/principal/\r\n"
            "ATTENDEE;EMAIL=jo@a.example:urn:uuid:1\r\nATTENDEE;EMAIL=x@a.example:MAILTO:lee@a.example\r\n"
            "ATTENDEE;CUTYPE=ROOM:/principal/\r\n"));
  EXPECT_EQ(store.eventAt(0).organizerAddress(), "kim@a.example");
  Loaded relayed(event("ORGANIZER;EMAIL=kim@a.example:mailto:2_GE@relay.example\r\n"));
  EXPECT_FALSE(relayed.eventAt(0).isOfSomebodyElse("KIM@a.example"));
  EXPECT_TRUE(relayed.eventAt(0).isOfSomebodyElse("jo@a.example"));
  std::vector<std::string> addresses;
  for (const CalendarAttendee& each : store.eventAt(0).attendees()) addresses.push_back(each.emailAddress);
  EXPECT_EQ(addresses, (std::vector<std::string>{"jo@a.example", "lee@a.example", "/principal/"}));
  EXPECT_EQ(store.eventAt(0).attendees().back().type, 2);
}

TEST(CalendarEvent, WhoStaysInvitedKeepsTheLineButForAnotherName) {
  const std::string answered = ";PARTSTAT=ACCEPTED:mailto:jo@b.example\r\n";
  const std::string twice = "ATTENDEE;CN=Jo L:mailto:jo@b.example\r\n";
  const auto with = [&](const std::string& name) { return event("ATTENDEE" + name + answered + twice); };
  struct Row {
    const char* before;
    const char* wanted;
    const char* after;
  };
  const Row rows[] = {{";CN=Jo", "Jo", ";CN=Jo"},
                      {";CN=\"Lee, Jo\";ROLE=CHAIR", "Kim \"K\"\n", ";CN=\"Kim K\";ROLE=CHAIR"},
                      {";CN=Jo \"L\"", "Jo \"L\"", ";CN=Jo \"L\""},
                      {";CN=Jo;RSVP=TRUE", "jo@b.example", ";RSVP=TRUE"}};
  for (const auto& [before, wanted, after] : rows) {
    Loaded store(with(before));
    store.eventAt(0).setAttendees({{wanted, "jo@b.example", 0}});
    EXPECT_EQ(store.text(), with(after)) << before;
  }
  Loaded store(event("ATTENDEE:mailto:jo@b.example\r\n"));
  for (const char* name : {"Ann", "Bo"}) store.eventAt(0).setAttendees({{name, "a@b.example", 0}});
  EXPECT_EQ(store.text(), event("ATTENDEE;CN=\"Bo\";RSVP=TRUE:mailto:a@b.example\r\n"));
  store.eventAt(0).setAttendees({});
  EXPECT_TRUE(store.eventAt(0).attendees().empty());
  EXPECT_EQ(store.text(), event(""));
}

TEST(CalendarEvent, TheTextOfOneEventIsACalendarWithItsZonesOnly) {
  Loaded store("demo.ics");
  Loaded one(store.find("dentist@calendar.example")->calendarText());
  ASSERT_EQ(one.events().size(), 1U);
  EXPECT_EQ(one.eventAt(0).start()->seconds, store.find("dentist@calendar.example")->start()->seconds);
  EXPECT_NE(one.text().find("BEGIN:VTIMEZONE"), std::string::npos);
  EXPECT_EQ(store.find("budget-review@calendar.example")->calendarText().find("BEGIN:VTIMEZONE"),
            std::string::npos);
}

TEST(CalendarStore, ANewAppointmentJoinsTheLastCalendarAndTheRestStaysAsItWas) {
  Loaded store("unknown-things.ics");
  const std::string before = store.text();
  const CalendarEvent added = store.add("new", 1904904000, 1904905800, "Talk, again");
  EXPECT_EQ(added.index(), 2U);
  EXPECT_EQ(store.find("new")->summary(), "Talk, again");
  const std::string tail = "END:VCALENDAR";
  EXPECT_TRUE(store.text().starts_with(before.substr(0, before.size() - tail.size())));
  EXPECT_TRUE(store.isChanged());

  CalendarStore empty;
  EXPECT_EQ(empty.add("first", 0, 60, "a").start()->seconds, 0);
}

// Windows, the selection and the plug-in's numbers for records stand for places.
TEST(CalendarStore, EveryAppointmentKeepsItsPlaceWhateverIsRemovedAndAdded) {
  const auto event = [](const std::string& uid) { return "BEGIN:VEVENT\r\nUID:" + uid + "\r\nEND:VEVENT\r\n"; };
  const std::string standing = "BEGIN:VCALENDAR\r\n" + event("a") + event("b") + "END:VCALENDAR\r\n";
  for (const std::string& text : {standing + event("c"), event("a") + standing.substr(0, 17) + event("b") +
                                                             "END:VCALENDAR\r\n" + event("c")}) {
    Loaded store(text);
    store.find("a")->remove();
    EXPECT_EQ(store.add("d", 0, 60, "").index(), 3U);
    store.find("c")->remove();
    EXPECT_EQ(store.add("e", 0, 60, "").index(), 4U);
    const char* uids[] = {"a", "b", "c", "d", "e"};
    for (std::size_t place = 0; place < std::size(uids); ++place) {
      EXPECT_EQ(store.eventAt(place).uid(), uids[place]) << text;
      EXPECT_EQ(store.eventAt(place).isRemoved(), place == 0 || place == 2) << text;
      EXPECT_EQ(store.find(uids[place]).has_value(), place != 0 && place != 2) << text;
    }
    EXPECT_EQ(store.eventCount(), 5U);
    EXPECT_EQ(store.text().find("UID:a"), std::string::npos);
    EXPECT_EQ(Loaded(store.text()).events().size(), 3U) << store.text();
  }
}

TEST(CalendarStore, AFileThatCannotBeReadOrWrittenIsToldAndLeavesTheStoreAsItWas) {
  Loaded store("demo.ics");
  const std::string before = store.text();
  IcsProblem problem;
  EXPECT_FALSE(store.load("/no/such/file.ics", problem));
  EXPECT_EQ(problem.line, 0U);
  EXPECT_FALSE(store.loadText("BEGIN:VCALENDAR\n", problem));
  EXPECT_EQ(problem.line, 2U);
  EXPECT_EQ(store.text(), before);
  EXPECT_FALSE(store.save("/no/such/folder/out.ics"));
  EXPECT_TRUE(store.loadText(event(""), problem));
  EXPECT_EQ(store.eventCount(), 1U) << "another file takes the place of the first";
}

}  // namespace
}  // namespace vornlab

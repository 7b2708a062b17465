#include <gtest/gtest.h>

#include "invitation/vnICalendarContentParse.h"
#include "tests/support/TestPlatform.h"
#include "util/TextSearch.h"

namespace vorn {
namespace {

class CalendarReader : public testing::Test {
 protected:
  TestPlatform world;
};

std::string eventWith(const std::string& lines) { return "BEGIN:VEVENT\r\n" + lines + "\r\nEND:VEVENT"; }

TEST_F(CalendarReader, PicksTheOnlyEventOrTheMasterOfASeries) {
  const std::string one = eventWith("X-ENTOURAGE_UUID:1");
  const std::string master = eventWith("X-MICROSOFT-CDO-INSTTYPE: 1 \nX-ENTOURAGE_UUID:2");
  const struct {
    const char* what;
    OptionalText content, uuid;
    bool hasEvents;
  } rows[] = {
      {"nothing", std::nullopt, std::nullopt, false},
      {"an empty text", "", std::nullopt, false},
      {"a calendar without events", "BEGIN:VCALENDAR\r\nEND:VCALENDAR", std::nullopt, false},
      {"one event", "x\r\n" + one + "\r\ny", "1", true},
      {"an end in front", "END:VEVENT\n" + one, "1", true},
      {"an end behind", one + "\nEND:VEVENT", "1", true},
      {"a series", one + "\r\n" + master + one, "2", true},
      {"ends around the master", "END:VEVENT\n" + one + "END:VEVENT" + master + "END:VEVENT", "2", true},
      {"two masters", master + replacingAll(master, "UUID:2", "UUID:3"), "2", true},
      {"a type that is not 1", one + replacingAll(master, "TYPE: 1 ", "TYPE:11"), std::nullopt, true},
      {"two that may both be meant", one + one, std::nullopt, true},
      {"a begin without its end", one + "\nBEGIN:VEVENT\nX-ENTOURAGE_UUID:3", "1", true},
      {"a begin inside an event", "BEGIN:VEVENT\nX-ENTOURAGE_UUID:0\n" + one, "0", true},
      {"an end only", "END:VEVENT", std::nullopt, false},
      {"a begin only", "BEGIN:VEVENT\r\nUID:1", std::nullopt, false},
      {"the two in the wrong order", "END:VEVENT\nBEGIN:VEVENT", std::nullopt, true},
      {"lower case", "begin:vevent\nX-ENTOURAGE_UUID:1\nend:vevent", std::nullopt, false},
      {"nothing between", "BEGIN:VEVENTEND:VEVENT", "", true},
  };
  for (const auto& row : rows) {
    vnICalendarContentParse reader(std::nullopt);
    EXPECT_EQ(reader.parseEvents(row.content), row.hasEvents) << row.what;
    EXPECT_EQ(reader.getUUID(), row.uuid) << row.what;
    EXPECT_EQ(reader.getEvent().has_value(), row.uuid.has_value()) << row.what;
  }
  EXPECT_EQ(vnICalendarContentParse(std::nullopt).getLocation(), std::nullopt);
}

TEST_F(CalendarReader, TakesTheFirstLineThatHoldsTheTag) {
  const vnICalendarContentParse reader(
      eventWith("DESCRIPTION:The location: Room 1\r\nLOCATION:Room 2\r\nX-ENTOURAGE_UUID:\r\n"
                "DTSTAMP:20260102T030405Z\r\nX-VORNMEETINGNUMBER:  123456789 \r\n 0"));
  EXPECT_EQ(reader.getLocation(), "Room 1");
  EXPECT_EQ(reader.getUUID(), "");
  EXPECT_EQ(reader.getMeetingNumberByVornKey(), "123456789") << "folded lines are not joined";
  EXPECT_EQ(reader.getDTStamp(), 20260102030405);
  const std::pair<const char*, const char*> rows[] = {
      {"no such line", "LOCATION:"}, {"A\nB:c", "A\nB:"}, {"A:\nB:c", "A:"}, {"A:1", ""}};
  for (const auto& [text, tag] : rows) EXPECT_EQ(reader.getItemValue(text, tag), "") << text;
  EXPECT_EQ(reader.getItemValue("x a:1\nA:2", "A:"), "1");
  EXPECT_EQ(reader.getItemValue("", "LOCATION:"), std::nullopt);
  EXPECT_EQ(reader.getItemValue("x", std::nullopt), std::nullopt);
}

TEST_F(CalendarReader, FindsTheMeetingNumberOfADescription) {
  const vnICalendarContentParse reader(std::nullopt);
  const struct {
    const char* description;
    OptionalText number;
  } cases[] = {
      {"Join https://x.y/j/1234567890?pwd=abc now", "1234567890"},
      {"http://x/j/123456789", "123456789"},
      {"https://x/j/12345678 then Meeting ID: 987 654 321", "987654321"},
      {"https://x/j/1234567890123", std::nullopt},
      {"https://x/j/000000000", std::nullopt},
      {"https://x/j/12345678 https://x/j/123456789012", "123456789012"},
      {"/j/1234567890", std::nullopt},
      {"https://x/my/me https://x/j/1234567890", std::nullopt},
      {"https://x/my/me Meeting ID: 123 456 7890", "1234567890"},
      {"text\\nMeeting ID: 123 456 7890\\n99", "1234567890"},
      {"text\r\nMeeting ID: 123 45\r\n6 7890\n99", "1234567890"},
      {"Meeting ID: 123 456 78\n 90\n\t1\n2", "12345678901"},
      {"Meeting  ID: 123 456 789", "123456789"},
      {"Meeting ID: 1234 5678 9012 34", std::nullopt},
      {"Meeting ID: 12345678", std::nullopt},
      {"meeting id: 123456789", std::nullopt},
      {"", std::nullopt},
      // As a host folds a line: anywhere, with a line end and a blank.
      {"Join\\nhttps://x.y/j/91234567890\r\n ?pwd=abc\\n\\nMeeting-ID: 912 3456 7890", "91234567890"},
      {"https://vorn.exam\r\n ple/j/91234567890?pwd=abc\\n\\nMeeting ID: 912 3456\r\n  7890", "91234567890"},
      {"https://x.y/j/9123\r\n 4567890\\n\\nMeeting\r\n  ID: 912 3456 7890", "91234567890"},
      {"https://x.y/j/9123456789\r\n 0?pwd=abc\\n\\nMeeting ID: 912 3456 7890", "91234567890"},
      {"https://x.y/j/9123456789\n\t0?pwd=abc\\n\\nMeeting ID: 912 3456 7890", "91234567890"},
      {"https://x.y/j/9123456789\r\n\t0?pwd=abc", std::nullopt},
      {"https://x.y/j/9123456789\r\n\t0?pwd=abc\\n\\nMeeting ID: 912 3456 78\r\n\t90", "91234567890"},
      {"https://x.y/j/9123456789\r\n 0?pwd=abc https://x.y/j/91234567890", "91234567890"},
      {"Meet\r\n ing ID: 912 3456 7890", std::nullopt},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(reader.getMeetingNumberFromDescription(each.description), each.number) << each.description;
  }
  EXPECT_EQ(reader.getMeetingNumberFromDescription(std::nullopt), std::nullopt);
}

TEST_F(CalendarReader, TheDescriptionEndsAtTheLocationOrTheOrganizer) {
  const struct {
    const char *lines, *description;
  } cases[] = {
      {"DESCRIPTION:text\r\nLOCATION:x", "text\r\n"},
      {"DESCRIPTION:text\r\nORGANIZER:x", "text\r\n"},
      {"LOCATION:x\r\nDESCRIPTION:text\r\nORGANIZER:x", "text\r\nORGANIZER:x\r\nEND:VEVENT"},
      {"DESCRIPTION:text", "text\r\nEND:VEVENT"},
      {"DESCRIPTION:LOCATION:x", "LOCATION:x\r\nEND:VEVENT"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(vnICalendarContentParse(eventWith(each.lines)).getDescriptionWithVornInvitation(), each.description);
  }
  EXPECT_EQ(vnICalendarContentParse(eventWith("x")).getDescriptionWithVornInvitation(), std::nullopt);
}

TEST_F(CalendarReader, TakesTheInvitationsNumberOnlyOfAFreshAppointmentOfTheClient) {
  world.surroundings.time = 1767323045;  // 2026-01-02 03:04:05
  const auto content = [](const std::string& stamp, const std::string& location) {
    return eventWith("DTSTAMP:" + stamp +
                     "\r\nDESCRIPTION:Join https://x/j/123456789 now\r\nLOCATION:" + location);
  };
  const struct {
    const char *stamp, *location;
    OptionalText number;
  } cases[] = {
      {"20260102T030405Z", "https://x/j/123456789", "123456789"},
      {"20260102T030403Z", "https://x/j/123456789", "123456789"},
      {"20260102T030402Z", "https://x/j/123456789", ""},
      {"20990102T030402Z", "https://x/j/123456789", "123456789"},
      {"-99999999999999999999", "https://x/j/123456789", "123456789"},
      {"20260102T030405Z", "elsewhere", ""},
      {"20260102T030405Z", "", ""},
      {"20260102T030405Z", "https://x/j/12345\r\n 6789", "123456789"},
      {"20260102T030405Z", "https://x/j/123456789?pwd=abc", ""},
  };
  for (const auto& each : cases) {
    vnICalendarContentParse reader(content(each.stamp, each.location));
    EXPECT_EQ(reader.getMeetingNumberForClientSchedule(), each.number) << each.stamp << each.location;
    EXPECT_EQ(reader.isGetMeetingNumberFromInvitation(), each.number == "123456789");
  }
  vnICalendarContentParse keyed(eventWith("VORNMEETINGNUMBER:1\r\nDTSTAMP:20000101T000000Z"));
  EXPECT_EQ(keyed.getMeetingNumberForClientSchedule(), "1");
  EXPECT_FALSE(keyed.isGetMeetingNumberFromInvitation());
}

TEST_F(CalendarReader, ReadsHugeTextsInProportionToTheirSize) {
  std::string many;
  for (int i = 0; i < 100'000; ++i) many += eventWith("UID:" + std::to_string(i)) + "\r\n";
  many += eventWith("X-MICROSOFT-CDO-INSTTYPE:1\r\nX-ENTOURAGE_UUID:U") + "END:VEVENT";
  EXPECT_EQ(vnICalendarContentParse(many).getUUID(), "U");
  std::string ends;
  for (int i = 0; i < 300'000; ++i) ends += "END:VEVENT";
  EXPECT_EQ(vnICalendarContentParse(ends + "BEGIN:VEVENT").getEvent(), std::nullopt);
  const std::string line(1'000'000, 'a');
  vnICalendarContentParse wide(
      eventWith("LOCATION:" + line + "b\r\nDTSTAMP:20990101T000000Z\r\nDESCRIPTION:" + line + line));
  EXPECT_EQ(wide.getMeetingNumberForClientSchedule(), "");
}

// -- Texts as no host should hand them out, and as some do -------------------------------------------------------

const std::string kEvent =
    "BEGIN:VEVENT\r\nUID:1\r\nDTSTAMP:20260102T030405Z\r\nSUMMARY:Größe\r\n"
    "DESCRIPTION:Join https://x.y/j/1234567890?pwd=a\\nMeeting ID: 123 456 7890\\n\r\n"
    "LOCATION:https://x.y/j/1234567890\r\nX-ENTOURAGE_UUID:U-1\r\nX-VORNMEETINGNUMBER:987654321\r\nEND:VEVENT";
const std::string kCalendar = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + kEvent + "\r\nEND:VCALENDAR\r\n";

struct Answers {
  OptionalText event, location, uuid, byKey, description, number;
  std::int64_t stamp;
  bool operator==(const Answers&) const = default;
};

Answers answersTo(const std::string& content) {
  vnICalendarContentParse reader(content);
  return {reader.getEvent(),
          reader.getLocation(),
          reader.getUUID(),
          reader.getMeetingNumberByVornKey(),
          reader.getDescriptionWithVornInvitation(),
          reader.getMeetingNumberFromDescription(),
          reader.getDTStamp()};
}

const Answers kNothing{};

std::string utf16(const std::string& ascii, bool bigEndian) {
  std::string result = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char c : ascii) {
    if (bigEndian) result += '\0';
    result += c;
    if (!bigEndian) result += '\0';
  }
  return result;
}

std::string times(std::size_t count, const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

TEST_F(CalendarReader, ATextThatWasCutAnywhereGivesAllOfItsEventOrNothing) {
  const Answers whole = answersTo(kCalendar);
  EXPECT_EQ(whole.event, kEvent);
  EXPECT_EQ(whole.uuid, "U-1");
  EXPECT_EQ(whole.byKey, "987654321");
  EXPECT_EQ(whole.number, "1234567890");
  EXPECT_EQ(whole.stamp, 20260102030405);
  const std::size_t begin = kCalendar.find(kEvent);
  const std::size_t end = begin + kEvent.size();
  for (std::size_t cut = 0; cut <= kCalendar.size(); ++cut) {
    EXPECT_EQ(answersTo(kCalendar.substr(0, cut)), cut < end ? kNothing : whole) << "the first " << cut;
    EXPECT_EQ(answersTo(kCalendar.substr(cut)), cut > begin ? kNothing : whole) << "without the first " << cut;
  }
}

TEST_F(CalendarReader, ABrokenByteChangesNoMoreThanItsOwnLine) {
  const Answers whole = answersTo(kCalendar);
  const std::size_t summary = kCalendar.find("Größe");
  for (const char broken : {'\0', '\xFF', '\xC3', '\x80'}) {
    for (std::size_t at = 0; at < kCalendar.size(); ++at) {
      std::string content = kCalendar;
      content[at] = broken;
      Answers now = answersTo(content);
      EXPECT_TRUE(!now.number || now.number->size() >= 9) << at;
      if (at < summary || at >= summary + 5) continue;
      now.event = whole.event;
      EXPECT_EQ(now, whole) << at;
    }
  }
}

TEST_F(CalendarReader, OtherEncodingsAndLineEndings) {
  const std::string plain = replacingAll(kCalendar, "Größe", "Size");
  const Answers whole = answersTo(plain);
  const auto sameApartFromTheEventItself = [&](const std::string& content) {
    Answers now = answersTo(content);
    now.event = whole.event;
    now.description = whole.description;
    return now == whole;
  };
  EXPECT_TRUE(sameApartFromTheEventItself("\xEF\xBB\xBF" + plain)) << "a byte order mark";
  EXPECT_TRUE(sameApartFromTheEventItself(replacingAll(plain, "\r\n", "\n"))) << "LF";
  EXPECT_TRUE(sameApartFromTheEventItself(replacingAll(plain, "\r\n", "\r"))) << "CR";
  EXPECT_TRUE(sameApartFromTheEventItself(replacingAll(plain, "\r\n", "\xE2\x80\xA8"))) << "the line separator";
  EXPECT_TRUE(sameApartFromTheEventItself(replacingAll(plain, "\r\n", "\xC2\x85"))) << "the next line";
  EXPECT_EQ(answersTo(utf16(plain, true)), kNothing);
  EXPECT_EQ(answersTo(utf16(plain, false)), kNothing);
  EXPECT_EQ(answersTo(std::string(5000, '\0')), kNothing);

  const auto locationOf = [](const std::string& line) {
    return vnICalendarContentParse("BEGIN:VEVENT\r\n" + line + "\r\nEND:VEVENT").getLocation();
  };
  EXPECT_EQ(locationOf("LOCATION:caf\xE9 "), "caf\xE9") << "Latin-1 stays as it is";
  EXPECT_EQ(locationOf(std::string("LOCATION:a\0b", 12)), std::string("a\0b", 3));
  EXPECT_EQ(locationOf("LOCATION: \t "), "");
  EXPECT_EQ(locationOf("LOCATION:\xC2\xA0x\xE3\x80\x80"), "x") << "blanks of Unicode";
  EXPECT_EQ(locationOf("LOCATION:Room\r\n  7"), "Room") << "folded lines are not joined";
  EXPECT_EQ(locationOf("LOCAT\r\n ION:Room"), "");

  std::string foldedEverywhere;
  for (const char c : plain) foldedEverywhere.append(1, c).append("\r\n ");
  EXPECT_EQ(answersTo(foldedEverywhere), kNothing);
}

TEST_F(CalendarReader, NumbersOfAnyLengthInAnyScript) {
  const vnICalendarContentParse reader(std::nullopt);
  const std::string million(1'000'000, '7');
  const struct {
    const char* what;
    std::string description;
    OptionalText number;
  } rows[] = {
      {"a million digits behind the label", "Meeting ID: " + million, std::nullopt},
      {"a million digits in a URL", "https://x/j/" + million + " https://x/j/123456789", "123456789"},
      {"a million digits with blanks", "Meeting ID: " + times(500'000, "7 "), std::nullopt},
      {"a million digits in front", million + " Meeting ID: 123456789", "123456789"},
      {"a million labels", times(100'000, "Meeting ID: ") + "123456789", std::nullopt},
      {"a million URLs without a number", times(100'000, "https://x/j/1 ") + "https://x/j/123456789", "123456789"},
      {"a million folds", "Meeting ID: 12345" + times(300'000, "\r\n") + "6789", "123456789"},
      {"a million escaped lines", times(300'000, "\\n") + "Meeting ID: 123456789", "123456789"},
      {"a million blanks", times(1'000'000, " ") + "Meeting ID:" + times(1'000'000, " ") + "123456789",
       "123456789"},
      {"Arabic digits in a URL have no value",
       "https://x/j/\u0661\u0661\u0661\u0661\u0661\u0661\u0661\u0661\u0661", std::nullopt},
      {"NUL ends the digits", std::string("Meeting ID: 123456789\0", 22) + "1234", "123456789"},
      {"a byte that is no UTF-8 ends them",
       "Meeting ID: 123456789\xFF"
       "1234",
       "123456789"},
      {"beyond 64 bits", "https://x/j/99999999999999999999", std::nullopt},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(reader.getMeetingNumberFromDescription(row.description), row.number) << row.what;
  }
}

}  // namespace
}  // namespace vorn

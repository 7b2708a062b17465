// Calendar texts as no host should hand them out, and as some do.

#include <gtest/gtest.h>

#include <functional>

#include "invitation/vnICalendarContentParse.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

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

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size()) {
    text.replace(at, what.size(), with);
  }
  return text;
}

std::string times(std::size_t count, const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

class CalendarBadInput : public testing::Test {
 protected:
  TestPlatform world;
};

TEST_F(CalendarBadInput, ATextThatWasCutAnywhereGivesAllOfItsEventOrNothing) {
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

TEST_F(CalendarBadInput, ABrokenByteChangesNoMoreThanItsOwnLine) {
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

TEST_F(CalendarBadInput, BeginsAndEndsInAnyOrder) {
  const std::string one = "BEGIN:VEVENT\nX-ENTOURAGE_UUID:1\nEND:VEVENT";
  const std::string master = "BEGIN:VEVENT\nX-MICROSOFT-CDO-INSTTYPE:1\nX-ENTOURAGE_UUID:2\nEND:VEVENT";
  const struct {
    const char* what;
    std::string content;
    OptionalText uuid;
  } rows[] = {
      {"an end in front", "END:VEVENT\n" + one, "1"},
      {"many ends in front", times(1000, "END:VEVENT\n") + one, "1"},
      {"an end behind", one + "\nEND:VEVENT", "1"},
      {"ends around the master", "END:VEVENT\n" + one + "END:VEVENT" + master + "END:VEVENT", "2"},
      {"a begin without its end", one + "\nBEGIN:VEVENT\nX-ENTOURAGE_UUID:3", "1"},
      {"a begin inside an event", "BEGIN:VEVENT\nX-ENTOURAGE_UUID:0\n" + one, "0"},
      {"an end only", "END:VEVENT", std::nullopt},
      {"a begin only", "BEGIN:VEVENT", std::nullopt},
      {"the two in the wrong order", "END:VEVENT\nBEGIN:VEVENT", std::nullopt},
      {"lower case", "begin:vevent\nX-ENTOURAGE_UUID:1\nend:vevent", std::nullopt},
      {"nothing between", "BEGIN:VEVENTEND:VEVENT", ""},
      {"two that may both be meant", one + one, std::nullopt},
      {"two masters", master + replaced(master, "UUID:2", "UUID:3"), "2"},
      {"a type that is not 1", one + replaced(master, "INSTTYPE:1", "INSTTYPE:11"), std::nullopt},
  };
  for (const auto& row : rows) EXPECT_EQ(vnICalendarContentParse(row.content).getUUID(), row.uuid) << row.what;
}

TEST_F(CalendarBadInput, OtherEncodingsAndLineEndings) {
  const std::string plain = replaced(kCalendar, "Größe", "Size");
  const Answers whole = answersTo(plain);
  const auto sameApartFromTheEventItself = [&](const std::string& content) {
    Answers now = answersTo(content);
    now.event = whole.event;
    now.description = whole.description;
    return now == whole;
  };
  EXPECT_TRUE(sameApartFromTheEventItself("\xEF\xBB\xBF" + plain)) << "a byte order mark";
  EXPECT_TRUE(sameApartFromTheEventItself(replaced(plain, "\r\n", "\n"))) << "LF";
  EXPECT_TRUE(sameApartFromTheEventItself(replaced(plain, "\r\n", "\r"))) << "CR";
  EXPECT_TRUE(sameApartFromTheEventItself(replaced(plain, "\r\n", "\xE2\x80\xA8"))) << "the line separator";
  EXPECT_TRUE(sameApartFromTheEventItself(replaced(plain, "\r\n", "\xC2\x85"))) << "the next line";
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

TEST_F(CalendarBadInput, ATagIsLookedForInOneLineOnly) {
  const vnICalendarContentParse reader(std::nullopt);
  EXPECT_EQ(reader.getItemValue("A\nB:c", "A\nB:"), "");
  EXPECT_EQ(reader.getItemValue("A:\nB:c", "A:"), "");
  EXPECT_EQ(reader.getItemValue("x a:1\nA:2", "A:"), "1");
  EXPECT_EQ(reader.getItemValue("A:1", ""), "");
}

TEST_F(CalendarBadInput, NumbersOfAnyLengthInAnyScript) {
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

#include <gtest/gtest.h>

#include "invitation/TimeUtils.h"
#include "invitation/vnICalendarContentParse.h"
#include "invitation/vnTime.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

std::string eventWith(const std::string& lines) { return "BEGIN:VEVENT\r\n" + lines + "\r\nEND:VEVENT"; }

TEST(CalendarReader, PicksTheOnlyEventOrTheMasterOfASeries) {
  const std::string plain = eventWith("UID:1");
  const std::string master = eventWith("X-MICROSOFT-CDO-INSTTYPE: 1 ");
  const struct {
    OptionalText content, event;
  } cases[] = {
      {std::nullopt, std::nullopt},
      {"", std::nullopt},
      {"BEGIN:VCALENDAR\r\nEND:VCALENDAR", std::nullopt},
      {"BEGIN:VEVENT\r\nUID:1", std::nullopt},
      {"x\r\n" + plain + "\r\ny", plain},
      {plain + plain, std::nullopt},
      {plain + "\r\n" + master + plain, master},
      {"END:VEVENT\r\n" + plain, plain},
  };
  for (const auto& each : cases) {
    vnICalendarContentParse reader(std::nullopt);
    const bool hasTags = each.event || each.content == plain + plain;
    EXPECT_EQ(reader.parseEvents(each.content), hasTags) << each.content.value_or("(absent)");
    EXPECT_EQ(reader.getEvent(), each.event) << each.content.value_or("(absent)");
  }
  EXPECT_EQ(vnICalendarContentParse(std::nullopt).getLocation(), std::nullopt);
}

TEST(CalendarReader, TakesTheFirstLineThatHoldsTheTag) {
  const vnICalendarContentParse reader(
      eventWith("DESCRIPTION:The location: Room 1\r\nLOCATION:Room 2\r\nX-ENTOURAGE_UUID:\r\n"
                "DTSTAMP:20260102T030405Z\r\nX-VORNMEETINGNUMBER:  123456789 \r\n 0"));
  EXPECT_EQ(reader.getLocation(), "Room 1");
  EXPECT_EQ(reader.getUUID(), "");
  EXPECT_EQ(reader.getMeetingNumberByVornKey(), "123456789") << "folded lines are not joined";
  EXPECT_EQ(reader.getDTStamp(), 20260102030405);
  EXPECT_EQ(reader.getItemValue("no such line", "LOCATION:"), "");
  EXPECT_EQ(reader.getItemValue("", "LOCATION:"), std::nullopt);
  EXPECT_EQ(reader.getItemValue("x", std::nullopt), std::nullopt);
}

TEST(CalendarReader, FindsTheMeetingNumberOfADescription) {
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

TEST(CalendarReader, TheDescriptionEndsAtTheLocationOrTheOrganizer) {
  const struct {
    const char *lines, *description;
  } cases[] = {
      {"DESCRIPTION:text\r\nLOCATION:x", "text\r\n"},
      {"DESCRIPTION:text\r\nORGANIZER:x", "text\r\n"},
      {"LOCATION:x\r\nDESCRIPTION:text\r\nORGANIZER:x", "text\r\nORGANIZER:x\r\nEND:VEVENT"},
      {"DESCRIPTION:text", "text\r\nEND:VEVENT"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(vnICalendarContentParse(eventWith(each.lines)).getDescriptionWithVornInvitation(), each.description);
  }
  EXPECT_EQ(vnICalendarContentParse(eventWith("x")).getDescriptionWithVornInvitation(), std::nullopt);
}

TEST(CalendarReader, TakesTheInvitationsNumberOnlyOfAFreshAppointmentOfTheClient) {
  TestPlatform world;
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

TEST(CalendarReader, ReadsHugeTextsInProportionToTheirSize) {
  TestPlatform world;
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

TEST(Time, StampsAreWrittenAndReadAsDigits) {
  TestPlatform world;
  world.surroundings.time = 86399.9;
  EXPECT_EQ(vnTime::getCurrentTime(), "19700101T235959Z");
  const std::time_t zero = 0;
  const std::time_t none = -1;
  EXPECT_EQ(vnTime::getStringFromTime(&zero), "19700101T000000Z");
  EXPECT_EQ(vnTime::getStringFromTime(&none), "");
  EXPECT_EQ(vnTime::getStringFromTime(nullptr), "");
  EXPECT_EQ(vnTime::getTimeFromStr("19700101T000000Z"), 19700101000000);
  EXPECT_EQ(vnTime::getTimeFromStr(std::nullopt), 0);
  EXPECT_EQ(vnTime::getTimeFromStr("garbage"), 0);
}

TEST(Time, TextsBecomeTimestampsAndMoveBetweenZones) {
  EXPECT_EQ(TimeUtils::stringToTimestamp("2023-11-14 22:13:20"), "1700000000");
  EXPECT_EQ(TimeUtils::stringToTimestampWithTimezone("2023-11-14 17:13:20", "America/New_York"), "1700000000");
  EXPECT_EQ(TimeUtils::localToGMT("2023-11-14 17:13:20", "America/New_York"), "2023-11-14 22:13:20");
  EXPECT_EQ(TimeUtils::stringToTimestamp(std::nullopt), "0");
  EXPECT_EQ(TimeUtils::dateToTimestamp(-1.9), -1);
  EXPECT_EQ(TimeUtils::timestampToDate(5), 5.0);
}

}  // namespace
}  // namespace vorn

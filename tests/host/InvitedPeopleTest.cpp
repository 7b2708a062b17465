#include "lab/host/InvitedPeople.h"

#include <gtest/gtest.h>

namespace vornlab {
namespace {

TEST(InvitedPeople, AreReadAsPeopleTypeAndPasteThem) {
  const std::vector<CalendarAttendee> known{
      {"Room \"One\", east", "one@b.example", 2}, {"Old", "no address", 0}, {"Two\nLines", "two@b.example", 0}};
  struct Row {
    const char* typed;
    const char* written;
    std::vector<std::string> unread;
  };
  const Row rows[] = {{"", "", {}},
                      {"a@b.example", "a@b.example", {}},
                      {" a@b.example ;c@b.example,\n d@b.example,", "a@b.example, c@b.example, d@b.example", {}},
                      {"a@b.example, Kim <a@b.example>", "a@b.example", {}},
                      {"\"Lee, Jo\" <jo@b.example>; Kim Ode <kim@b.example>",
                       "\"Lee, Jo\" <jo@b.example>, Kim Ode <kim@b.example>",
                       {}},
                      {"one@b.example, no address", "\"Room 'One', east\" <one@b.example>, Old <no address>", {}},
                      {"kim, a@b@c, @b, a@, <>, a@b.example", "a@b.example", {"kim", "a@b@c", "@b", "a@", "<>"}},
                      {"\"open, a@b.example\nc@b.example", "c@b.example", {"\"open, a@b.example"}}};
  for (const Row& row : rows) {
    const InvitedPeople read = readPeople(row.typed, known);
    EXPECT_EQ(writtenPeople(read.people), row.written) << row.typed;
    EXPECT_EQ(read.unread, row.unread) << row.typed;
    EXPECT_EQ(writtenPeople(readPeople(writtenPeople(read.people), read.people).people), row.written)
        << "what was written reads as it is";
  }
  EXPECT_EQ(readPeople(writtenPeople(known), known).people, known) << "who was only shown has no other name now";
  EXPECT_EQ(readPeople("East <one@b.example>", known).people.front(),
            (CalendarAttendee{"East", "one@b.example", 2}));
}

}  // namespace
}  // namespace vornlab

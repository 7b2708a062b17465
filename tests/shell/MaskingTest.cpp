#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "lab/shell/Masking.h"

namespace vornlab::test {
namespace {

TEST(Masking, CoversPasscodesAndAddressesAndNothingElse) {
  const std::pair<const char*, const char*> cases[] = {
      {"Room 4; https://vorn.example/j/123?pwd=aB.c-d&from=addon",
       "Room 4; https://vorn.example/j/123?pwd=******&from=addon"},
      {"Passcode: 48x%1\nMeeting ID: 123", "Passcode: ******\nMeeting ID: 123"},
      {"Passcode\t562780\nNext", "Passcode\t******\nNext"},
      {"<td>Passcode</td>\n<td>: 4711</td>", "<td>Passcode</td>\n<td>: ******</td>"},
      {"+1 646 555,,123#,,,,*4711#", "+1 646 555,,123#,,,,*******#"},
      {"from anna.müller+x@mail.example, room 7", "from ******, room 7"},
      {"Décisions, 12:30", "Décisions, 12:30"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(masked(text), expected);
}

}  // namespace
}  // namespace vornlab::test

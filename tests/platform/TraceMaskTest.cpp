#include "platform/TraceMask.h"

#include <gmock/gmock.h>

#include <ctime>

namespace vorn {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(TraceMask, CoversWhatIsNobodysBusinessAndShowsTheRest) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"6", "6"},
      {"4;81234567890;msOutlook;0", "4;81234567890;msOutlook;0"},
      {R"({"meetingPassword" : "a\"b}c", "usePMI" : false})",
       R"({"meetingPassword" : "******", "usePMI" : false})"},
      {R"({"requiredMeetingPassword":true})", R"({"requiredMeetingPassword":true})"},
      {R"({"pwd":12345,"a":1})", R"({"pwd":"******","a":1})"},
      {R"({"alternateHosts":["x]y","z"],"subject":"s"})", R"({"alternateHosts":"******","subject":"s"})"},
      {R"({"Email":"nobody","name":"n"})", R"({"Email":"******","name":"n"})"},
      {R"("{\"passcode\":\"9\\\"9\",\"a\":\"b\"}")", R"("{\"passcode\":"******",\"a\":\"b\"}")"},
      {"Join https://vorn.us/j/8123?pwd=QWxhZGRpbg.1&from=a now",
       "Join https://vorn.us/j/8123?pwd=******&from=a now"},
      {"https://vorn.us/j/8123?x=1&PWD=abc#top", "https://vorn.us/j/8123?x=1&PWD=******#top"},
      {"go?url=j%3Fpwd%3Dsecret&x=1", "go?url=j%3Fpwd%3D******&x=1"},
      {"Passcode: 12;34 next", "Passcode: ****** next"},
      {"<b>Passcode:</b>&nbsp;<i>9x9</i>", "<b>Passcode:</b>&nbsp;<i>******</i>"},
      {R"(Line\nMeeting Password:\n 42 end)", R"(Line\nMeeting Password:\n ****** end)"},
      {"Write to john.doe+x@example.com, or <mailto:jane%40example.com>.", "Write to ******, or <******>."},
      {"john&#64;example.com", "******;example.com"},
      {"+16465550100,,81234567890#,,,,*123456#", "+16465550100,,81234567890#,,,,******"},
      {"room *12a# here", "room *12a# here"},
      {R"({"proto":"CgVoZWxsbxIFd29ybGQaBWFnYWluIgVvbmNlICoFbW9yZSE="})", R"({"proto":"<base64, 35 bytes>"})"},
      {R"({"email of a@b.c" : "x", "s":1})", R"({******"******", "s":1})"},
      {"Passcode<a href=mailto:me@x.org>: 42 end", "************ end"},
      {"", ""},
      {"größer — 会議", "größer — 会議"},
  };
  for (const auto& [content, shown] : cases) EXPECT_EQ(TraceMask::covered(content), shown) << content;
}

TEST(TraceMask, SaysHowMuchOfALongTextIsLeftOut) {
  const std::string shown = TraceMask::covered(std::string(100'000, ' ') + "end");
  EXPECT_LT(shown.size(), 1100u);
  EXPECT_THAT(shown, HasSubstr("<99003 bytes more>"));

  std::string wide;
  for (int i = 0; i < 2000; ++i) wide += "ö";
  EXPECT_THAT(TraceMask::covered("a" + wide), Not(HasSubstr("\xC3…"))) << "cut inside a character";
}

// Texts that invite a reader to start over at every step.
TEST(TraceMask, AnswersHostileTextsInLinearTime) {
  const auto repeated = [](const std::string& part) {
    std::string text;
    while (text.size() < 200'000) text += part;
    return text;
  };
  const std::clock_t begin = std::clock();
  for (const char* part : {"\"", "\\\"", "passcode", "passcode:", "passcode:< ", "\"pwd\":", "\"pwd\":[",
                           "pwd=", "@", "\\", "*1", "<", "A", "\"email\" : \"\\"}) {
    EXPECT_LT(TraceMask::covered(repeated(part)).size(), 1100u) << part;
  }
  EXPECT_LT(std::clock() - begin, 10 * CLOCKS_PER_SEC);
}

}  // namespace
}  // namespace vorn

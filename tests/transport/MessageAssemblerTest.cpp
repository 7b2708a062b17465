#include "channel/transport/MessageAssembler.h"

#include <gmock/gmock.h>

#include <tuple>

namespace vorn {
namespace {

using ::testing::ElementsAre;
using namespace std::string_literals;

const std::string kMessage = R"({"actionId":"4","content":"x"})";

std::vector<std::string> messagesOf(const std::vector<std::string>& reads) {
  MessageAssembler assembler;
  std::vector<std::string> messages;
  for (const std::string& read : reads) {
    if (auto message = assembler.feed(read)) messages.push_back(*message);
  }
  return messages;
}

TEST(MessageAssembler, FindsTheEndOfAMessageByItsTagsAndItsLastCharacter) {
  using Texts = std::vector<std::string>;
  const std::string inside = R"({"content":"{a}{b}","actionId":"4"})";
  const std::string early = R"({"actionId":"4","content":"{)";
  const std::tuple<const char*, Texts, Texts> cases[] = {
      {"whole", {kMessage}, {kMessage}},
      {"the other order", {R"({"content":"x","actionId":"4"})"}, {R"({"content":"x","actionId":"4"})"}},
      {"one after the other", {kMessage, kMessage}, {kMessage, kMessage}},
      {"cut inside a tag", {kMessage.substr(0, 20), kMessage.substr(20)}, {kMessage}},
      {"cut before the last character", {kMessage.substr(0, kMessage.size() - 1), "}"}, {kMessage}},
      {"two in one read are one text", {kMessage + kMessage}, {kMessage + kMessage}},
      {"end and next begin in one read", {kMessage + "{", R"("a":1})"}, {kMessage + R"({"a":1})"}},
      {"a brace inside ends it early when both tags are there", {early + "}", "\"}"}, {early + "}"}},
      {"braces before both tags end nothing", {inside.substr(0, 15), inside.substr(15)}, {inside}},
      {"content that holds the other tag",
       {R"({"content":"\"actionId\" and "actionId"}"})"},
       {R"({"content":"\"actionId\" and "actionId"}"})"}},
      {"only one tag", {R"({"content":"x"})"}, {}},
      {"no tag", {"{}"}, {}},
      {"cut at the first zero byte", {kMessage + "\0garbage"s}, {kMessage}},
      {"a zero byte first, with nothing gathered", {"\0"s + kMessage, kMessage}, {kMessage}},
      {"a read that ends inside a character is lost",
       {R"({"actionId":"4",)", "\"\xC3", R"("content":"y"})"},
       {R"({"actionId":"4","content":"y"})"}},
      {"invalid bytes behind a zero byte do no harm", {kMessage + "\0\xFF"s}, {kMessage}},
      {"nothing at all", {"", ""}, {}},
      {"tags of the message before", {kMessage, "{}", R"({"content":"x"})"}, {kMessage}},
  };
  for (const auto& [name, reads, messages] : cases) EXPECT_EQ(messagesOf(reads), messages) << name;
}

TEST(MessageAssembler, FindsAMessageHoweverItIsSplit) {
  const std::string message = R"({ "content" : "größer als 1", "actionId" : "10" })";
  for (std::size_t cut = 1; cut < message.size(); ++cut) {
    const bool isInsideCharacter = (static_cast<unsigned char>(message[cut]) & 0xC0) == 0x80;
    if (isInsideCharacter) continue;
    EXPECT_THAT(messagesOf({message.substr(0, cut), message.substr(cut)}), ElementsAre(message)) << cut;
  }
  std::vector<std::string> bytes;
  for (const char c : kMessage) bytes.emplace_back(1, c);
  EXPECT_THAT(messagesOf(bytes), ElementsAre(kMessage));
}

// Ten megabytes that never end, in small reads: with a scan from the beginning each time the program meets its
// limit.
TEST(MessageAssembler, ReadsALongTextThatNeverEndsInLinearTime) {
  MessageAssembler assembler;
  const std::string piece = std::string(99, '"') + "}";
  for (int i = 0; i < 100'000; ++i) ASSERT_FALSE(assembler.feed(piece));
  EXPECT_EQ(assembler.pending(), 10'000'000u);
}

}  // namespace
}  // namespace vorn

#include "lab/client/Envelope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lab/client/MessageScanner.h"

namespace vornlab {
namespace {

TEST(MessageScanner, findsTheSameMessagesWhereverTheStreamIsCut) {
  const std::vector<std::string> messages = {
      R"({"actionId": "3", "content": "4;new"})",
      R"({"content": "{\"a\": {\"b\": \"}}\\\"{\"}}", "actionId": "6"})",
      R"({})",
      "{\n  \"content\" : \"caf\xc3\xa9 \\\\\"\n}",
  };
  const std::string stream = "\n" + messages[0] + messages[1] + " \n" + messages[2] + "}}\"" + messages[3] + "\n";

  for (std::size_t step = 1; step <= stream.size(); ++step) {
    MessageScanner scanner;
    std::vector<std::string> found;
    for (std::size_t at = 0; at < stream.size(); at += step) {
      for (auto& message : scanner.feed(std::string_view(stream).substr(at, step))) found.push_back(message);
    }
    ASSERT_EQ(found, messages) << "in pieces of " << step;
  }
}

TEST(MessageScanner, givesUpOnAMessageThatOutgrowsTheLimit) {
  MessageScanner scanner(1000);
  EXPECT_THAT(scanner.feed("{\"content\": \"" + std::string(900, 'x')), testing::IsEmpty());
  EXPECT_FALSE(scanner.overflowed());
  scanner.feed(std::string(200, 'x'));
  EXPECT_TRUE(scanner.overflowed());
  EXPECT_THAT(scanner.feed("\"}{}"), testing::IsEmpty());
}

TEST(Envelope, comesBackFromItsOwnTextWhateverTheContentHolds) {
  for (const std::string& content : {std::string(), std::string("4;new"), std::string("{\"a\":\"b;c\"}\n\t\\"),
                                     std::string("Größe 🎉 }"), std::string("with \0 inside", 13)}) {
    const Envelope envelope{11, content};
    EXPECT_EQ(fromText(toText(envelope)), envelope) << content;
  }
}

// A reader takes a message for complete when a read ends in "}" and both names were seen; so no read that ends
// inside the content may have seen both, and none may end inside a character.
TEST(Envelope, isWrittenInAsciiWithTheActionBehindTheContent) {
  const std::string text = toText({6, "{\"name\": \"Zoë\"}"});
  EXPECT_LT(text.find("\"content\""), text.find("}"));
  EXPECT_GT(text.find("\"actionId\""), text.find("Zo"));
  for (const char c : text) EXPECT_LT(static_cast<unsigned char>(c), 0x80U);
  EXPECT_EQ(text.back(), '}');
}

TEST(Envelope, isNotReadFromAnythingElse) {
  for (const char* text :
       {"", "[]", "7", "{", "{\"actionId\": \"3\"}", "{\"content\": \"x\"}",
        "{\"actionId\": 3, \"content\": \"x\"}", "{\"actionId\": \"3\", \"content\": {}}",
        "{\"actionId\": \"three\", \"content\": \"x\"}", "{\"actionId\": \"-3\", \"content\": \"x\"}",
        "{\"actionId\": \"3\", \"content\": \"\xff\"}"}) {
    EXPECT_EQ(fromText(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace vornlab

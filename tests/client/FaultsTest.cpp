#include "lab/client/Faults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lab/client/Journal.h"

namespace vornlab {
namespace {

using testing::HasSubstr;

Delivery deliver(const std::string& what, const Envelope& reply = {4, "4;b;c;d"}) {
  FaultBook book = FaultBook::fromText("every reply: " + what, "faults");
  return deliveryOf(reply, book.next(3, 4));
}

TEST(FaultBook, hitsTheReplyThatARuleNames) {
  FaultBook book = FaultBook::fromText(
      "# a comment\n\n"
      "reply 2 to action 3: silent\n"
      "  second reply to action 3 operation 4 : twice \n"
      "every reply to action 6: delay 0.5 s, close\n"
      "reply 5: glue\n",
      "faults");
  const auto kinds = [&](std::uint32_t action, std::uint32_t operation) {
    std::vector<FaultKind> found;
    for (const auto& fault : book.next(action, operation)) found.push_back(fault.kind);
    return found;
  };
  using enum FaultKind;
  EXPECT_THAT(kinds(3, 1), testing::ElementsAre());
  EXPECT_THAT(kinds(3, 4), testing::ElementsAre(silent));
  EXPECT_THAT(kinds(6, 0), testing::ElementsAre(delay, close));
  EXPECT_THAT(kinds(3, 4), testing::ElementsAre(twice));
  EXPECT_THAT(kinds(6, 0), testing::ElementsAre(delay, close, glue));
  EXPECT_THAT(kinds(3, 4), testing::ElementsAre());
}

TEST(FaultBook, saysWhereAndWhatItExpected) {
  using Case = std::pair<const char*, const char*>;
  for (const auto& [text, expected] :
       {Case{"reply 1 silent", "faults:1: expected ':'"},
        Case{"\n\nreplies 1: silent", "faults:3: expected 'reply N'"},
        Case{"reply 0: silent", "expected 'reply N'"},
        Case{"reply 1 to request 3: die", "expected 'action N', found 'request 3'"},
        Case{"reply 1 to action x: die", "expected 'action N'"}, Case{"reply 1 of 3: die", "found 'of'"},
        Case{"reply 1: vanish", "or restart, found 'vanish'"}, Case{"reply 1: split 8191", "expected 'split at N"},
        Case{"reply 1: split at x", "expected a position"}, Case{"reply 1: split every 0", "at least 1"},
        Case{"reply 1: truncate", "expected 'truncate N'"},
        Case{"reply 1: delay soon", "expected 'delay SECONDS'"}, Case{"reply 1: delay 1e9", "at most 3600"},
        Case{"reply 1: error", "expected 'error CODE'"}, Case{"reply 1: close now", "'close' takes nothing"},
        Case{"reply 1:", "expected what happens"}}) {
    try {
      FaultBook::fromText(text, "faults");
      ADD_FAILURE() << "no error for " << text;
    } catch (const FaultError& error) {
      EXPECT_THAT(error.what(), HasSubstr(expected)) << text;
    }
  }
}

TEST(Delivery, spoilsTheContent) {
  using Case = std::pair<const char*, const char*>;
  for (const auto& [what, content] : {Case{"error 3113", "0;Error 3113"}, Case{"content a, b; c", "a, b; c"},
                                      Case{"content", ""}, Case{"fields 2", "4;b"}, Case{"fields 9", "4;b;c;d"},
                                      Case{"grow 9", "4;b;c;dxx"}, Case{"glue", "4;b;c;d"}}) {
    const auto delivery = deliver(what);
    ASSERT_EQ(delivery.pieces.size(), 1U) << what;
    EXPECT_EQ(fromText(delivery.pieces[0]), (Envelope{4, content})) << what;
  }
}

TEST(Delivery, cutsTheTextWithoutLosingAByte) {
  const std::string whole = toText({4, "4;b;c;d"});
  for (const auto& [what, pieces] : std::vector<std::pair<std::string, std::size_t>>{
           {"split at 5", 2}, {"split at 9 5 9", 3}, {"split at 0 100000", 1}, {"split every 1", whole.size()}}) {
    const auto delivery = deliver(what);
    EXPECT_EQ(delivery.pieces.size(), pieces) << what;
    std::string joined;
    for (const auto& piece : delivery.pieces) joined += piece;
    EXPECT_EQ(joined, whole) << what;
  }
  EXPECT_EQ(deliver("truncate 10").pieces, std::vector<std::string>{whole.substr(0, 10)});
  EXPECT_EQ(deliver("twice").pieces, (std::vector<std::string>{whole, whole}));
  EXPECT_EQ(fromText(deliver("not-utf8").pieces.at(0)), std::nullopt);
}

}  // namespace
}  // namespace vornlab

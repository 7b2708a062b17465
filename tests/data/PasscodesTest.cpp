#include "data/Passcodes.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace vorn {
namespace {

Passcodes passcodes(const PasscodePolicy& policy) {
  return {policy, "en-US", [source = std::mt19937(7)]() mutable { return static_cast<std::uint32_t>(source()); }};
}

TEST(PasscodesTest, ValidatesAPasscodeAgainstTheAccountsRules) {
  const struct {
    std::int64_t rules, least, run;
    const char* password;
    std::int64_t failed;
  } cases[] = {
      {2, 8, 0, "abc", 2},
      {0, 6, 0, "12345", 2},
      {0, 0, 0, "", 0},
      {1, 0, 0, "", 1},
      {1, 3, 0, "", 3},
      {1, 2, 0, "12a", 1},
      {1, 4, 0, "12a", 3},
      {1, 3, 0, "129", 0},
      {4, 0, 0, "12!", 4},
      {8, 0, 0, "ab!", 8},
      {16, 0, 0, "ab1", 16},
      {16, 0, 0, "a`", 0},
      {32, 0, 0, "abc", 32},
      {32, 0, 0, "aB", 0},
      {64, 0, 3, "abc", 64},
      {64, 0, 3, "x1cba", 64},
      {64, 0, 3, "qwe", 64},
      {64, 0, 3, "ewq", 0},
      {64, 0, 3, "AAA", 64},
      {64, 0, 4, "abc", 0},
      {64, 0, 3, "a890", 64},
      {64, 0, 3, "aab", 0},
      {64, 0, 3, "aabb", 0},
      {64, 0, 3, "bax", 0},
      {64, 0, 3, "abx", 0},
      {64, 0, 4, "xdcba", 64},
      {64, 0, 4, "aXcd", 0},
      {64, 0, 1, "!", 64},
      {64, 0, 1, "e", 64},
      {64, 0, 1, "-", 0},
      {64, 0, 0, "abc", 0},
      {64, 0, 2, "a-", 0},
      {64, 0, 11, "01234567890", 64},
      {64, 0, 12, "012345678901", 0},
      {4, 0, 0, "A", 0},
      {4, 0, 0, "z", 0},
      {8, 0, 0, "9", 0},
      {32, 0, 0, "AB", 32},
      {124, 0, 3, "aaa", 8 | 16 | 32 | 64},
      {0, 2, 0, "\xF0\x9F\x98\x80", 0},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(passcodes({c.rules, c.least, c.run, false}).failedRules(c.password), c.failed)
        << c.password << " under " << c.rules;
  }
}

TEST(PasscodesTest, GeneratesPasscodesThatPassAndStayInTheirRanges) {
  struct Case {
    std::int64_t rules, least;
    bool mixed;
    std::size_t length;
  };
  const std::string digits = "012345678", letters = "ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnpqrstuvwxyz";
  for (const Case& c :
       {Case{0, 12, false, 6}, Case{0, 0, true, 6}, Case{1, 12, false, 12}, Case{4, 4, false, 6},
        Case{4, 9, false, 9}, Case{60, 8, false, 8}, Case{8, 7, false, 7}, Case{48, 10, false, 10}}) {
    const Passcodes maker = passcodes({c.rules, c.least, 3, c.mixed});
    std::set<std::string> distinct;
    std::set<char> characters;
    for (int i = 0; i < 3000; ++i) {
      const std::string password = maker.getRandomPassWord();
      ASSERT_EQ(password.size(), c.length);
      ASSERT_TRUE(c.rules == 0 || maker.failedRules(password) == 0) << password;
      distinct.insert(password);
      characters.insert(password.begin(), password.end());
    }
    EXPECT_GT(distinct.size(), 2900u) << c.rules;
    for (const char confusing : {'I', 'O', 'l', 'o'}) EXPECT_EQ(characters.count(confusing), 0u);
    if (c.rules == 1 || (c.rules == 0 && !c.mixed)) {
      EXPECT_EQ(characters, std::set<char>(digits.begin(), digits.end())) << "the digit 9 is never drawn";
    }
  }
}

TEST(PasscodesTest, APasscodesBodyUsesTheHeadOfItsSet) {
  const struct {
    std::int64_t rules;
    std::string_view head;
    // Each drawn once from a whole set.
    std::size_t others;
  } cases[] = {{4, "ABCDE", 2}, {16, "!@#$%", 2}, {32, "ABCD", 3}, {4 | 32, "ABCDE", 4}, {4 | 16, "!@#$", 3}};
  for (const auto& c : cases) {
    const Passcodes maker = passcodes({c.rules, 9, 0, false});
    std::set<char> seen;
    for (int i = 0; i < 500; ++i) {
      std::set<char> outsideHead;
      for (const char each : maker.GetPasswordWithRules(9)) {
        (c.head.find(each) == std::string_view::npos ? outsideHead : seen).insert(each);
      }
      ASSERT_LE(outsideHead.size(), c.others) << c.rules;
    }
    EXPECT_EQ(seen, std::set<char>(c.head.begin(), c.head.end())) << c.rules;
  }
}

TEST(PasscodesTest, AfterFiveRefusedPasscodesTheNextIsTakenUntested) {
  int draws = 0;
  // One character, whatever is drawn: every passcode is a run.
  const Passcodes stuck({64, 6, 3, false}, "en-US", [&draws] { return ++draws, 9u * 10 * 7 * 6 * 5 * 4 * 1000; });
  EXPECT_EQ(stuck.getRandomPassWord(), "000000");
  EXPECT_EQ(draws, 6 * (6 + 6)) << "six passcodes, each drawn and shuffled";
}

TEST(PasscodesTest, ASourceThatIsStuckDoesNotHoldTheCaller) {
  const Passcodes stuck({1, 6, 0, false}, "en-US", [] { return 0u; });
  EXPECT_EQ(stuck.getRandomPassWord(), "000000");
}

TEST(PasscodesTest, SmallPartsAreEmpty) {
  const Passcodes maker = passcodes({});
  EXPECT_EQ(maker.GetNumberPassword(0), "");
  EXPECT_EQ(maker.GetNumberalphabetPassword(1), "");
  EXPECT_EQ(maker.GetNumberalphabetPassword(2).size(), 2u);
  EXPECT_EQ(maker.GetComplexPassword(3, ""), "");
  EXPECT_EQ(maker.GetComplexPassword(3, "x"), "xxx");
  EXPECT_EQ(maker.ShuffleStr(""), "");
  EXPECT_FALSE(Passcodes::isKeyboardConsecutive(""));
  EXPECT_FALSE(maker.isConsecutive("AbC", 3, false));
  EXPECT_TRUE(maker.isConsecutive("AbC", 3, true));
}

TEST(PasscodesTest, AnAbsurdLeastLengthDoesNotHoldTheCaller) {
  EXPECT_LE(passcodes({1, std::int64_t{1} << 60, 0, false}).getRandomPassWord().size(), 1024u);
}

}  // namespace
}  // namespace vorn

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
  using Passwords = std::vector<const char*>;
  const struct {
    std::int64_t rules, least, run, failed;
    Passwords passwords;
  } cases[] = {{2, 8, 0, 2, {"abc"}},
               {0, 6, 0, 2, {"12345"}},
               {0, 0, 0, 0, {""}},
               {0, 2, 0, 0, {"\xF0\x9F\x98\x80"}},
               {1, 0, 0, 1, {""}},
               {1, 3, 0, 3, {"", "1a"}},
               {1, 3, 0, 1, {"12a"}},
               {1, 3, 0, 0, {"129"}},
               {4, 0, 0, 4, {"12!"}},
               {4, 0, 0, 0, {"A", "z"}},
               {8, 0, 0, 8, {"ab!"}},
               {8, 0, 0, 0, {"9"}},
               {16, 0, 0, 16, {"ab1"}},
               {16, 0, 0, 0, {"a`", "a,1"}},
               {32, 0, 0, 32, {"abc", "AB"}},
               {32, 0, 0, 0, {"aB"}},
               {64, 0, 0, 0, {"abc"}},
               {64, 0, 1, 64, {"!", "e"}},
               {64, 0, 1, 0, {"-", "-_"}},
               {64, 0, 2, 0, {"a-"}},
               {64, 0, 3, 64, {"abc", "x1cba", "qwe", "AAA", "a890"}},
               {64, 0, 3, 0, {"ewq", "aab", "aabb", "bax", "abx"}},
               {64, 0, 4, 64, {"xdcba"}},
               {64, 0, 4, 0, {"abc", "aXcd"}},
               {64, 0, 11, 64, {"01234567890"}},
               {64, 0, 12, 0, {"012345678901"}},
               {124, 0, 3, 8 | 16 | 32 | 64, {"aaa"}}};
  for (const auto& c : cases) {
    for (const char* password : c.passwords) {
      EXPECT_EQ(passcodes({c.rules, c.least, c.run, false}).failedRules(password), c.failed)
          << password << " under " << c.rules;
    }
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

TEST(PasscodesTest, NeitherASourceThatIsStuckNorAnAbsurdLeastLengthHoldsTheCaller) {
  const Passcodes stuck({1, 6, 0, false}, "en-US", [] { return 0u; });
  EXPECT_EQ(stuck.getRandomPassWord(), "000000");
  EXPECT_LE(passcodes({1, std::int64_t{1} << 60, 0, false}).getRandomPassWord().size(), 1024u);
}

}  // namespace
}  // namespace vorn

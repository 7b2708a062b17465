#include <gmock/gmock.h>

#include "channel/store/vnCommon.h"
#include "tests/support/TestPlatform.h"

namespace vorn {
namespace {

class ValidationTest : public ::testing::Test {
 protected:
  TestPlatform m_world;
};

TEST_F(ValidationTest, KnowsAnAddressWhenItSeesOne) {
  for (const char* valid : {"a@b.c", "john.doe+tag@sub.example.com", "o'brien@example.org", "a;b,<c>(d)@x.y",
                            "`~|^*_%/&$#?!:@example.com", "A-B=C@example.co1", "a@-.9"}) {
    EXPECT_TRUE(vnCommon::isValidEmail(valid)) << valid;
  }
  const std::string longest = "a@b." + std::string(100, 'c');
  EXPECT_TRUE(vnCommon::isValidEmail(longest));
  for (const std::string& invalid :
       std::vector<std::string>{"", "a", "a@b", "@b.c", "a@b.", "a@b.c ", " a@b.c", "a b@c.d", "a@b@c.d",
                                "a@b_c.de", "ä@b.c", "a@bä.de", "a\"b@c.d", "a@b.c\n", "a@b.c-d", longest + "c",
                                std::string("a@b.c\0", 6), "a{b@c.d", "a\\b@c.d"}) {
    EXPECT_FALSE(vnCommon::isValidEmail(invalid)) << invalid;
  }
  EXPECT_FALSE(vnCommon::isValidEmail(std::nullopt));
}

TEST_F(ValidationTest, KnowsADomainWhenItSeesOne) {
  for (const char* valid : {"vorn.us", "*.vorn.us", "*.*.vorn.us", "  Mail.EXAMPLE.Com\n", "a.b", "1.2.c",
                            "a-b_c~d.e", "a..c.b", "münchen.de", "例え.テスト", "x.ab1c"}) {
    EXPECT_TRUE(vnCommon::isValidDomainName(valid)) << valid;
  }
  for (const char* invalid :
       {"", " ", "us", "*.us", "*.*.us", "*.", "*", ".us", "vorn.", "vorn.us1", "vorn.1us", "-a.us", "a-.us",
        "vorn us.de", "vorn/us.de", "a@b.de", "*vorn.us", "x.*.us", "a..b"}) {
    EXPECT_FALSE(vnCommon::isValidDomainName(invalid)) << invalid;
  }
  EXPECT_FALSE(vnCommon::isValidDomainName(std::nullopt));
}

// Nested repetitions over long near-misses make a backtracking matcher run for hours, and this test time out.
TEST_F(ValidationTest, AnswersHostileTextsAtOnce) {
  constexpr std::size_t kSize = 64 * 1024;
  const auto repeated = [](const std::string& part, const std::string& end) {
    std::string text;
    while (text.size() < kSize) text += part;
    return text + end;
  };
  const std::vector<std::string> hostile = {repeated("a", "!"),   repeated("a.", "!"), repeated("a-", "1"),
                                            repeated("*.", ""),   repeated("*.a", ""), repeated("a@", "!"),
                                            repeated("a@b.", ""), repeated("ö.", "1"), "a@" + repeated("b.", "_")};
  for (const std::string& text : hostile) {
    EXPECT_FALSE(vnCommon::isValidEmail(text));
    EXPECT_FALSE(vnCommon::isValidDomainName(text));
  }
}

TEST_F(ValidationTest, NamesCountriesInTheUsersLanguage) {
  EXPECT_EQ(vnCommon::getCountryNameByCode("DE"), "Germany");
  m_world.surroundings.languages = {"de-DE", "en"};
  EXPECT_EQ(vnCommon::getCountryNameByCode("DE"), "Deutschland");
  EXPECT_EQ(vnCommon::getCountryNameByCode("no such code"), "no such code");
  EXPECT_EQ(vnCommon::getCountryNameByCode("QQ"), "QQ");
  EXPECT_EQ(vnCommon::getCountryNameByCode(""), std::nullopt);
  EXPECT_EQ(vnCommon::getCountryNameByCode(std::nullopt), std::nullopt);

  const Value countries = vnCommon::getAllCountriesArray();
  EXPECT_GT(countries.count(), 200u);
  Value names = Value::array();
  for (const Value& country : countries.items()) names.append(country["name"]);
  EXPECT_TRUE(vnCommon::isExistedInAnotherList("Schweiz", names));
}

TEST_F(ValidationTest, ComparesWithAListWithAndWithoutCase) {
  const Value list(Value::Array{"Abc", "MÜNCHEN", 7});
  EXPECT_TRUE(vnCommon::isExistedInAnotherList("Abc", list));
  EXPECT_FALSE(vnCommon::isExistedInAnotherList("abc", list));
  EXPECT_TRUE(vnCommon::isExistedInAnotherListWithIgnoreCase("aBC", list));
  EXPECT_TRUE(vnCommon::isExistedInAnotherListWithIgnoreCase("münchen", list));
  EXPECT_FALSE(vnCommon::isExistedInAnotherListWithIgnoreCase("munchen", list));
  EXPECT_FALSE(vnCommon::isExistedInAnotherListWithIgnoreCase(std::nullopt, list));
  EXPECT_FALSE(vnCommon::isExistedInAnotherList("Abc", {}));
}

}  // namespace
}  // namespace vorn

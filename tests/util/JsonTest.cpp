#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/Texts.h"
#include "util/HostObject.h"
#include "util/vnOLUtils.h"

namespace vorn {
namespace {

TEST(Json, ReadsEveryKindOfValueAlsoAtTheTop) {
  const struct {
    const char* text;
    Value expected;
  } cases[] = {
      {"12", 12},
      {"-7", -7},
      {"true", true},
      {"null", nullptr},
      {"\"a\\u00e9\\ud83d\\ude00\"", "a\xC3\xA9\xF0\x9F\x98\x80"},
      {"1.5", 1.5},
      {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
      {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
      {"18446744073709551615", -1},
      {"[1, [2]]", Value::Array{1, Value::Array{2}}},
      {"\xEF\xBB\xBF{\"a\": 1, \"b\": {}, \"a\": 2}", Value::Dictionary{{"a", 2}, {"b", Value::dictionary()}}},
      {R"({"c": {"z": [{"y": 1}, {}], "a": 2}, "b": 3, "a": 4})",
       Value::Dictionary{
           {"b", 0},
           {"c",
            Value::Dictionary{
                {"z", 5}, {"a", 2}, {"z", Value::Array{Value::Dictionary{{"y", 1}}, Value::dictionary()}}}},
           {"a", 4},
           {"b", 3}}},
      // Dictionaries side by side: alike, with one key told twice, in another order, with a part of the keys, with
      // others.
      {R"([{"b": 1, "a": 2, "b": 3}, {"b": 4, "a": 5, "b": 6}, {"a": 7, "b": 8}, {"a": 9}, {"c": 1}])",
       Value::Array{Value::Dictionary{{"a", 2}, {"b", 3}}, Value::Dictionary{{"a", 5}, {"b", 6}},
                    Value::Dictionary{{"a", 7}, {"b", 8}}, Value::Dictionary{{"a", 9}},
                    Value::Dictionary{{"c", 1}}}},
  };
  for (const auto& each : cases) {
    const Value read = vnOLUtils::toArrayOrNSDictionary(each.text);
    EXPECT_EQ(read.kind(), each.expected.kind()) << each.text;
    EXPECT_EQ(read, each.expected) << each.text;
  }
}

TEST(Json, AnswersAbsenceForEverythingThatIsNotJson) {
  for (const OptionalText& each :
       std::vector<OptionalText>{std::nullopt, "", " ", "{", "[1,]", "nul", "\"\xFF\"", "[1] x", "01", "\"a\nb\"",
                                 "123456789012345678901234567890", std::string("[1]\0", 4)}) {
    EXPECT_TRUE(vnOLUtils::toArrayOrNSDictionary(each).isAbsent()) << each.value_or("(absent)");
  }
}

TEST(Json, RefusesEndlessNestingWithoutHarm) {
  EXPECT_TRUE(vnOLUtils::toArrayOrNSDictionary(repeated("[", 1'000'000)).isAbsent());
  EXPECT_TRUE(vnOLUtils::toArrayOrNSDictionary(repeated("{\"a\":", 1'000'000)).isAbsent());
  const auto nested = [](int levels) {
    Value value = Value::Array{1};
    for (int i = 1; i < levels; ++i) value = Value::Array{value};
    return value;
  };
  EXPECT_EQ(vnOLUtils::toArrayOrNSDictionary(vnOLUtils::toJSONString(nested(500))), nested(500));
  EXPECT_EQ(vnOLUtils::toJSONString(nested(2'000)), std::nullopt);
}

TEST(Json, WritesOneEntryALineWithTwoBlanksALevel) {
  const Value content = Value::Dictionary{
      {"b", Value::Array{1, "x", Value::array()}}, {"a", Value::Dictionary{{"k", nullptr}}}, {"c", 0.5}};
  EXPECT_EQ(vnOLUtils::toJSONString(content),
            "{\n"
            "  \"a\" : {\n"
            "    \"k\" : null\n"
            "  },\n"
            "  \"b\" : [\n"
            "    1,\n"
            "    \"x\",\n"
            "    []\n"
            "  ],\n"
            "  \"c\" : 0.5\n"
            "}");
}

TEST(Json, WhatIsWrittenReadsBackTheSame) {
  Value content = Value::dictionary();
  content.set("controls \x01\x1F\"\\/", std::string("\b\f\n\r\t\0end", 9));
  content.set("wide", "\xE2\x80\xA8 \xF0\x9F\x98\x80");
  content.set("largest", std::numeric_limits<std::int64_t>::max());
  content.set("smallest", std::numeric_limits<std::int64_t>::min());
  content.set("real numbers", Value::Array{0.1, 0.1 + 0.2, 2.0 / 3, -5e-324, 1.7976931348623157e308});
  content.set("wholes beyond 64 bits", Value::Array{1.8446204021128654e19, 9223372036854775808.0, -1e19, 2e20});
  content.set("flags", Value::Array{true, false, nullptr});
  const Value read = vnOLUtils::toArrayOrNSDictionary(vnOLUtils::toJSONString(content));
  EXPECT_EQ(read, content);
  EXPECT_TRUE(read["flags"].at(0).isBoolean());
}

TEST(Json, IsNotWrittenForWhatHasNoForm) {
  const Value noNumber = Value::Array{std::nan("")},
              endless = Value::Array{std::numeric_limits<double>::infinity()};
  const Value object = Value::Dictionary{{"a", HostObject(16)}}, key = Value::Dictionary{{"\xED\xA0\x80", 1}};
  for (const Value& each : {Value(), Value("text"), Value(5), Value(nullptr), object, noNumber, endless,
                            Value(Value::Array{"\xC3"}), key}) {
    EXPECT_EQ(vnOLUtils::toJSONString(each), std::nullopt);
  }
}

}  // namespace
}  // namespace vorn

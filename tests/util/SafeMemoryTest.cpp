#include <gtest/gtest.h>

#include <cerrno>
#include <cstdarg>
#include <string>

#include "util/tdm.h"
#include "util/vnSafeHelper.h"

namespace tdm {
namespace {

constexpr std::size_t kAboveMemory = kMaxMemorySize + 1;
constexpr std::size_t kAboveString = kMaxStringSize + 1;

TEST(SafeMemory, TestsItsArgumentsInOrderAndLeavesTheDestinationOnFailure) {
  char a[8] = "dest";
  const char b[8] = "source";
  EXPECT_EQ(memcpy_s(nullptr, 0, b, 1), 400);
  EXPECT_EQ(memcpy_s(a, 0, nullptr, 1), 400);
  EXPECT_EQ(memcpy_s(a, 0, b, 1), 402);
  EXPECT_EQ(memcpy_s(a, 8, b, 0), 402);
  EXPECT_EQ(memcpy_s(a, kAboveMemory, b, 1), 403);
  EXPECT_EQ(memcpy_s(a, 4, b, 5), 406);
  EXPECT_EQ(memcpy_s(a, 8, a, 4), 404);
  EXPECT_EQ(memcpy_s(a, 8, a + 3, 4), 404);
  EXPECT_STREQ(a, "dest");
  EXPECT_EQ(memcpy_s(a, 4, a + 4, 4), 0) << "neighbours share no byte";
  EXPECT_EQ(memcpy_s(a, 8, b, 7), 0);
  EXPECT_EQ(memmove_s(a, 8, a + 1, 6), 0);
  EXPECT_STREQ(a, "ource");
  EXPECT_EQ(vorn::vnSafeHelper::vn_memcpy_s(a, 8, a, 4), 404);
}

TEST(SafeMemory, TheTwoSettersDifferInTheirFirstTestAndBytesCompareAsUnsigned) {
  char a[4] = "abc";
  EXPECT_EQ(memset_s(nullptr, 0, 1, 1), 400);
  EXPECT_EQ(vn_memset_s(nullptr, 0, 1, 1), 0);
  EXPECT_EQ(vn_memset_s(a, 4, 1, 5), 406);
  EXPECT_EQ(vn_memset_s(a, 4, 'x', 2), 0);
  EXPECT_STREQ(a, "xxc");
  int result = 0;
  EXPECT_EQ(memcmp_s("\x80", 1, "\x7F", 1, &result), 0);
  EXPECT_EQ(result, 1);
  EXPECT_EQ(memcmp_s("abc", 3, "abd", 3, &result), 0);
  EXPECT_EQ(result, -1);
}

TEST(SafeStrings, CopyAndAppendWithinTheirRoom) {
  char a[8] = "";
  EXPECT_EQ(strcpy_s(nullptr, 8, "a"), 400);
  EXPECT_EQ(strcpy_s(a, 8, nullptr), 400);
  EXPECT_EQ(strcpy_s(a, 8, "1234567"), 0);
  EXPECT_EQ(strcat_s(a, 8, "8"), 406);
  EXPECT_EQ(strcpy_s(a, 4, "abcd"), 406);
  EXPECT_EQ(std::string(a, 4), "abcd") << "what was copied so far stays";
  EXPECT_EQ(strncpy_s(a, 8, "abcdef", 3), 0);
  EXPECT_STREQ(a, "abc");
  EXPECT_EQ(strncpy_s(a, 8, "x", 9), 406);
  EXPECT_EQ(strncpy_s(a, 0, "x", kAboveString), 403) << "the limit is tested before zero";
  EXPECT_EQ(strncpy_s(a, 3, "abc", 3), 406) << "no room for the end";
  EXPECT_EQ(strcpy_s(a, 8, "ab"), 0);
  EXPECT_EQ(strcat_s(a, 8, "cd"), 0);
  EXPECT_STREQ(a, "abcd");
  char full[2] = {'x', 'y'};
  EXPECT_EQ(strcat_s(full, 2, "z"), 406);
}

TEST(SafeStrings, NoticeTheOtherStringWhileCopying) {
  char text[16] = "abcdef";
  EXPECT_EQ(strcpy_s(text, 8, text), 404);
  EXPECT_EQ(strcpy_s(text, 8, text + 2), 404);
  char further[16] = "abcdef";
  EXPECT_EQ(strcpy_s(further + 2, 6, further), 404);
  char doubled[16] = "abcd";
  EXPECT_EQ(strcat_s(doubled, 16, doubled), 404);
}

TEST(SafeStrings, LengthsHaveLimitsOfTheirOwn) {
  const std::string text(200, 'x');
  EXPECT_EQ(strnlen_s(text.c_str(), 104), 104U);
  EXPECT_EQ(strnlen_s(text.c_str(), kAboveString), 0U);
  EXPECT_EQ(strnlen_s(text.c_str(), 0), 1U);
  EXPECT_EQ(strnlen_s(nullptr, 5), 0U);
  EXPECT_EQ(vorn::vnSafeHelper::vn_strnlen_s(text.c_str(), 300), 200U);
  EXPECT_EQ(wcsnlen_s(L"abcdef", 2), 6U) << "the limit does not cap";
  EXPECT_EQ(wcsnlen_s(L"abcdef", kAboveString), 0U);
}

TEST(SafeStrings, TokensEndWithinTheRemainingSize) {
  char text[] = ",,one,two";
  std::size_t left = sizeof text;
  char* saved = nullptr;
  EXPECT_STREQ(strtok_s(text, &left, ",", &saved), "one");
  EXPECT_STREQ(strtok_s(nullptr, &left, ",", &saved), "two");
  EXPECT_EQ(strtok_s(nullptr, &left, ",", &saved), nullptr);
  char open[] = {'a', 'b', ','};
  left = 2;
  EXPECT_EQ(strtok_s(open, &left, ",", &saved), nullptr) << "the end lies beyond the size";
  EXPECT_EQ(saved, nullptr);
  left = 3;
  EXPECT_EQ(strtok_s(saved = open, &left, std::string(65, ';').c_str(), &saved), nullptr) << "too many delimiters";
  EXPECT_EQ(saved, nullptr);
}

using Formatter = int (*)(char*, std::size_t, const char*, std::va_list);

int call(Formatter formatter, char* destination, std::size_t size, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  errno = 0;
  const int result = formatter(destination, size, format, arguments);
  va_end(arguments);
  return result;
}

TEST(SafeFormats, AnswerUnevenlyAsTheirCallersKnowThem) {
  char a[4] = "abc";
  const struct {
    Formatter formatter;
    char* destination;
    std::size_t size;
    const char* format;
    int result;
    int errorValue;
    const char* content;
  } cases[] = {
      {vsnprintf_s, nullptr, 4, "x", -400, 400, "abc"}, {vsnprintf_s, a, 0, "x", -400, 401, "abc"},
      {vsnprintf_s, a, 4, "x%n", -22, 22, "abc"},       {vsnprintf_s, a, 4, "%%n", 2, 0, "%n"},
      {vsnprintf_s, a, 4, "12345", 5, 0, "123"},        {vsprintf_s, a, 4, "%n", -22, 22, "123"},
      {vsprintf_s, a, 4, "12345", -406, 406, "123"},    {vsprintf_s, a, 0, "x", -406, 406, "123"},
      {vsprintf_s, a, 4, "xyz", 3, 0, "xyz"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(call(each.formatter, each.destination, each.size, each.format), each.result);
    EXPECT_EQ(errno, each.errorValue);
    EXPECT_STREQ(a, each.content);
  }
}

TEST(SafeFormats, EmptyTheDestinationWhenTheTextDoesNotFit) {
  char a[4] = "abc";
  EXPECT_EQ(snprintf_s(a, kAboveString, "%d", 1), -403);
  EXPECT_EQ(sprintf_s(a, 4, "%d", 123), 3);
  EXPECT_EQ(sprintf_s(a, 4, "%d", 1234), -406);
  EXPECT_STREQ(a, "");
  int number = 0;
  EXPECT_EQ(sscanf_s("12", "%d", &number), 1);
  EXPECT_EQ(number, 12);
  EXPECT_EQ(sscanf_s(nullptr, "%d", &number), -1);
  EXPECT_EQ(errno, 400);
}

}  // namespace
}  // namespace tdm

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdarg>
#include <string>

#include "util/tdm.h"
#include "util/vnSafeHelper.h"

namespace tdm {
namespace {

TEST(SafeMemory, TestsItsArgumentsInOrderAndLeavesTheDestinationOnFailure) {
  char a[8] = "dest";
  const char b[8] = "source";
  EXPECT_EQ(memcpy_s(nullptr, 0, b, 1), 400);
  EXPECT_EQ(memcpy_s(a, 0, nullptr, 1), 400);
  EXPECT_EQ(memcpy_s(a, 0, b, 1), 402);
  EXPECT_EQ(memcpy_s(a, 8, b, 0), 402);
  EXPECT_EQ(memcpy_s(a, kMaxMemorySize + 1, b, 1), 403);
  EXPECT_EQ(memcpy_s(a, 4, b, 5), 406);
  EXPECT_EQ(memcpy_s(a, 8, a, 4), 404);
  EXPECT_EQ(memcpy_s(a, 8, a + 3, 4), 404);
  EXPECT_STREQ(a, "dest");
  EXPECT_EQ(memcpy_s(a, 4, a + 4, 4), 0) << "neighbours share no byte";
  EXPECT_EQ(memcpy_s(a, 8, b, 7), 0);
  EXPECT_STREQ(a, "source");
  EXPECT_EQ(vorn::vnSafeHelper::vn_memcpy_s(a, 8, a, 4), 404);
}

TEST(SafeStrings, LengthsHaveLimitsOfTheirOwn) {
  const std::string text(200, 'x');
  EXPECT_EQ(strnlen_s(text.c_str(), 104), 104U);
  EXPECT_EQ(strnlen_s(text.c_str(), kMaxStringSize + 1), 0U);
  EXPECT_EQ(strnlen_s(text.c_str(), 0), 1U);
  EXPECT_EQ(strnlen_s(nullptr, 5), 0U);
  EXPECT_EQ(vorn::vnSafeHelper::vn_strnlen_s(text.c_str(), 300), 200U);
}

int formatted(char* destination, std::size_t size, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const int result = vsnprintf_s(destination, size, format, arguments);
  va_end(arguments);
  return result;
}

// The others of their kind, which nobody calls: what each is there for.
TEST(SafeFunctions, OfWhichNobodyIsTheCallerKeepWithinTheirRoom) {
  char a[8] = "abcdef";
  EXPECT_EQ(memmove_s(a, 8, a + 1, 6), 0);
  EXPECT_STREQ(a, "bcdef");
  EXPECT_EQ(memset_s(nullptr, 0, 1, 1), 400);
  EXPECT_EQ(vn_memset_s(a, 4, 1, 5), 406);
  int result = 0;
  EXPECT_EQ(memcmp_s("\x80", 1, "\x7F", 1, &result), 0);
  EXPECT_EQ(result, 1) << "bytes compare without a sign";
  EXPECT_EQ(strcpy_s(a, 8, a + 2), 404);
  EXPECT_EQ(strcpy_s(a, 8, "1234567"), 0);
  EXPECT_EQ(strcat_s(a, 8, "8"), 406);
  EXPECT_EQ(strncpy_s(a, 3, "abc", 3), 406) << "no room for the end";
  EXPECT_EQ(wcsnlen_s(L"abcdef", 2), 6U) << "the limit does not cap";
  char text[] = ",,one,two";
  std::size_t left = sizeof text;
  char* saved = nullptr;
  EXPECT_STREQ(strtok_s(text, &left, ",", &saved), "one");
  EXPECT_STREQ(strtok_s(nullptr, &left, ",", &saved), "two");
  EXPECT_EQ(formatted(a, 4, "%d", 12345), 5);
  EXPECT_EQ(snprintf_s(a, kMaxStringSize + 1, "%d", 1), -403);
  EXPECT_EQ(sprintf_s(a, 4, "%d", 1234), -406);
  EXPECT_STREQ(a, "");
  EXPECT_EQ(sscanf_s(nullptr, "%d", &result), -1);
  EXPECT_EQ(errno, 400);
}

}  // namespace
}  // namespace tdm

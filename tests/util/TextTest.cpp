#include <gtest/gtest.h>

#include "tests/support/TestPlatform.h"
#include "util/EncodeUtils.h"
#include "util/MD5.h"
#include "util/TextSearch.h"
#include "util/Utf16.h"
#include "util/vnMd5Utils.h"
#include "util/vnOLUtils.h"
#include "util/vnShellCommand.h"

namespace vorn {
namespace {

const std::string kFace = "\xF0\x9F\x98\x80";

TEST(Utf16, CountsAndCutsInUnitsAndKeepsCharactersWhole) {
  const std::string text = "a\xC3\xA9" + kFace + "b";
  EXPECT_EQ(utf16Length(text), 5U);
  EXPECT_EQ(utf16Length("\xFF\xC3"), 2U);
  const std::string prefixes[] = {"", "a", "a\xC3\xA9", "a\xC3\xA9", "a\xC3\xA9" + kFace, text, text};
  const std::string suffixes[] = {"", "b", "b", kFace + "b", "\xC3\xA9" + kFace + "b", text, text};
  for (std::size_t units = 0; units < std::size(prefixes); ++units) {
    EXPECT_EQ(utf16Prefix(text, units), prefixes[units]) << units;
    EXPECT_EQ(utf16Suffix(text, units), suffixes[units]) << units;
  }
  EXPECT_EQ(bytePosition(text, 4), 7U);
  EXPECT_EQ(utf16Position(text, 7), 4U);
  EXPECT_EQ(utf16Position(text, 5), 2U) << "inside a character";
}

TEST(Utf16, HalvesOfPairsAreNoCharacters) {
  EXPECT_EQ(toUtf8(toUtf16(kFace + "b")), kFace + "b");
  const char16_t alone[] = {0xD83D, u'a', 0xDE00, 0xD83D};
  EXPECT_EQ(toUtf8(std::u16string_view(alone, std::size(alone))),
            "\xEF\xBF\xBD"
            "a\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Values, ATextIsTrueByItsFirstSign) {
  for (const char* yes : {"Y", "yes", "True", "t", "1", " \t+007", "-09"})
    EXPECT_TRUE(Value(yes).boolValue()) << yes;
  for (const char* no : {"", " ", "no", "0", "+00", "-", "on", "x1"}) EXPECT_FALSE(Value(no).boolValue()) << no;
}

TEST(Utf16, KnowsValidFromInvalid) {
  for (const char* valid : {"", "a", "\xC2\x80", "\xED\x9F\xBF", "\xEE\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(isValidUtf8(valid)) << valid;
  }
  for (const char* invalid : {"\x80", "\xC0\x80", "\xC3", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
                              "\xF4\x90\x80\x80", "\xE2\x82", "\xFF"}) {
    EXPECT_FALSE(isValidUtf8(invalid));
  }
}

TEST(TextSearch, FindsFirstAndLastWhateverTheCaseAndInLinearTime) {
  EXPECT_EQ(findIgnoringCase("xLocation:location:", "LOCATION:"), 1U);
  EXPECT_EQ(findLastIgnoringCase("xLocation:location:", "LOCATION:"), 10U);
  EXPECT_EQ(findLastIgnoringCase("aaab", "aa"), 1U);
  EXPECT_EQ(findText("ababac", "abac"), 2U);
  EXPECT_EQ(findText("abc", ""), std::string_view::npos);
  EXPECT_EQ(findText("ab", "abc"), std::string_view::npos);
  const std::string text(2'000'000, 'a');
  EXPECT_EQ(findText(text, std::string(1'000'000, 'a') + 'b'), std::string_view::npos);
  EXPECT_EQ(findLastIgnoringCase(text, 'b' + std::string(1'000'000, 'A')), std::string_view::npos);
}

TEST(Trimming, TakesWhatEachFunctionNames) {
  const struct {
    OptionalText text, allSpace, ends, endsAndNewLines;
  } cases[] = {
      {std::nullopt, std::nullopt, std::nullopt, std::nullopt},
      {"", "", "", ""},
      {"   ", "", "", ""},
      {" a b\t", "ab", "a b", "a b"},
      {"\n a b \r\n", "\nab\r\n", "\n a b \r\n", "a b"},
      {"\xC2\xA0\xE3\x80\x80"
       "a\tb\xE2\x80\xA9",
       "a\tb\xE2\x80\xA9", "a\tb\xE2\x80\xA9", "a\tb"},
      {"\xC2\x85\x0B"
       "123 456\x0C",
       "\xC2\x85\x0B"
       "123456\x0C",
       "\xC2\x85\x0B"
       "123 456\x0C",
       "123 456"},
      {" \xFF ", "\xFF", "\xFF", "\xFF"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(vnOLUtils::trimAllSpace(each.text), each.allSpace);
    EXPECT_EQ(vnOLUtils::trimRLSpace(each.text), each.ends);
    EXPECT_EQ(vnOLUtils::trimAllSpaceAndNewLine(each.text), each.endsAndNewLines);
  }
}

TEST(Trimming, EllipsisCountsInUtf16Units) {
  EXPECT_EQ(vnOLUtils::formatByEllipsis(std::nullopt, 5), std::nullopt);
  EXPECT_EQ(vnOLUtils::formatByEllipsis("0123456789", 10), "0123456789");
  EXPECT_EQ(vnOLUtils::formatByEllipsis("0123456789", 9), "012345...");
  EXPECT_EQ(vnOLUtils::formatByEllipsis(kFace + kFace + kFace, 6), kFace + kFace + kFace);
  EXPECT_EQ(vnOLUtils::formatByEllipsis(kFace + kFace + kFace, 5), kFace + "...");
  EXPECT_EQ(vnOLUtils::formatByEllipsis("abcd", 2), "...");
  EXPECT_EQ(vnOLUtils::formatByEllipsis("abcd", -1), "...");
}

TEST(Base64, AgreesWithTheStandardVectors) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""}, {"fo", "Zm8="}, {"foob", "Zm9vYg=="}, {"foobar", "Zm9vYmFy"}};
  for (const auto& [plain, encoded] : cases) {
    EXPECT_EQ(EncodeUtils::base64Encode(plain), encoded);
    EXPECT_EQ(EncodeUtils::base64Decode(encoded), plain);
  }
  EXPECT_EQ(EncodeUtils::base64DecodeToData("+/+/"), "\xFB\xFF\xBF");
}

TEST(Base64, AcceptsLineBreaksAndMissingPaddingAndRefusesTheRest) {
  EXPECT_EQ(EncodeUtils::base64Decode("Zm9v\r\nYm\tE =\n"), "fooba");
  EXPECT_EQ(EncodeUtils::base64Decode("Zm9vYg"), "foob");
  for (const char* garbage : {"Z", "Zm9vY", "Zm9v====", "Zg=", "Z===", "Zg==Zg==", "Zm-_", "Zm9v\xC3\xA9", "="}) {
    EXPECT_EQ(EncodeUtils::base64DecodeToData(garbage), std::nullopt) << garbage;
  }
  const std::string sentence = "Each place of a group, and each place of a break between them.";
  const std::string encoded = EncodeUtils::base64Encode(sentence).value();
  for (std::size_t at = 0; at < encoded.size(); ++at) {
    EXPECT_EQ(EncodeUtils::base64Decode(std::string(encoded).insert(at, "\r\n")), sentence) << at;
    EXPECT_EQ(EncodeUtils::base64Decode(std::string(encoded).insert(at, "!")), std::nullopt) << at;
  }
  EXPECT_EQ(EncodeUtils::base64Decode("/w=="), std::nullopt) << "no UTF-8";
  EXPECT_EQ(EncodeUtils::base64Decode(std::nullopt), std::nullopt);
  EXPECT_EQ(EncodeUtils::base64helper("data", nullptr), std::nullopt);
}

TEST(Md5, AgreesWithThePublishedDigests) {
  const std::pair<std::string, const char*> cases[] = {
      {"abc", "900150983cd24fb0d6963f7d28e17f72"},
      {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
       "57edf4a22be3c955ac49da2e2107b67a"},
      {std::string("abc\0def", 7), "900150983cd24fb0d6963f7d28e17f72"},
  };
  for (const auto& [text, digest] : cases) EXPECT_EQ(vnMd5Utils::vnMD5Hex(text), digest);
  EXPECT_EQ(vnMd5Utils::vnMD5Hex(std::nullopt), std::nullopt);
}

TEST(Md5, DoesNotDependOnHowTheMessageIsFed) {
  const std::string message(1000, 'x');
  for (const std::size_t step : {1U, 55U, 63U, 64U, 65U, 129U}) {
    Halix::MD5 pieces;
    for (std::size_t at = 0; at < message.size(); at += step) pieces.feed(message.substr(at, step));
    pieces.finalize();
    EXPECT_EQ(pieces.hex(), vnMd5Utils::vnMD5Hex(message)) << step;
  }
}

TEST(HostObjects, AreTestedByTheNameOfTheirClass) {
  EXPECT_TRUE(vnOLUtils::isNullString(OptionalText()));
  EXPECT_TRUE(vnOLUtils::isNullString(nullptr));
  EXPECT_FALSE(vnOLUtils::isNullString(""));
  TestPlatform world;
  world.classRuntime.defineClass("NSNull");
  world.classRuntime.defineClass("Base");
  world.classRuntime.defineClass("Derived", "Base");
  const HostObject derived = world.classRuntime.create("Derived");
  EXPECT_TRUE(vnOLUtils::isValidInstance(derived));
  EXPECT_TRUE(vnOLUtils::isValidInstance("text"));
  EXPECT_FALSE(vnOLUtils::isValidInstance(HostObject()));
  EXPECT_FALSE(vnOLUtils::isValidInstance(nullptr));
  EXPECT_FALSE(vnOLUtils::isValidInstance(world.classRuntime.create("NSNull")));
  EXPECT_TRUE(vnOLUtils::kindofClass(derived, "Base"));
  EXPECT_FALSE(vnOLUtils::kindofClass(world.classRuntime.create("Base"), "Derived"));
  for (const OptionalText& name : {OptionalText(), OptionalText(""), OptionalText("Missing")}) {
    EXPECT_FALSE(vnOLUtils::kindofClass(derived, name));
  }
  world.classRuntime.destroy(derived);
  EXPECT_FALSE(vnOLUtils::isValidInstance(derived));
}

// Nobody calls it but a test.
TEST(ShellCommand, GivesOutputOrStatus) {
  EXPECT_EQ(vnShellCommand::runAsCommand("printf 'a b'; exit 3"), "a b");
  EXPECT_EQ(vnShellCommand::runAsCommand_ret("exit 3"), 3);
}

}  // namespace
}  // namespace vorn

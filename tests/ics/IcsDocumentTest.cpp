#include "lab/ics/IcsDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <tuple>

namespace vornlab {
namespace {

std::string contentOf(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::size_t firstEvent(const IcsDocument& document) {
  for (std::size_t component = 0; component < document.componentCount(); ++component) {
    if (document.componentName(component) == "VEVENT") return component;
  }
  return IcsDocument::kNone;
}

IcsDocument parsed(const std::string& text) {
  IcsProblem problem;
  auto document = IcsDocument::parse(text, problem);
  EXPECT_TRUE(document) << problem.line << ": " << problem.message;
  return document ? *document : IcsDocument();
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> result;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t end = std::min(text.find('\n', at), text.size() - 1);
    result.push_back(text.substr(at, end + 1 - at));
    at = end + 1;
  }
  return result;
}

TEST(IcsDocument, EveryShippedCalendarComesBackByteForByteAndKeepsEveryOtherLineWhenAPropertyComesAndGoes) {
  int calendars = 0;
  for (const auto& entry : std::filesystem::directory_iterator(LAB_CALENDARS)) {
    if (entry.path().extension() != ".ics") continue;
    SCOPED_TRACE(entry.path());
    ++calendars;
    const std::string text = contentOf(entry.path());
    IcsDocument document = parsed(text);
    ASSERT_EQ(document.text(), text);
    const std::size_t event = firstEvent(document);
    document.setProperty(event, {"X-TEST", {}, "value"});
    const std::string grown = document.text();
    const std::string added = "X-TEST:value" + document.lineEnding();
    ASSERT_EQ(grown.size(), text.size() + added.size());
    const std::size_t at = grown.find(added);
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(grown.substr(0, at) + grown.substr(at + added.size()), text);
    EXPECT_EQ(parsed(grown).property(event, "X-TEST")->value, "value");
    document.removeProperty(event, "X-TEST");
    EXPECT_EQ(document.text(), text);
  }
  EXPECT_GT(calendars, 5);
}

TEST(IcsDocument, ChangingOnePropertyChangesOnlyItsLines) {
  for (const std::string ending : {"\r\n", "\n"}) {
    std::string text;
    for (const char* line : {"BEGIN:VCALENDAR", "BEGIN:VEVENT", "UID:1", "LOCATION;LANGUAGE=en:Old", " er place",
                             "x-odd ;P=\"a;b\" : kept  ", "BEGIN:VALARM", "DESCRIPTION:bell", "END:VALARM",
                             "END:VEVENT", "END:VCALENDAR"}) {
      text += line + ending;
    }
    IcsDocument document = parsed(text);
    IcsProperty location = *document.property(1, "LOCATION");
    EXPECT_EQ(location.value, "Older place");
    location.value = "New";
    document.setProperty(1, location);
    document.setProperty(1, {"DESCRIPTION", {}, "mine, not the bell's"});
    std::string expected = text;
    expected.replace(expected.find("Old" + ending), 3 + ending.size() + 9, "New");
    expected.insert(expected.find("BEGIN:VALARM"), "DESCRIPTION:mine, not the bell's" + ending);
    EXPECT_EQ(document.text(), expected);
  }
}

TEST(IcsDocument, SettingTheSameContentLeavesItsOddFoldingAlone) {
  const std::string text = "BEGIN:VCALENDAR\nBEGIN:VEVENT\nsummary:a\n b\n\tc\nEND:VEVENT\nEND:VCALENDAR";
  IcsDocument document = parsed(text);
  document.setProperty(1, {"SUMMARY", {}, "abc"});
  EXPECT_FALSE(document.isChanged());
  EXPECT_EQ(document.text(), text);
}

TEST(IcsDocument, TextThatIsNoCalendarTellsItsLineAndWhatWasExpected) {
  const std::tuple<std::string, std::size_t, const char*> cases[] = {
      {"", 1, "BEGIN:VCALENDAR"},
      {"hello\n", 1, "BEGIN:VCALENDAR"},
      {"\n\nBEGIN:VCARD\nEND:VCARD\n", 3, "BEGIN:VCALENDAR"},
      {"BEGIN:VEVENT\nUID:1\n", 3, "END:VEVENT"},
      {{"\xFF\xFE"
        "B\0E\0",
        6},
       1,
       "UTF-16"},
      {{"\0B\0E\0G", 6}, 1, "UTF-16"},
      {" BEGIN:VCALENDAR\nEND:VCALENDAR\n", 1, "BEGIN:VCALENDAR"},
      {"BEGIN:VCALENDAR\nBEGIN:VEVENT\nEND:VCALENDAR\n", 3, "END:VEVENT"},
      {"BEGIN:VCALENDAR\nBEGIN:VEVENT\nSUMMARY:a\n", 4, "END:VEVENT"},
      {"BEGIN:VCALENDAR\r\nSUMMARY:a\r\n b\r\nno colon here\r\n", 5, "END:VCALENDAR"},
      {"BEGIN:VCALENDAR\nEND:VCALENDAR\nX:trailing\n", 3, "BEGIN:VCALENDAR"},
      {"BEGIN:VCALENDAR\nEND:VCALENDAR\nEND:VCALENDAR\n", 3, "BEGIN:VCALENDAR"},
  };
  for (const auto& [text, line, expected] : cases) {
    IcsProblem problem;
    EXPECT_FALSE(IcsDocument::parse(text, problem)) << text;
    EXPECT_EQ(problem.line, line) << text;
    EXPECT_NE(problem.message.find(expected), std::string::npos) << problem.message;
  }
}

TEST(IcsDocument, ForgivesWhatProducersDo) {
  for (const char* text : {
           "\xEF\xBB\xBF"
           "BEGIN:VCALENDAR\nEND:VCALENDAR",
           "begin:vcalendar\r\nend:vcalendar\r\n",
           "BEGIN:VCALENDAR\n\n \n\nX:1\n\n folded into nothing\nEND:VCALENDAR \n\n",
           "BEGIN:VCALENDAR\nX;P=\"open:1\nY:\xFF\xFE\nEND:VCALENDAR\nBEGIN:VCALENDAR\nEND:VCALENDAR\n",
       }) {
    EXPECT_EQ(parsed(text).text(), text);
  }
  EXPECT_EQ(parsed(std::string("BEGIN:VCALENDAR\nX:a\0b\nEND:VCALENDAR\n", 36)).property(0, "X")->value.size(),
            3U);
}

TEST(IcsDocument, ReadsAndWritesEachFileInItsOwnForm) {
  const std::string event = "BEGIN:VEVENT\nUID:1\nEND:VEVENT\n";
  const struct {
    std::string text;
    const char *value, *given;
    // "" for a content that the encoding has no bytes for.
    std::string written;
  } cases[] = {{"BEGIN:VCALENDAR\nX:caf\xE9\nY:\xFC\nEND:VCALENDAR\n", "café", "Größe",
                "X:Gr\xF6\xDF"
                "e\nY:\xFC\n"},
               {"BEGIN:VCALENDAR\nX:caf\xE9\nEND:VCALENDAR\n", "café", "5 €", ""},
               {"BEGIN:VCALENDAR\nX:caf\xE9\nEND:VCALENDAR\n", "café", "会議", ""},
               {"BEGIN:VCALENDAR\nX:\x84"
                "caf\xE9\x93\nEND:VCALENDAR\n",
                "„café“", "5 €", "X:5 \x80\n"},
               {"BEGIN:VCALENDAR\nX:caf\xE9\nY:\xC3\xA4\nEND:VCALENDAR\n", "café", "会議", "X:会議\nY:ä"},
               {"BEGIN:VCALENDAR\nX:\xC3\xA4\xE9\nEND:VCALENDAR\n", "ä\xE9", "会議", "X:会議\n"},
               {"BEGIN:VCALENDAR\rX:a\r b\rY:2\rEND:VCALENDAR\r", "ab", "c", "BEGIN:VCALENDAR\rX:c\rY:2\r"},
               {event + "BEGIN:VTIMEZONE\nX:a\nEND:VTIMEZONE", "a", "b", event + "BEGIN:VTIMEZONE\nX:b\nEND"}};
  for (const auto& each : cases) {
    IcsDocument document = parsed(each.text);
    EXPECT_EQ(document.componentName(0), "VCALENDAR");
    const std::size_t last = document.componentCount() - 1;
    EXPECT_EQ(document.property(last, "X")->value, each.value);
    document.setProperty(last, {"X", {}, each.value});
    EXPECT_EQ(document.text(), each.text);
    document.setProperty(last, {"X", {}, each.given});
    const auto misfit = document.takeMisfit();
    EXPECT_EQ(misfit.has_value(), each.written.empty()) << each.given;
    EXPECT_EQ(misfit ? misfit->line : 2, 2U);
    EXPECT_NE((misfit ? each.text : document.text()).find(each.written), std::string::npos) << document.text();
    EXPECT_EQ(document.componentText(last).find("\r "), std::string::npos);
    EXPECT_EQ(document.componentText(last), wellFormed(document.componentText(last)));
  }
}

TEST(IcsDocument, KeepsALineThatNobodyCanReadAndTellsIt) {
  const std::string text =
      "BEGIN:VCALENDAR\nBEGIN:VEVENT\nORGANIZER;CN=A\nDESCRIPTION:Dear all\nplease come at 5\n"
      "come here: now\n:value\nEND:VEVENT\nEND:VCALENDAR\n-- \n";
  IcsDocument document = parsed(text);
  std::vector<std::size_t> lines;
  for (const IcsProblem& warning : document.warnings()) lines.push_back(warning.line);
  EXPECT_EQ(lines, (std::vector<std::size_t>{3, 5, 6, 7, 10}));
  EXPECT_FALSE(document.property(1, "ORGANIZER"));
  document.setProperty(1, {"DESCRIPTION", {}, "Dear you"});
  std::string expected = text;
  expected.replace(expected.find("all"), 3, "you");
  EXPECT_EQ(document.text(), expected);
}

TEST(IcsDocument, FindsAParameterWhereverItStands) {
  IcsDocument document = parsed(
      "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nDTSTART;tzid=Plain:1\r\nDT\r\n END;TZ\r\n ID=Folded:1\r\n"
      "DUE ;TZID=\"Blank;ed\":1\r\nX-NONE:TZID=Value\r\nX-EMPTY;TZID=:1\r\nRDATE;TZID=Changed:1\r\n"
      "EXDATE;TZID=Removed:1\r\nBEGIN:VALARM\r\nTRIGGER;TZID=Below:1\r\nEND:VALARM\r\nEND:VEVENT\r\n"
      "END:VCALENDAR\r\n");
  const std::size_t event = firstEvent(document);
  document.setProperty(event, {"RDATE", {{"TZID", "New"}}, "2"});
  document.removeProperty(event, "EXDATE");
  document.addProperty(event, {"RDATE", {{"TZID", "Added"}}, "3"});
  const std::set<std::string> zones{"Added", "Blank;ed", "Folded", "New", "Plain"};
  EXPECT_EQ(document.parameters(event, "TZID"), zones);
}

TEST(IcsDocument, ReadsACharacterThatAFoldCutsInTwo) {
  const IcsDocument document =
      parsed("BEGIN:VCALENDAR\r\nX:a\xC3\r\n \xA4z\xE2\x82\r\n\t\xAC\r\nEND:VCALENDAR\r\n");
  EXPECT_EQ(document.property(0, "X")->value, "aäz€");
}

TEST(IcsDocument, FoldsAtSeventyFiveOctetsAndNeverInsideACharacter) {
  for (const std::string piece : {"a", "ä", "€", "🗓", "aä€🗓"}) {
    std::string content = "SUMMARY:";
    for (int i = 0; i < 300; ++i) content += piece;
    const std::string folded = foldedLine(content, "\r\n");
    std::string joined;
    for (const std::string& line : linesOf(folded)) {
      ASSERT_LE(line.size(), 77U);
      ASSERT_TRUE(joined.empty() || line.front() == ' ');
      const std::string part = line.substr(joined.empty() ? 0 : 1, line.size() - 2 - (joined.empty() ? 0 : 1));
      EXPECT_NE(static_cast<unsigned char>(part.front()) & 0xC0, 0x80) << "begins inside a character";
      joined += part;
    }
    EXPECT_EQ(joined, content);
  }
  EXPECT_EQ(foldedLine(std::string(75, 'x'), "\n").size(), 76U) << "a line that fits stays whole";
}

TEST(IcsDocument, EscapedTextReadsBackTheSame) {
  for (const char* text : {"a,b;c\\d\ne", "\\n", "C:\\new\\", "", ";;,,\\\\"}) {
    EXPECT_EQ(unescapedText(escapedText(text)), text);
  }
  EXPECT_EQ(escapedText("a\r\nb\rc"), "a\\nb\\nc");
  EXPECT_EQ(unescapedText("C:\\temp\\N\\"), "C:\\temp\n\\") << "a lone backslash of a careless producer stays";
}

TEST(IcsDocument, ReadsFiftyThousandLinesAndWritesThemBack) {
  std::string text = "BEGIN:VCALENDAR\n";
  for (int event = 0; event < 10000; ++event) {
    text += "BEGIN:VEVENT\nUID:" + std::to_string(event) + "\nSUMMARY:one\n  two\nEND:VEVENT\n";
  }
  text += "END:VCALENDAR\n";
  IcsDocument document = parsed(text);
  EXPECT_EQ(document.componentCount(), 10001U);
  for (std::size_t component = 1; component <= 10000; ++component) {
    document.setProperty(component, {"SUMMARY", {}, "three"});
  }
  const std::string changed = document.text();
  EXPECT_EQ(changed.size(),
            text.size() - 10000 * (std::string("one\n  two").size() - std::string("three").size()));
}

TEST(IcsDocument, ReadsComponentsNestedTwentyThousandDeep) {
  std::string text = "BEGIN:VCALENDAR\n";
  for (int depth = 0; depth < 20000; ++depth) text += "BEGIN:X\n";
  for (int depth = 0; depth < 20000; ++depth) text += "END:X\n";
  text += "END:VCALENDAR\n";
  EXPECT_EQ(parsed(text).text(), text);
}

}  // namespace
}  // namespace vornlab

// The page of messages against everything that tells people something: the alerts of each code, the table of
// texts, and the words with which the laboratory gives up.

#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "channel/commands/vnAPIBase.h"
#include "tests/commands/CommandWorld.h"
#include "util/AtomicFile.h"
#include "util/CharacterSets.h"
#include "util/TextSearch.h"

namespace vorn {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = VORN_SOURCE_FOLDER;

std::vector<std::smatch> matches(const std::string& text, const char* wanted) {
  static std::map<std::string, std::regex> known;
  const std::regex& pattern = known.try_emplace(wanted, wanted).first->second;
  return {std::sregex_iterator(text.begin(), text.end(), pattern), std::sregex_iterator()};
}

class MessagesPage : public CommandWorld {
 protected:
  MessagesPage() {
    world.surroundings.resourceFolder = VORN_RESOURCE_FOLDER;
    command.setMeetingMgr(&owner);
    setProfile(Value::dictionaryFromPairs({{"roomMeetingId", "1234567890"}}));
    command.parseFeedbackError("0;Error 9");
  }

  // The rows of a code, and whether one of them says this, with any value for "…".
  bool isToldOf(int code, const std::string& text) {
    const auto rows = matches(page, "\n\\| (\\d+) \\| (.*?) \\|");
    return std::any_of(rows.begin(), rows.end(), [&](const std::smatch& row) {
      if (row[1] != std::to_string(code)) return false;
      const std::string says = row[2] == "no text" ? "" : row[2].str();
      std::string pattern = std::regex_replace(says, std::regex(R"([.^$|()\[\]{}*+?\\])"), "\\$&");
      return std::regex_match(text, std::regex(replacingAll(pattern, "…", ".*")));
    });
  }

  const std::string page = readFile((kRoot / "docs/messages.md").string()).value_or("");
  vnAPIBase command;
};

TEST_F(MessagesPage, HasTheWordsOfEachCodeAndNoOthers) {
  std::set<int> known;
  const std::string header = readFile((kRoot / "plugin/channel/commands/ErrorCodes.h").string()).value_or("");
  for (const std::smatch& code : matches(header, "= (\\d+);")) known.insert(std::stoi(code[1]));
  ASSERT_GT(known.size(), 20u) << "the codes were not found";
  // They are told by the panel, or without one by the workflow in the same words.
  const std::set<int> byThePanel = {555, 3113, 3403};
  for (int code = 0; code < 10000; ++code) {
    world.presenter.forgetAlerts();
    command.popupErrorMsg(window, code);
    const std::string said = alertTexts().at(0);
    if (!said.empty()) {
      EXPECT_TRUE(isToldOf(code, said)) << code << " says: " << said;
    } else if (code == 0) {
      EXPECT_TRUE(isToldOf(code, ""));
    }
    const bool hasRow = page.find("\n| " + std::to_string(code) + " | ") != std::string::npos;
    const bool isBetween = code == 1114;
    EXPECT_EQ(hasRow, known.contains(code) || isBetween) << code;
    EXPECT_EQ(said.empty() && known.contains(code), code == 0 || byThePanel.contains(code)) << code;
  }
}

// A sentence is a message; what only explains an option is not.
TEST_F(MessagesPage, HasEverySentenceOfTheTableOfTextsInARow) {
  const std::string texts = readFile(std::string(VORN_RESOURCE_FOLDER) + "/Localizable.strings").value_or("");
  std::size_t count = 0;
  for (const std::smatch& line : matches(texts, "\n\"(.+?)\" = \"(.*\\.)\";")) {
    if (std::regex_search(line[1].str(), std::regex("Prompt|Help|Placeholder|Tooltip"))) continue;
    const std::string says = "| " + replacingAll(line[2].str(), "%@", "…") + " |";
    EXPECT_NE(page.find(says), std::string::npos) << line[1] << ": " << says;
    ++count;
  }
  EXPECT_GT(count, 40u) << "the texts were not found";
}

// Each piece of a message between its values, and each piece of a row in some source.
TEST_F(MessagesPage, HasTheWordsWithWhichTheLaboratoryGivesUp) {
  // A literal that goes on in the next line.
  static const std::regex kParted("\"\\s*\n\\s*\"");
  std::string sources;
  std::size_t count = 0;
  for (const auto& entry : fs::recursive_directory_iterator(kRoot / "lab")) {
    const fs::path extension = entry.path().extension();
    if (extension != ".cpp" && extension != ".mm") continue;
    const std::string source = std::regex_replace(readFile(entry.path().string()).value_or(""), kParted, "");
    sources += source;
    for (const std::smatch& thrown : matches(source, R"re(throw (?:Lab|Usage)Error\(([^;]|";|; )*?\);\n)re")) {
      const std::string statement = thrown[0];
      for (const std::smatch& literal : matches(statement, R"re("((?:[^"\\]|\\.)*)")re")) {
        const std::string words = replacingAll(literal[1].str(), "\\\"", "\"");
        EXPECT_NE(page.find(words), std::string::npos) << entry.path() << ": " << words;
        ++count;
      }
    }
  }
  EXPECT_GT(count, 60u) << "the sources were not understood";
  sources = replacingAll(replacingAll(sources, "\\\"", "\""), "`", "");
  const std::string told = page.substr(page.find("## What `meet` gives"));
  for (const std::smatch& row : matches(told, "\n\\| ([^|]+?) \\|[^|]*\\|")) {
    if (row[1] == "Says" || row[1].str().starts_with("---")) continue;
    const std::string says = replacingAll(row[1].str(), "…", "\n");
    for (const std::smatch& piece : matches(says, "[^\n;:\"]{8,}")) {
      EXPECT_NE(sources.find(trimmed(piece.str(), isWhitespace)), std::string::npos) << piece[0];
    }
  }
}

// What is told by an alert or stands beside a field. What is shorter than three words is a button.
TEST_F(MessagesPage, HasWhatTheDesktopTellsByItself) {
  std::size_t count = 0;
  for (const auto& entry : fs::directory_iterator(kRoot / "lab/desktop")) {
    const std::string source = readFile(entry.path().string()).value_or("");
    const char* const telling =
        R"re((?:\bask\w*\(|tellTrouble\(|what:|message = |rouble\s+setStringValue:)[^;]*;)re";
    for (const std::smatch& statement : matches(source, telling)) {
      const std::string words = statement[0];
      for (const std::smatch& literal : matches(words, R"re(@"((?:[^"\\]|\\.)*)")re")) {
        const std::string says = replacingAll(literal[1].str(), "%@", "…");
        if (std::count(says.begin(), says.end(), ' ') < 2) continue;
        EXPECT_NE(page.find("| " + says + " |"), std::string::npos) << entry.path() << ": " << says;
        ++count;
      }
    }
  }
  EXPECT_GE(count, 10u) << "the sources were not understood";
}

}  // namespace
}  // namespace vorn

// What the commands print as JSON, against the page that lists it.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <sstream>

#include "tests/shell/Calendars.h"
#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using nlohmann::json;

std::vector<std::string> cut(const std::string& text, char at) {
  std::vector<std::string> pieces;
  std::istringstream rest(text);
  for (std::string piece; std::getline(rest, piece, at);) pieces.push_back(piece);
  return pieces;
}

// One key of the page; a piece "*" of its path stands for any.
struct PageKey {
  std::string path;
  std::set<std::string> types;
  std::vector<std::string> pieces = cut(path, '.');
  bool isSeen = false;

  bool isOf(const std::vector<std::string>& printed) const {
    return std::equal(
        pieces.begin(), pieces.end(), printed.begin(), printed.end(),
        [](const std::string& piece, const std::string& name) { return piece == "*" || piece == name; });
  }
};

std::vector<std::string> codeIn(const std::string& cell) {
  static const std::regex code("`([^`]+)`");
  std::vector<std::string> found;
  for (std::sregex_iterator at(cell.begin(), cell.end(), code), end; at != end; ++at) found.push_back((*at)[1]);
  return found;
}

// The keys by command.
std::map<std::string, std::vector<PageKey>> readPage() {
  std::map<std::string, std::vector<PageKey>> page;
  std::string command;
  std::istringstream lines(contentOf(JSON_PAGE));
  static const std::regex row(R"(\| (.*) \| (`.*`) \| (.*) \|)");
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("## ")) command = line.substr(3);
    std::smatch cells;
    if (!std::regex_match(line, cells, row)) continue;
    std::set<std::string> types;
    std::istringstream words(std::regex_replace(cells[3].str(), std::regex(" or "), "\n"));
    for (std::string type; std::getline(words, type);) types.insert(type);
    const std::vector<std::string> in = codeIn(cells[1]);
    for (const std::string& key : codeIn(cells[2])) {
      page[command].push_back({.path = in.empty() ? key : in.front() + "." + key, .types = types});
    }
  }
  return page;
}

std::string typeOf(const json& value) {
  if (value.is_array())
    return value.empty() || value[0].is_object() ? "list" : "list of " + typeOf(value[0]) + "s";
  return value.is_null() ? "null" : value.is_boolean() ? "boolean" : value.is_number() ? "number" : "text";
}

class JsonPage : public ::testing::Test {
 protected:
  void expectListed(const std::string& command, const json& object, const std::string& in = "") {
    for (const auto& [key, value] : object.items()) {
      const std::string path = in.empty() ? key : in + "." + key;
      if (value.is_object()) {
        expectListed(command, value, path);
        continue;
      }
      bool isListed = false;
      const std::vector<std::string> pieces = cut(path, '.');
      for (PageKey& listed : m_page[command]) {
        if (!listed.isOf(pieces)) continue;
        listed.isSeen = true;
        const std::string found = typeOf(value);
        const auto isOfThatType = [&found](const std::string& type) {
          return type == found || (found == "list" && type.starts_with("list of "));
        };
        isListed = isListed || std::any_of(listed.types.begin(), listed.types.end(), isOfThatType);
      }
      EXPECT_TRUE(isListed) << command << ": " << path << " is a " << typeOf(value);
      if (!value.is_array()) continue;
      for (const json& item : value) {
        if (item.is_object()) expectListed(command, item, path + "[]");
      }
    }
  }

  std::map<std::string, std::vector<PageKey>> m_page = readPage();
};

TEST_F(JsonPage, ListsEveryKeyThatIsPrintedAndNoOther) {
  const TemporaryFolder folder;
  const auto input = folder.write(
      "in.ics",
      calendar({appointment("a", "First"),
                appointment(
                    "b", "Record",
                    {R"(X-VORNLAB-OLMUCINBAND:{"meetingKey":"1"\,"encodeMailBody":"a"\,"language":"de-DE"\,)"
                     R"("subject":"a"\,"duration":"60"\,"startTime":1\,"forceIncludeJoinurlInLocation":true})"}),
                "BEGIN:VEVENT\r\nUID:c\r\nEND:VEVENT"}));
  const std::string body = folder.write("body.html", "<p>Text</p>");
  const std::string good = folder.write("good.vorn", "new\nexpect bar add\n");
  const std::string bad = folder.write(
      "bad.vorn", "without client\nnew\nclick add\nexpect alert contains \"client\"\nexpect bar meeting\n");
  const std::string waiting =
      folder.write("waiting.vorn",
                   "client faults \"every reply to action 6: delay 0.5\"\nnew\nclick add\nexpect sent nothing\n");
  std::vector<std::vector<std::string>> runs = {
      {"meet", input, "--all", "--out", folder / "out.ics", "--client-db", ":memory:"},
      {"doctor"},
      {"doctor", "--without-client"},
      {"doctor", "--os", "10.14.0"},
      {"hooks"},
      {"inspect", input},
      {"inspect", "--body", body},
      {"body", "text", body},
      {"body", "remove", body},
      {"panel", "--try", "passcode off, waiting room off"},
      {"panel", "--words"},
      {"play", good, bad, waiting},
      {"report", "--out", folder / "report"},
      {"watch", "--json", "--", "play", bad, waiting}};
  for (const char* account : {"everything-on", "everything-locked", "three-people", "audio-conferences",
                              "telephony-provider", "without-proto"}) {
    const std::string file = std::string(LAB_ACCOUNTS) + "/" + account + ".json";
    runs.push_back({"account", "show", "--account", file});
    runs.push_back({"account", "defaults", "--account", file});
  }
  for (std::vector<std::string>& words : runs) {
    const std::string command = words[0] == "account" ? words[0] + " " + words[1] : words[0];
    if (command != "watch") words.emplace_back("--json");
    const ProgramRun run = runProgram(VORNLAB_PROGRAM, words);
    ASSERT_NE(run.output, "") << command << ": " << run.errors;
    std::istringstream lines(run.output);
    for (std::string line; std::getline(lines, line);) {
      // The program that is watched tells its own words at the end.
      if (command == "watch" && !line.starts_with('{')) continue;
      const json object = json::parse(line, nullptr, false);
      ASSERT_TRUE(object.is_object()) << command << ": " << line;
      expectListed(command, object);
    }
  }
  for (const auto& [command, keys] : m_page) {
    for (const PageKey& key : keys) {
      // Only one who comes late hears of what is past.
      EXPECT_TRUE(key.isSeen || key.path == "past") << command << ": nothing printed " << key.path;
    }
  }
}

}  // namespace
}  // namespace vornlab::test

// The settings panel of two accounts, control by control, against the page that lists it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/shell/ProgramRun.h"

namespace vornlab::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;

// One table, a line for each control that has something in the last column.
std::string tableOf(const char* account, const std::function<std::string(const json&)>& lastColumn) {
  const ProgramRun run = runProgram(
      VORNLAB_PROGRAM, {"panel", "--all", "--json", "--account", std::string(LAB_ACCOUNTS) + "/" + account});
  std::string table;
  const json panel = json::parse(run.output);
  for (const json& section : panel["sections"]) {
    for (const json& row : section["rows"]) {
      for (const json& control : row["controls"]) {
        const std::string last = lastColumn(control);
        const std::string words = control["words"];
        if (words.empty() && last.empty()) continue;
        table += "| " + words + " | `" + control["key"].get<std::string>() + "` | " + last + " |\n";
      }
    }
  }
  return table;
}

std::string shown(const json& control) {
  const std::string text = control["text"], spoken = control["spoken"];
  const std::string kind = control["kind"];
  const bool isAField = kind == "popup" || kind.ends_with("Field") || kind == "comboBox";
  const std::string placeholder = control["placeholder"];
  const std::string said = isAField || text.empty() ? spoken : text;
  return placeholder.empty() || placeholder == said ? said : said + " (" + placeholder + ")";
}

TEST(PanelPage, NamesEveryControlAsItIsShownAndSaid) {
  EXPECT_THAT(contentOf(PANEL_PAGE), HasSubstr(tableOf("everything-on.json", shown)));
}

TEST(PanelPage, TellsWhyAControlOfALockedAccountCannotBeUsed) {
  EXPECT_THAT(contentOf(PANEL_PAGE), HasSubstr(tableOf("everything-locked.json", [](const json& control) {
                return control["words"].get<std::string>().empty() ? "" : control["reason"].get<std::string>();
              })));
}

}  // namespace
}  // namespace vornlab::test

#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "lab/shell/scenario/LineReader.h"
#include "lab/shell/scenario/ScenarioSetUp.h"
#include "lab/shell/scenario/Stage.h"

namespace vornlab {

// What a line does when it is played. Throws Mismatch when it does not come true.
using StageStep = std::function<void(Stage&)>;

// The words with which the lines of a scenario begin. Each reads its own line behind the word; docs/scenarios.md
// explains them.
struct SetUpWord {
  std::string_view word;
  std::string_view usage;
  void (*read)(LineReader& line, ScenarioSetUp& setUp);
};
struct StageWord {
  std::string_view word;
  std::string_view usage;
  StageStep (*read)(LineReader& line);
};

// When an appointment begins that says nothing else: 2026-11-23T09:00 in UTC.
inline constexpr double kUsualStart = 1795424400;

// "settings" is both: before anything happens, and later.
inline constexpr std::string_view kSettingsUsage = "settings [default|site] KEY VALUE";
inline constexpr std::string_view kPanelUsage =
    "settings open|scroll|continue|cancel, or: settings click CONTROL, or: settings set CONTROL.PROPERTY VALUE, "
    "or: "
    "settings type|paste CONTROL TEXT, or: settings key CONTROL KEY, or: settings [default|site] KEY VALUE";
SavedChoice readChoice(LineReader& line);

// Before anything happens.
std::span<const SetUpWord> setUpWords();
// What a person does at the host.
std::span<const StageWord> hostWords();
// What befalls the client.
std::span<const StageWord> clientWords();
// What stands behind "expect".
std::span<const StageWord> expectationWords();

}  // namespace vornlab

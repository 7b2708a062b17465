#pragma once

#include <nlohmann/json_fwd.hpp>

#include "util/Value.h"

namespace vornlab {

// How a command prints what it tells: in words for people, or as JSON.
enum class ReportForm { words, json };

// One object on a line of its own, printed at once. What is not UTF-8 comes out as U+FFFD, so that each line is
// JSON whatever a file holds.
void printJsonLine(const nlohmann::ordered_json& object);

// A value of the plug-in's as JSON, with the keys in alphabetical order; null for what JSON has no form for.
nlohmann::ordered_json jsonOf(const vorn::Value& value);

// Seconds as JSON gives them, with three decimals.
double roundedSeconds(double seconds);

}  // namespace vornlab

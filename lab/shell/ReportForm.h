#pragma once

#include <nlohmann/json_fwd.hpp>

#include "util/Value.h"

namespace vornlab {

// How a command prints what it tells: in words for people, or as JSON.
enum class ReportForm { words, json };

// One object on a line of its own, printed at once. What is not UTF-8 comes out as U+FFFD, so that each line is
// JSON whatever a file holds.
void printJsonLine(const nlohmann::ordered_json& object);

// One object over as many lines as it takes.
void printJson(const vorn::Value& object);

// Seconds as JSON gives them, with three decimals.
double roundedSeconds(double seconds);

}  // namespace vornlab

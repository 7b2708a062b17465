#pragma once

#include <nlohmann/json_fwd.hpp>

#include "util/Value.h"

namespace vornlab {

// How a command prints what it tells: in words for people, or as JSON.
enum class ReportForm { words, json };

// A value of the plug-in's as JSON, with the keys in alphabetical order; null for what JSON has no form for.
nlohmann::ordered_json jsonOf(const vorn::Value& value);

// Seconds as JSON gives them, with three decimals.
double roundedSeconds(double seconds);

}  // namespace vornlab

#pragma once

#include <string>

#include "util/Value.h"

namespace vorn {

// A value in the form that the platform prints it in for people ("%@"): dictionaries in braces, arrays in
// parentheses, one entry a line.
std::string hostDescription(const Value& value);

}  // namespace vorn

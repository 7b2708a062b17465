#pragma once

#include <string>

#include "util/Value.h"

namespace vorn {

// A value in the form that the platform prints it in for people ("%@"): dictionaries in braces, arrays in
// parentheses, one entry a line. What stands in them is in quotation marks unless it is of ASCII letters and
// digits alone, and what is not ASCII is escaped.
std::string hostDescription(const Value& value);

}  // namespace vorn

#pragma once

#include <string>
#include <string_view>

namespace vornlab {

// A text for the screen: e-mail addresses, and passcodes in URLs, in invitations and in dial strings, become
// "******". Linear in the text's length.
std::string masked(std::string_view text);

// The same for texts of the plug-in's own that speak of passcodes and hold none: only addresses are covered.
std::string maskedAddresses(std::string_view text);

}  // namespace vornlab

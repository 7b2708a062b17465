#pragma once

#include <string>
#include <string_view>

namespace vornlab {

// A text as those who watch a laboratory see it: passcodes, join tokens and e-mail addresses are covered in every
// form that the plug-in's trace or the laboratory's reports cover, and what is long is cut short. Linear in the
// text's length.
std::string coveredForWatchers(std::string_view text);

}  // namespace vornlab

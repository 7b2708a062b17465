#pragma once

#include <optional>
#include <string>

#include "lab/ics/IcsDocument.h"

namespace vornlab {

// The forms in which programs have written the texts of properties. Linear in the text; any thread.

// The text of a property of type TEXT in UTF-8: unescaped, and decoded where ENCODING and CHARSET say how and it
// can be done; with the replacement character for every byte that is no UTF-8.
std::string textOf(const IcsProperty& property);
// Gives the property a text, as it is written today, whatever was there.
void setText(IcsProperty& property, std::string_view text);

// The HTML that stands beside the text in the property itself, as ALTREP="data:text/html,...", which some programs
// write in place of X-ALT-DESC. Absent for any other ALTREP, and for none.
std::optional<std::string> htmlBeside(const IcsProperty& property);
void setHtmlBeside(IcsProperty& property, std::string_view html);

// Takes out every parameter of that name (upper case).
void removeParameter(IcsProperty& property, std::string_view name);

}  // namespace vornlab

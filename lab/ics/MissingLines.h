#pragma once

#include <string>
#include <string_view>

namespace vornlab {

// What a plain text says beside an HTML that was to say the same, both UTF-8: its lines in which a word stands
// that the HTML has neither in its text nor in an address of a link or picture, with "\n" between them; "" when
// there are none. Of an HTML without any word the whole text is missing.
//
// Words are letters and digits in any case, so that texts which differ in layout alone say the same: in blanks,
// line ends, list signs, rules, the form of characters, or a link's address behind its words. Any thread; the time
// is that of sorting the words.
std::string linesMissingIn(std::string_view html, std::string_view text);

}  // namespace vornlab

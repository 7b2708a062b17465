#pragma once

#include <string>
#include <string_view>

namespace vornlab {

// What somebody has written into the plain form of a body alone, both forms UTF-8: the whole text when the HTML
// shows nothing; beside an HTML with an invitation the lines in which a word stands that the HTML has neither in
// its text nor in an address of a link or picture, with "\n" between them; and "" beside any other HTML, which
// counts.
//
// Words are letters and digits in any case, so that texts which differ in layout alone say the same: in blanks,
// line ends, list signs, rules, or a link's address behind its words. Any thread; the time is that of sorting the
// words.
std::string linesMissingIn(std::string_view html, std::string_view text);

}  // namespace vornlab

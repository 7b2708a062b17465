#pragma once

#include <string>
#include <string_view>

namespace vorn {

// What becomes of "&nbsp;", by which editors fill lines and empty paragraphs.
enum class NoBreakSpaceEntity { isBlank, leftOut };

// The text that a reader of the HTML sees, as UTF-8 with "\n" between lines. Any thread; time is linear in the
// size, and the memory is that of the HTML once more, which is also the capacity of what is given. Nothing is
// loaded from anywhere.
//
// Line breaks, paragraphs, headings, list items and table rows are lines, table cells are separated by tabs.
// Outside preformatted text white space collapses to one blank, and is dropped at both ends of a line. Entities
// are decoded, a non-breaking space becomes a blank. Scripts, styles, titles, data for other programs and
// comments, conditional ones too, hold no text. Whatever is broken is read as far as it goes: text without any
// tags comes back as it is, apart from its white space, and bytes that are not UTF-8 become U+FFFD.
std::string htmlToPlainText(std::string_view html, NoBreakSpaceEntity entity = NoBreakSpaceEntity::isBlank);

// True when a reader of the HTML sees nothing: no text but white space and line ends, and no picture or anything
// else that is shown in its own place. A body with a picture alone is somebody's work. The parser reads
// little beyond the first thing that is seen.
bool htmlShowsNothing(std::string_view html);

}  // namespace vorn

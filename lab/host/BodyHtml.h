#pragma once

#include <string>
#include <string_view>

#include "lab/ics/CalendarStore.h"

namespace vornlab {

// The bodies of appointments as an editor shows them, in UTF-8.

// The HTML for a plain text, and for what is stored of an appointment: that of X-ALT-DESC, in front of it the
// lines of DESCRIPTION that somebody has written there alone, or else DESCRIPTION.
std::string htmlForPlainText(std::string_view text);
std::string shownHtml(const CalendarEvent& event);
// Stores a body that was given as HTML: the text in it, and the HTML where the account has such bodies.
void storeBody(CalendarEvent& event, const std::string& html, bool isHtml);
// The HTML with a piece of HTML in front of everything that its body shows.
std::string withPieceInFront(std::string_view html, std::string_view piece);

}  // namespace vornlab

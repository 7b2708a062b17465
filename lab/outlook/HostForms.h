#pragma once

#include <string>
#include <string_view>

#include "lab/outlook/CalendarStore.h"

namespace vornlab {

// What the host gives appointments, whatever its classes are made of.

// The UID of an appointment that enters the calendar.
std::string newUid();

// The HTML that an editor shows for a plain text, and the HTML that it shows for a stored appointment.
std::string htmlForPlainText(std::string_view text);
std::string shownHtml(const CalendarEvent& event);
// Stores a body that was given as HTML: the text in it, and the HTML where the account has such bodies. One that
// is shown already is not touched.
void storeBody(CalendarEvent& event, const std::string& html, bool isHtml);

}  // namespace vornlab

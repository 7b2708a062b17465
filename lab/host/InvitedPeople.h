#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lab/ics/CalendarStore.h"

namespace vornlab {

// The people of a meeting as a person types them: `Kim Ode <kim@vorn.example>, "Lee, Jo" <jo@vorn.example>;
// a@b.example`, between them commas, semicolons or line breaks. UTF-8.

struct InvitedPeople {
  std::vector<CalendarAttendee> people;
  // What is no address, in the order of the text.
  std::vector<std::string> unread;
};

// Each address counts once. Who is known keeps the kind, and the name unless another one was typed. Time is linear
// in the text, apart from a logarithm.
InvitedPeople readPeople(std::string_view text, const std::vector<CalendarAttendee>& known);
std::string writtenPeople(const std::vector<CalendarAttendee>& people);

}  // namespace vornlab

#pragma once

#include <cstddef>
#include <optional>

#include "lab/host/HostState.h"
#include "lab/outlook/CalendarStore.h"

namespace vornlab {

// What a save brings into the calendar, whatever the host's classes are made of. What is absent stays as it is
// stored.
struct RecordOfSave {
  vorn::OptionalText summary;
  vorn::OptionalText location;
  vorn::OptionalText olmUCInband;
  vorn::OptionalText olmUCCapabilities;
  // As HTML, and whether it is to be stored so; an account of plain text has the last word.
  vorn::OptionalText body;
  bool isBodyHtml = true;
  // In seconds since 1970, both of them when one has changed.
  struct Times {
    double start = 0;
    double end = 0;
  };
  std::optional<Times> times;
};

// Stores it at that place of the host's calendar; what does not differ is not touched there. An appointment
// without a place is added, and gets one. False when it was not stored: there is no calendar, the appointment is
// not in it any more, or one of the texts has no bytes in the file's encoding.
bool storeRecord(HostState& host, CalendarStore* calendar, std::optional<std::size_t>& place,
                 const RecordOfSave& record);

}  // namespace vornlab

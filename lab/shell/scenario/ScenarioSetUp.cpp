#include "lab/shell/scenario/ScenarioSetUp.h"

#include "lab/shell/LabError.h"
#include "util/AtomicFile.h"

namespace vornlab {

std::string calendarTextOf(const ScenarioSetUp& setUp) {
  std::string text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Vorn//Laboratory//EN\r\nEND:VCALENDAR\r\n";
  if (!setUp.calendar.empty()) {
    const auto content = vorn::readFile(setUp.calendar.string());
    if (!content) throw LabError("the calendar " + setUp.calendar.string() + " cannot be read");
    text = *content;
  }
  std::string appointments;
  for (const std::string& appointment : setUp.appointments) appointments += appointment;
  const std::size_t end = text.rfind("END:VCALENDAR");
  if (end != std::string::npos) text.insert(end, appointments);
  return text;
}

}  // namespace vornlab

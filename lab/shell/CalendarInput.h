#pragma once

#include <filesystem>
#include <string>

#include "lab/ics/CalendarStore.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vornlab {

// The calendar file of a command, and how it is to be read.
struct CalendarInput {
  // A plain file, a pipe or a device; "-" is standard input.
  std::filesystem::path file;
  // What times without a zone are in; "" takes them as UTC, which is told.
  std::string zone;
  // Whether a file is refused for what would only be warned of.
  bool isStrict = false;

  CalendarStore::Options storeOptions() const { return {zone}; }
};

// The file IN and the options that belong to it. Answers what IN became.
CLI::Option* addCalendarInput(CLI::App& command, CalendarInput& input, const char* what = "the calendar file");

// That the calendar of the file has no such appointment.
std::string missingInWords(const std::filesystem::path& file, const std::string& uid);

// What is wrong with a calendar's file, and where.
std::string faultInWords(const std::filesystem::path& file, const IcsProblem& problem);

// Reads the file into the calendar, which was made with the input's options, and warns on standard error of what
// is doubtful in it. Throws UsageError with the fault in words.
void loadCalendar(CalendarStore& calendar, const CalendarInput& input);

}  // namespace vornlab

#include "lab/shell/CalendarInput.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "lab/shell/Output.h"
#include "lab/words/OptionChecks.h"

namespace vornlab {
namespace {

// Who has more of them in one file does not read them all.
constexpr std::size_t kMostWarnings = 10;
// A stream may have no end, as /dev/zero has none.
constexpr std::size_t kLongestStream = 1U << 30U;

bool isStream(const std::filesystem::path& file) {
  std::error_code unknown;
  const std::filesystem::file_status status = std::filesystem::status(file, unknown);
  return file == "-" || std::filesystem::is_fifo(status) || std::filesystem::is_character_file(status) ||
         std::filesystem::is_socket(status);
}

[[noreturn]] void throwUnreadable(const std::filesystem::path& file) {
  // A signal ends what waits for a stream, too.
  Interruption::check();
  throw UsageError("cannot read " + file.string() + ": " + std::strerror(errno));
}

std::string contentOfStream(const std::filesystem::path& file) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(
      file == "-" ? ::fdopen(::dup(STDIN_FILENO), "r") : std::fopen(file.c_str(), "r"), &std::fclose);
  if (!stream) throwUnreadable(file);
  std::string content;
  std::array<char, 65536> piece{};
  while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), stream.get())) {
    content.append(piece.data(), count);
    if (Interruption::requested()) break;
    if (content.size() > kLongestStream) throw UsageError(file.string() + ": this is too large for a calendar");
  }
  if (std::ferror(stream.get()) != 0 || Interruption::requested()) throwUnreadable(file);
  return content;
}

std::string complaintOfZone(const std::string& zone) {
  return CalendarZones::isKnown(zone) ? "" : "\"" + zone + "\" is no zone such as Europe/Berlin";
}

}  // namespace

CLI::Option* addCalendarInput(CLI::App& command, CalendarInput& input, const char* what) {
  command.add_option("--zone", input.zone, "the zone of the calendar's owner, for times that have none")
      ->check(complaintOfZone, "ZONE");
  command.add_flag("--strict", input.isStrict, "refuse a file in which something is doubtful");
  return command.add_option("IN", input.file, what)->check(complaintOfNothing, "FILE");
}

std::string missingInWords(const std::filesystem::path& file, const std::string& uid) {
  return file.string() + ": the calendar has no appointment with the UID " + uid;
}

std::string faultInWords(const std::filesystem::path& file, const IcsProblem& problem) {
  const std::string line = problem.line == 0 ? "" : ":" + std::to_string(problem.line);
  return file.string() + line + ": " + problem.message;
}

void loadCalendar(CalendarStore& calendar, const CalendarInput& input) {
  IcsProblem problem;
  const bool hasEnd = !isStream(input.file);
  const std::string complaint = hasEnd ? complaintOfFile(input.file.string()) : "";
  if (!complaint.empty()) throw UsageError(complaint);
  const bool isRead = hasEnd ? calendar.load(input.file.string(), problem)
                             : calendar.loadText(contentOfStream(input.file), problem);
  if (!isRead) throw UsageError(faultInWords(input.file, problem));
  const std::vector<IcsProblem> doubts = calendar.doubts();
  if (input.isStrict && !doubts.empty()) throw UsageError(faultInWords(input.file, doubts.front()));
  for (std::size_t i = 0; i < std::min(doubts.size(), kMostWarnings); ++i) {
    complain(faultInWords(input.file, doubts[i]), "vornlab");
  }
  if (doubts.size() > kMostWarnings) {
    complain(input.file.string() + ": and " + std::to_string(doubts.size() - kMostWarnings) + " more", "vornlab");
  }
}

}  // namespace vornlab

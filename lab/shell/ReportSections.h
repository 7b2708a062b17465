#pragma once

#include <cstddef>
#include <deque>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "lab/ics/CalendarStore.h"
#include "lab/shell/Session.h"

namespace vornlab {

// One part of a report, for people and for programs, with secrets covered.
struct ReportSection {
  std::string name;
  // What it tells, for the person who is about to hand it on.
  std::string holds;
  std::vector<std::string> lines;
  nlohmann::ordered_json json;
};

// Asks a session for the parts of a report. Lives as long as the session is used for it, which outlives it.
class ReportSections {
 public:
  // From now on the steps of the session are kept. `earlier` is what the client's journal held before the session.
  ReportSections(Session& session, const std::filesystem::path& bundle, std::string earlier);
  ~ReportSections();
  ReportSections(const ReportSections&) = delete;
  ReportSections& operator=(const ReportSections&) = delete;

  // In the order in which they stand in the report. The panel is that of the event, or of a new appointment.
  std::vector<ReportSection> all(CalendarStore& calendar, const std::optional<CalendarEvent>& event,
                                 double timeoutSeconds);

 private:
  ReportSection versions(const vorn::Value& doctor) const;
  ReportSection doctor(const vorn::Value& found) const;
  ReportSection hooks();
  ReportSection account(const std::string& trouble);
  ReportSection appointments(CalendarStore& calendar);
  ReportSection panel(const std::optional<CalendarEvent>& event, double timeoutSeconds);
  ReportSection envelopes() const;
  ReportSection notices() const;
  ReportSection earlierEnvelopes() const;

  Session& m_session;
  std::filesystem::path m_bundle;
  std::string m_earlier;
  std::deque<std::string> m_steps;
  std::size_t m_stepsSeen = 0;
};

}  // namespace vornlab

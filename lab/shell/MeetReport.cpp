#include "lab/shell/MeetReport.h"

#include <cstdio>
#include <nlohmann/json.hpp>
#include <numeric>

#include "lab/shell/TextColumns.h"

namespace vornlab {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::array<std::string_view, 6> kNames{"added", "updated", "unchanged", "skipped", "failed", "removed"};
constexpr std::size_t kSubjectColumns = 35;

}  // namespace

std::string_view nameOf(Outcome outcome) { return kNames[static_cast<std::size_t>(outcome)]; }

MeetReport::MeetReport(ReportForm form, bool isTrial) : m_form(form), m_isTrial(isTrial) {
  if (m_isTrial && m_form == ReportForm::words) std::printf("A trial: this is what would be done.\n\n");
}

std::size_t MeetReport::appointments() const {
  return std::accumulate(m_counts.begin(), m_counts.end(), std::size_t{0});
}

void MeetReport::tell(const MeetResult& result) {
  ++m_counts[static_cast<std::size_t>(result.outcome)];
  if (m_form == ReportForm::json) {
    printJsonLine(Json{{"uid", result.uid},
                       {"recurrenceId", result.recurrenceId},
                       {"subject", result.subject},
                       {"result", nameOf(result.outcome)},
                       {"reason", result.reason},
                       {"meetingKey", result.meetingKey},
                       {"location", result.location}});
    return;
  }
  const bool hasMeeting = result.outcome != Outcome::failed && result.outcome != Outcome::skipped;
  std::string told = hasMeeting ? result.location : result.reason;
  if (hasMeeting && !result.reason.empty()) told += " (" + result.reason + ")";
  const std::string subject = result.subject.empty() ? "(no subject)" : result.subject;
  std::printf("%-10s %s %s\n", std::string(nameOf(result.outcome)).c_str(),
              filledToColumns(subject, kSubjectColumns).c_str(), told.c_str());
  std::fflush(stdout);
}

void MeetReport::tellSummary(std::size_t sent, std::size_t received, double seconds) const {
  if (m_form == ReportForm::json) {
    Json summary{{"appointments", appointments()}};
    for (std::size_t i = 0; i < kNames.size(); ++i) summary[std::string(kNames[i])] = m_counts[i];
    summary["sent"] = sent;
    summary["received"] = received;
    summary["seconds"] = roundedSeconds(seconds);
    summary["trial"] = m_isTrial;
    printJsonLine(Json{{"summary", summary}});
    return;
  }
  std::printf("\n%zu appointments:", appointments());
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    std::printf("%s %zu %s", i == 0 ? "" : ",", m_counts[i], std::string(kNames[i]).c_str());
  }
  std::printf("; %zu requests and %zu replies in %.1f seconds\n", sent, received, seconds);
}

}  // namespace vornlab

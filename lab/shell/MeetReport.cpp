#include "lab/shell/MeetReport.h"

#include <cstdio>
#include <nlohmann/json.hpp>
#include <numeric>

#include "lab/shell/Output.h"
#include "lab/shell/TextColumns.h"
#include "secrets/SecretMask.h"

namespace vornlab {
namespace {

using Json = nlohmann::ordered_json;
using vorn::SecretMask;

constexpr std::array<std::string_view, 6> kNames{"added", "updated", "unchanged", "skipped", "failed", "removed"};
constexpr std::size_t kSubjectColumns = 35;

}  // namespace

std::string_view nameOf(Outcome outcome) { return kNames[static_cast<std::size_t>(outcome)]; }

MeetReport::MeetReport(ReportForm form, bool isTrial, bool isCovered)
    : m_form(form), m_isTrial(isTrial), m_isCovered(isCovered) {
  if (!m_isTrial || m_form != ReportForm::words) return;
  say("A trial: this is what would be done.");
  say("");
}

std::size_t MeetReport::appointments() const {
  return std::accumulate(m_counts.begin(), m_counts.end(), std::size_t{0});
}

void MeetReport::tell(const MeetResult& result) {
  ++m_counts[static_cast<std::size_t>(result.outcome)];
  if (m_form == ReportForm::json) {
    const Json json{{"uid", result.uid},          {"recurrenceId", result.recurrenceId},
                    {"subject", result.subject},  {"result", nameOf(result.outcome)},
                    {"reason", result.reason},    {"meetingKey", result.meetingKey},
                    {"location", result.location}};
    return m_isCovered ? sayJsonLine(json) : sayJsonLineAsIs(json);
  }
  const bool hasMeeting = result.outcome != Outcome::failed && result.outcome != Outcome::skipped;
  std::string told = hasMeeting ? result.location : result.reason;
  if (hasMeeting && !result.reason.empty()) told += " (" + result.reason + ")";
  const std::string subject = result.subject.empty() ? "(no subject)" : result.subject;
  const auto seen = [this](const std::string& text) { return m_isCovered ? SecretMask::covered(text) : text; };
  std::string outcome(nameOf(result.outcome));
  outcome.resize(10, ' ');
  sayAsIs(outcome + " " + filledToColumns(seen(subject), kSubjectColumns) + " " + seen(told));
  flushOutput();
}

void MeetReport::tellSummary(std::size_t sent, std::size_t received, double seconds) const {
  if (m_form == ReportForm::json) {
    Json summary{{"appointments", appointments()}};
    for (std::size_t i = 0; i < kNames.size(); ++i) summary[std::string(kNames[i])] = m_counts[i];
    summary["sent"] = sent;
    summary["received"] = received;
    summary["seconds"] = roundedSeconds(seconds);
    summary["trial"] = m_isTrial;
    sayJsonLine(Json{{"summary", summary}});
    return;
  }
  std::string counts = std::to_string(appointments()) + (appointments() == 1 ? " appointment:" : " appointments:");
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    counts += (i == 0 ? " " : ", ") + std::to_string(m_counts[i]) + " " + std::string(kNames[i]);
  }
  std::array<char, 32> took{};
  std::snprintf(took.data(), took.size(), "%.1f", seconds);
  say("");
  say(counts + "; " + std::to_string(sent) + " requests and " + std::to_string(received) + " replies in " +
      took.data() + " seconds");
}

}  // namespace vornlab

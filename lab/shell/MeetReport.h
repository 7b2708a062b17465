#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "lab/shell/ReportForm.h"

namespace vornlab {

enum class Outcome { added, updated, unchanged, skipped, failed, removed };

std::string_view nameOf(Outcome outcome);

// What became of one appointment.
struct MeetResult {
  std::string uid;
  // Of a changed occurrence; "" for another appointment.
  std::string recurrenceId;
  std::string subject;
  Outcome outcome = Outcome::failed;
  std::string reason;
  std::string meetingKey;
  std::string location;
};

// Tells the results of a run, one line each, and a summary, for people or as one JSON object a line. Join URLs,
// subjects and UIDs are shown as they are: the result belongs to the person whose calendar it is. For other eyes
// all of it can be covered.
class MeetReport {
 public:
  // Of a trial it says that nothing has come of it.
  MeetReport(ReportForm form, bool isTrial, bool isCovered);

  void tell(const MeetResult& result);
  void tellSummary(std::size_t sent, std::size_t received, double seconds) const;

  std::size_t count(Outcome outcome) const { return m_counts[static_cast<std::size_t>(outcome)]; }
  std::size_t appointments() const;

 private:
  ReportForm m_form;
  bool m_isTrial;
  bool m_isCovered;
  std::array<std::size_t, 6> m_counts{};
};

}  // namespace vornlab

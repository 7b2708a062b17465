#pragma once

#include <cstddef>

#include "lab/shell/ReportForm.h"
#include "lab/shell/scenario/ScenarioPlayer.h"

namespace vornlab {

// Tells how scenarios went, one line each, with the line that failed and what went over the channel before it; and
// a summary. For people, or as one JSON object a line. Passcodes and addresses are covered.
class ScenarioReport {
 public:
  explicit ScenarioReport(ReportForm form) : m_form(form) {}

  void tell(const ScenarioResult& result);
  void tellSummary(double seconds) const;
  std::size_t failed() const { return m_failed; }

 private:
  ReportForm m_form;
  std::size_t m_played = 0;
  std::size_t m_failed = 0;
};

}  // namespace vornlab

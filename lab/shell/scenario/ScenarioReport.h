#pragma once

#include <cstddef>

#include "lab/shell/scenario/ScenarioPlayer.h"

namespace vornlab {

// Tells how scenarios went, one line each, with the line that failed and what went over the channel before it; and
// a summary. For people, or as one JSON object a line. Passcodes and addresses are covered.
class ScenarioReport {
 public:
  enum class Form { words, json };

  explicit ScenarioReport(Form form) : form_(form) {}

  void tell(const ScenarioResult& result);
  void tellSummary(double seconds) const;
  std::size_t failed() const { return failed_; }

 private:
  Form form_;
  std::size_t played_ = 0;
  std::size_t failed_ = 0;
};

}  // namespace vornlab

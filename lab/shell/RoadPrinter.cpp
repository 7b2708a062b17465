#include "lab/shell/RoadPrinter.h"

#include <cstdio>

#include "lab/shell/Masking.h"
#include "lab/shell/RoadWords.h"
#include "lab/shell/Words.h"

namespace vornlab {

using vorn::Value;

void RoadPrinter::say(std::string_view who, const std::string& what) const {
  const std::chrono::duration<double> since = std::chrono::steady_clock::now() - m_began;
  std::printf("  %6.3f  %-9s %s\n", since.count(), std::string(who).c_str(), what.c_str());
}

void RoadPrinter::print(std::string_view step, const Value& facts) const {
  say(step, masked(wordsOfStep(step, facts)));
  if (step == "sent" || step == "received") printContent(facts["content"].text());
}

void RoadPrinter::printContent(const std::string& text) const {
  constexpr std::size_t kColumns = 96;
  constexpr std::size_t kShown = 2 * kColumns;
  const std::string content = masked(closedUp(text));
  std::string_view rest = content;
  const bool isCut = m_envelopes == Envelopes::cut && rest.size() > kShown;
  if (isCut) rest = beginningOf(rest, kShown);
  while (!rest.empty()) {
    const std::string_view line = beginningOf(rest, kColumns);
    rest.remove_prefix(line.size());
    std::printf("%20s%s%s\n", "", std::string(line).c_str(), isCut && rest.empty() ? " ..." : "");
  }
}

}  // namespace vornlab

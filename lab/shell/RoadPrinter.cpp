#include "lab/shell/RoadPrinter.h"

#include <array>
#include <cstdio>

#include "lab/shell/Output.h"
#include "lab/shell/RoadWords.h"
#include "lab/shell/Words.h"
#include "secrets/SecretMask.h"

namespace vornlab {

using vorn::Value;

void RoadPrinter::say(std::string_view who, const std::string& what) const {
  const std::chrono::duration<double> since = std::chrono::steady_clock::now() - m_began;
  std::array<char, 32> when{};
  std::snprintf(when.data(), when.size(), "  %6.3f  %-9s ", since.count(), std::string(who).c_str());
  vornlab::say(when.data() + what);
}

void RoadPrinter::print(std::string_view step, const Value& facts) const {
  say(step, wordsOfStep(step, facts));
  if (step == "sent" || step == "received") printContent(facts["content"].text());
}

void RoadPrinter::printContent(const std::string& text) const {
  constexpr std::size_t kColumns = 96;
  constexpr std::size_t kShown = 2 * kColumns;
  const std::string content = vorn::SecretMask::covered(closedUp(text));
  std::string_view rest = content;
  const bool isCut = m_envelopes == Envelopes::cut && rest.size() > kShown;
  if (isCut) rest = beginningOf(rest, kShown);
  while (!rest.empty()) {
    const std::string_view line = beginningOf(rest, kColumns);
    rest.remove_prefix(line.size());
    sayAsIs(std::string(20, ' ') + std::string(line) + (isCut && rest.empty() ? " ..." : ""));
  }
}

}  // namespace vornlab

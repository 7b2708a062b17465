#include "secrets/CoveredRanges.h"

#include <algorithm>
#include <utility>

#include "secrets/SecretMask.h"

namespace vorn {

void CoveredRanges::add(std::size_t begin, std::size_t end, std::string instead) {
  if (begin < end) m_ranges.push_back({begin, end, std::move(instead)});
}

std::vector<CoveredRanges::Range> CoveredRanges::merged() const {
  std::vector<Range> sorted = m_ranges;
  std::sort(sorted.begin(), sorted.end(),
            [](const Range& a, const Range& b) { return a.begin != b.begin ? a.begin < b.begin : a.end > b.end; });
  std::vector<Range> result;
  for (Range& range : sorted) {
    if (result.empty() || range.begin > result.back().end) {
      result.push_back(std::move(range));
      continue;
    }
    Range& last = result.back();
    // What lies within another keeps that one's words; what reaches further makes one cover of both.
    if (range.end <= last.end) continue;
    last.end = range.end;
    last.instead.clear();
  }
  return result;
}

CoveredRanges::Seen CoveredRanges::applied(std::string_view text, std::size_t bytes) const {
  Seen seen{"", 0};
  for (const Range& range : merged()) {
    if (seen.text.size() >= bytes) return seen;
    seen.text.append(text.substr(seen.end, range.begin - seen.end));
    seen.text.append(range.instead.empty() ? SecretMask::kCover : std::string_view(range.instead));
    seen.end = range.end;
  }
  if (seen.text.size() >= bytes) return seen;
  const std::string_view rest = text.substr(seen.end, bytes - seen.text.size());
  seen.text.append(rest);
  seen.end += rest.size();
  return seen;
}

}  // namespace vorn

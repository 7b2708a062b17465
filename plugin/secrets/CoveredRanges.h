#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vorn {

// What of a text must not be seen: ranges of its bytes, each with what stands there instead. They come in any
// order and may overlap.
class CoveredRanges {
 public:
  // Does nothing for an empty range.
  void add(std::size_t begin, std::size_t end) { add(begin, end, ""); }
  // `instead` is for a range that lies in no other; "" is the cover itself.
  void add(std::size_t begin, std::size_t end, std::string instead);
  bool isEmpty() const { return m_ranges.empty(); }

  struct Seen {
    std::string text;
    // Up to where the covered text is told.
    std::size_t end;
  };
  // The text with the ranges covered, as far as it takes to have that many bytes of it, and maybe more.
  Seen applied(std::string_view text, std::size_t bytes) const;

 private:
  struct Range {
    std::size_t begin;
    std::size_t end;
    std::string instead;
  };
  std::vector<Range> merged() const;

  std::vector<Range> m_ranges;
};

}  // namespace vorn

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vornlab {

// Finds whole JSON objects in a stream that has no framing, however the bytes arrive: split anywhere, or several
// at once. Each byte is looked at once.
//
// What stands between objects is skipped. An object is found by its braces alone, so it may still be bad JSON.
class MessageScanner {
 public:
  // At most this many bytes are kept for one unfinished object.
  explicit MessageScanner(std::size_t limit = 64U << 20U) : m_limit(limit) {}

  // The objects that these bytes complete, in order.
  std::vector<std::string> feed(std::string_view bytes);

  // Whether an object grew beyond the limit. Nothing is found from then on.
  bool overflowed() const { return m_overflowed; }

 private:
  std::size_t m_limit;
  std::string m_object;
  std::size_t m_depth = 0;
  bool m_inText = false;
  bool m_escaped = false;
  bool m_overflowed = false;
};

}  // namespace vornlab

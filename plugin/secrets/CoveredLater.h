#pragma once

#include <cstddef>
#include <string>
#include <utility>

namespace vorn {

// A text from the wire that nobody gets to see but covered. To cover it costs time in proportion to it, so that is
// done for each one who asks, and for a text that nobody looks at never. A plain value, UTF-8. Any thread.
class CoveredLater {
 public:
  explicit CoveredLater(std::string text) : m_text(std::move(text)) {}

  // In bytes, as it is.
  std::size_t size() const { return m_text.size(); }
  // The number and ";" with which requests and replies begin, such as "1;"; "" for another beginning.
  std::string head() const;
  // As SecretMask gives them.
  std::string covered() const;
  std::string coveredAndCut(std::size_t mostBytes) const;

 private:
  std::string m_text;
};

}  // namespace vorn

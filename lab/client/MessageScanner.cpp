#include "lab/client/MessageScanner.h"

namespace vornlab {

std::vector<std::string> MessageScanner::feed(std::string_view bytes) {
  std::vector<std::string> found;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < bytes.size() && !m_overflowed; ++i) {
    const char c = bytes[i];
    if (m_inText) {
      if (m_escaped) {
        m_escaped = false;
      } else if (c == '\\') {
        m_escaped = true;
      } else if (c == '"') {
        m_inText = false;
      }
    } else if (c == '{') {
      if (m_depth++ == 0) begin = i;
    } else if (m_depth > 0 && c == '"') {
      m_inText = true;
    } else if (m_depth > 0 && c == '}' && --m_depth == 0) {
      m_object.append(bytes.substr(begin, i + 1 - begin));
      found.push_back(std::move(m_object));
      m_object.clear();
      begin = i + 1;
    }
  }
  if (m_depth > 0) m_object.append(bytes.substr(begin));
  if (m_object.size() > m_limit) {
    m_overflowed = true;
    m_object = {};
  }
  return found;
}

}  // namespace vornlab

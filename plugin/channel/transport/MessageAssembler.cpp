#include "channel/transport/MessageAssembler.h"

#include <algorithm>
#include <utility>

#include "channel/transport/vnIPCConstants.h"
#include "util/Utf16.h"

namespace vorn {

std::optional<std::string> MessageAssembler::feed(std::string_view bytes) {
  const std::string_view chunk = bytes.substr(0, bytes.find('\0'));
  // What adds nothing completes nothing: with nothing gathered there is no last character to look at.
  if (chunk.empty() || !isValidUtf8(chunk)) return std::nullopt;

  const std::size_t oldSize = m_text.size();
  m_text.append(chunk);
  m_sawContentTag = sawTag(m_sawContentTag, TAG_MSG_HEAD_CONTENT, oldSize);
  m_sawActionTag = sawTag(m_sawActionTag, TAG_MSG_TAIL_CONTENT, oldSize);
  if (!m_sawContentTag || !m_sawActionTag || m_text.back() != '}') return std::nullopt;

  m_sawContentTag = false;
  m_sawActionTag = false;
  return std::exchange(m_text, std::string());
}

// Searches the new bytes, and of the old ones only those in which a tag may have begun.
bool MessageAssembler::sawTag(bool seen, std::string_view tag, std::size_t oldSize) const {
  if (seen) return true;
  const std::size_t overlap = std::min(oldSize, tag.size() - 1);
  return m_text.find(tag, oldSize - overlap) != std::string::npos;
}

}  // namespace vorn

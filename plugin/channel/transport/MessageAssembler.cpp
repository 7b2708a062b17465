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

  const std::size_t oldSize = text_.size();
  text_.append(chunk);
  sawContentTag_ = sawTag(sawContentTag_, TAG_MSG_HEAD_CONTENT, oldSize);
  sawActionTag_ = sawTag(sawActionTag_, TAG_MSG_TAIL_CONTENT, oldSize);
  if (!sawContentTag_ || !sawActionTag_ || text_.back() != '}') return std::nullopt;

  sawContentTag_ = false;
  sawActionTag_ = false;
  return std::exchange(text_, std::string());
}

// Searches the new bytes, and of the old ones only those in which a tag may have begun.
bool MessageAssembler::sawTag(bool seen, std::string_view tag, std::size_t oldSize) const {
  if (seen) return true;
  const std::size_t overlap = std::min(oldSize, tag.size() - 1);
  return text_.find(tag, oldSize - overlap) != std::string::npos;
}

}  // namespace vorn

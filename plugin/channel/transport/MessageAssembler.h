#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vorn {

// Finds the end of each message in a stream that has no framing.
//
// One instance belongs to one connection and one thread. The cost of a feed is in proportion to the bytes fed,
// however long the message has grown.
class MessageAssembler {
 public:
  // Takes the bytes of one read and gives a message when they complete one.
  //
  // The bytes count up to the first zero byte, and not at all when they are not valid UTF-8, as when a read ends
  // inside a character: the message then has a gap, and whoever parses it later refuses it. A message is
  // complete when both tags have come, wherever they lie, and its last character is "}". So two messages in one
  // read are one text, and a "}" at the end of a read may end a message too early; the peer sends a message only
  // when the one before has been taken.
  std::optional<std::string> feed(std::string_view bytes);

  // Bytes gathered and not yet given out.
  std::size_t pending() const { return m_text.size(); }

 private:
  bool sawTag(bool seen, std::string_view tag, std::size_t oldSize) const;

  std::string m_text;
  bool m_sawContentTag = false;
  bool m_sawActionTag = false;
};

}  // namespace vorn

#pragma once

#include <cstdint>
#include <string>

#include "util/Value.h"

namespace google::protobuf {
class MessageLite;
}

// Between bytes and messages of the service. Any thread; no state.

namespace vorn {

// Merges a message from bytes. A zero tag ends the message there, and so does the end of the bytes between two
// fields; unset required fields are no error. False for a null message, null bytes, and for bytes that are
// malformed or nested deeper than 100 levels; the message may then hold a part of them.
bool ProtoFromByteStream(google::protobuf::MessageLite* message, const std::uint8_t* bytes,
                         std::uint32_t byteCount);

// Writes a message to a new buffer that FreeProtoByteStream() gives back. False, with nothing to give back, for a
// null argument and for a message of 2 GB and more. Nothing here sends a message; the pair completes the set.
bool ProtoToByteStream(const google::protobuf::MessageLite* message, std::uint8_t** bytes, std::uint32_t* size);
void FreeProtoByteStream(std::uint8_t* bytes, std::uint32_t size);

// The decoded bytes of a base64 text in a buffer as long as the text, with zeros behind the bytes.
//
// The readers of this system are told the length of the base64 text as the count of bytes, which is up to a third
// more than there are. The zeros behind the bytes end the message. Empty when the text is absent, is no base64 or
// decodes to nothing; its data is then the null that the parsers refuse.
class ZeroPaddedBytes {
 public:
  explicit ZeroPaddedBytes(const OptionalText& base64);

  const std::uint8_t* data() const;
  std::int32_t size() const { return static_cast<std::int32_t>(m_buffer.size()); }

 private:
  std::string m_buffer;
};

// A text of the wire in valid UTF-8: each byte that belongs to no valid sequence becomes U+FFFD, because the wire
// does not promise UTF-8 and everything behind the readers does.
std::string textFromWire(std::string wire);

}  // namespace vorn

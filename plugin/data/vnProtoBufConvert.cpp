#include "data/vnProtoBufConvert.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/message_lite.h>

#include <limits>
#include <memory>
#include <utility>

#include "util/EncodeUtils.h"
#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr int kDeepestNesting = 100;
constexpr std::size_t kLargestMessage = std::numeric_limits<std::int32_t>::max();

// Most texts of the wire are plain ASCII, and this loop sees that many bytes at a time.
bool isAscii(const std::string& text) {
  unsigned char seen = 0;
  for (const char c : text) seen |= static_cast<unsigned char>(c);
  return seen < 0x80;
}

}  // namespace

bool ProtoFromByteStream(google::protobuf::MessageLite* message, const std::uint8_t* bytes,
                         std::uint32_t byteCount) {
  if (!message || !bytes || byteCount > kLargestMessage) return false;
  google::protobuf::io::ArrayInputStream array(bytes, static_cast<int>(byteCount));
  google::protobuf::io::CodedInputStream coded(&array);
  coded.SetRecursionLimit(kDeepestNesting);
  return message->MergePartialFromCodedStream(&coded);
}

bool ProtoToByteStream(const google::protobuf::MessageLite* message, std::uint8_t** bytes, std::uint32_t* size) {
  if (!message || !bytes || !size) return false;
  const std::size_t needed = message->ByteSizeLong();
  if (needed > kLargestMessage) return false;
  auto buffer = std::make_unique<std::uint8_t[]>(needed);
  if (!message->SerializePartialToArray(buffer.get(), static_cast<int>(needed))) return false;
  *bytes = buffer.release();
  *size = static_cast<std::uint32_t>(needed);
  return true;
}

void FreeProtoByteStream(std::uint8_t* bytes, std::uint32_t) { std::unique_ptr<std::uint8_t[]> owned(bytes); }

ZeroPaddedBytes::ZeroPaddedBytes(const OptionalText& base64) {
  if (!base64 || base64->size() > kLargestMessage) return;
  OptionalText decoded = EncodeUtils::base64DecodeToData(base64);
  if (!decoded || decoded->empty()) return;
  m_buffer = std::move(*decoded);
  m_buffer.resize(base64->size(), '\0');
}

const std::uint8_t* ZeroPaddedBytes::data() const {
  return m_buffer.empty() ? nullptr : reinterpret_cast<const std::uint8_t*>(m_buffer.data());
}

std::string textFromWire(std::string wire) {
  if (isAscii(wire) || isValidUtf8(wire)) return wire;
  std::string repaired;
  repaired.reserve(wire.size() + 16);
  for (std::size_t at = 0; at < wire.size();) {
    const std::size_t length = utf8SequenceLength(wire, at);
    const bool outsideAnySequence = length == 1 && static_cast<unsigned char>(wire[at]) >= 0x80;
    if (outsideAnySequence) {
      repaired += "\uFFFD";
    } else {
      repaired.append(wire, at, length);
    }
    at += length;
  }
  return repaired;
}

}  // namespace vorn

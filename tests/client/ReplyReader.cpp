#include "ReplyReader.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format_lite.h>

#include <stdexcept>

#include "tests/support/ContentFields.h"

namespace vornlab::test {

std::string decodeBase64(const std::string& text) {
  const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bytes;
  std::uint32_t bits = 0;
  int count = 0;
  for (const char c : text) {
    if (c == '=') break;
    const auto value = alphabet.find(c);
    if (value == std::string::npos) throw std::runtime_error("not base64");
    bits = bits << 6U | static_cast<std::uint32_t>(value);
    count += 6;
    if (count >= 8) bytes += static_cast<char>(bits >> (count -= 8) & 0xFFU);
  }
  return bytes;
}

Packed unpack(const std::string& bytes) {
  using google::protobuf::internal::WireFormatLite;
  google::protobuf::io::CodedInputStream in(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                            static_cast<int>(bytes.size()));
  Packed packed;
  while (const std::uint32_t tag = in.ReadTag()) {
    const int field = static_cast<int>(tag >> 3U);
    std::uint64_t number = 0;
    std::uint32_t size = 0;
    std::string text;
    if ((tag & 7U) == WireFormatLite::WIRETYPE_VARINT && in.ReadVarint64(&number)) {
      packed.numbers[field].push_back(number);
    } else if ((tag & 7U) == WireFormatLite::WIRETYPE_LENGTH_DELIMITED && in.ReadVarint32(&size) &&
               in.ReadString(&text, static_cast<int>(size))) {
      packed.texts[field].push_back(text);
    } else {
      throw std::runtime_error("not a packed message");
    }
  }
  return packed;
}

MeetingLayers readMeeting(const std::string& content) {
  const auto fields = vorn::contentFields(content);
  if (fields.size() != 15) throw std::runtime_error("not a meeting: " + content);
  return {nlohmann::json::parse(decodeBase64(fields[13])), unpack(decodeBase64(fields[14]))};
}

}  // namespace vornlab::test

#include "ReplyReader.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format_lite.h>

#include <stdexcept>

#include "tests/support/ContentFields.h"
#include "util/EncodeUtils.h"

namespace vornlab::test {

std::string decodeBase64(const std::string& text) { return vorn::EncodeUtils::base64DecodeToData(text).value(); }

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

// The reader of the socket's stream against a plain one that looks at everything again after each read.

#include <optional>
#include <string>
#include <utility>

#include "channel/transport/MessageAssembler.h"
#include "channel/transport/vnIPCConstants.h"
#include "fuzz/Fuzzing.h"
#include "util/Utf16.h"

namespace {

using vorn::fuzzing::check;

class PlainReader {
 public:
  std::optional<std::string> feed(std::string_view bytes) {
    const std::string_view chunk = bytes.substr(0, bytes.find('\0'));
    if (chunk.empty() || !vorn::isValidUtf8(chunk)) return std::nullopt;
    m_text += chunk;
    const bool isWhole = m_text.find(vorn::TAG_MSG_HEAD_CONTENT) != std::string::npos &&
                         m_text.find(vorn::TAG_MSG_TAIL_CONTENT) != std::string::npos && m_text.back() == '}';
    return isWhole ? std::optional(std::exchange(m_text, {})) : std::nullopt;
  }
  std::size_t pending() const { return m_text.size(); }

 private:
  std::string m_text;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vorn::fuzzing::Input input(data, size);
  vorn::MessageAssembler reader;
  PlainReader plain;
  while (!input.isEmpty()) {
    const std::string_view bytes = input.take(input.byte());
    check(reader.feed(bytes) == plain.feed(bytes), "both readers give the same messages");
    check(reader.pending() == plain.pending(), "both readers hold the same bytes back");
  }
  return 0;
}

// How long it takes to find the end of a reply that comes in pieces of 8 KB: the plug-in's reader, and a plain
// scan that starts over at every read. The reader's bytes per second must not fall as replies grow.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "channel/transport/MessageAssembler.h"
#include "channel/transport/vnIPCConstants.h"

namespace {

class ScanFromTheStart {
 public:
  std::optional<std::string> feed(std::string_view bytes) {
    m_text.append(bytes);
    if (m_text.find(vorn::TAG_MSG_HEAD_CONTENT) == std::string::npos ||
        m_text.find(vorn::TAG_MSG_TAIL_CONTENT) == std::string::npos || m_text.back() != '}') {
      return std::nullopt;
    }
    return std::exchange(m_text, {});
  }

 private:
  std::string m_text;
};

// The tag that comes last is the one that a scan looks for in vain until then. The content has the quotes of the
// JSON that real replies hold.
std::string replyOf(std::size_t size) {
  std::string content;
  while (content.size() < size) content += R"(\"subject\" : \"Weekly review, größer\",\n  )";
  return R"({ "content" : ")" + content + R"(", "actionId" : "4" })";
}

template <typename Reader>
void readReply(benchmark::State& state) {
  constexpr std::size_t kPiece = 8191;
  const std::string reply = replyOf(static_cast<std::size_t>(state.range(0)));
  std::vector<std::string_view> pieces;
  for (std::size_t at = 0; at < reply.size();) {
    std::size_t end = std::min(at + kPiece, reply.size());
    while (end < reply.size() && (static_cast<unsigned char>(reply[end]) & 0xC0) == 0x80) --end;
    pieces.push_back(std::string_view(reply).substr(at, end - at));
    at = end;
  }
  Reader reader;
  for ([[maybe_unused]] auto _ : state) {
    std::optional<std::string> message;
    for (const std::string_view piece : pieces) message = reader.feed(piece);
    if (!message || message->size() != reply.size()) state.SkipWithError("the reply was not found");
    benchmark::DoNotOptimize(message);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * reply.size()));
}

constexpr std::int64_t kSmallest = 1'000;
constexpr std::int64_t kLargest = 10'000'000;

BENCHMARK(readReply<vorn::MessageAssembler>)->RangeMultiplier(10)->Range(kSmallest, kLargest);
BENCHMARK(readReply<ScanFromTheStart>)->RangeMultiplier(10)->Range(kSmallest, kLargest);

}  // namespace

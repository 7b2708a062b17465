// The invitation in bodies of growing size: replaced, taken out, and the body as plain text. "copies" is the most
// memory in use at once, the body that is given included, against the body's size. Beside an update and a removal
// stands one copy of the body, the floor of all that gives a changed one; beside the text stands libxml2's own run
// over the same HTML, with callbacks that only look at what they get.

#include <benchmark/benchmark.h>
#include <libxml/HTMLparser.h>
#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "invitation/vnBodyHelper.h"
#include "util/HtmlText.h"

namespace {

std::atomic<std::size_t> liveBytes{0};
std::atomic<std::size_t> peakBytes{0};

void* counted(void* memory) {
  if (memory == nullptr) return nullptr;
  const std::size_t live = liveBytes += malloc_usable_size(memory);
  if (live > peakBytes) peakBytes = live;
  return memory;
}

void* countedMalloc(std::size_t size) { return counted(std::malloc(size ? size : 1)); }

void countedFree(void* memory) {
  if (memory != nullptr) liveBytes -= malloc_usable_size(memory);
  std::free(memory);
}

// While a block grows, the old one and the new one may both be there; the peak counts them so.
void* countedRealloc(void* memory, std::size_t size) {
  const std::size_t old = memory != nullptr ? malloc_usable_size(memory) : 0;
  void* grown = counted(std::realloc(memory, size));
  if (grown != nullptr) liveBytes -= old;
  return grown;
}

char* countedCopy(const char* text) {
  const std::size_t size = std::strlen(text) + 1;
  return static_cast<char*>(std::memcpy(countedMalloc(size), text, size));
}

}  // namespace

// Inlined, these would look like mismatched pairs to the compiler.
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (void* memory = countedMalloc(size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { countedFree(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { countedFree(memory); }

namespace {

using vorn::OptionalText;
using vorn::vnBodyHelper;

// Paragraphs as a word processor writes them, with an image among them that is a tenth of the body.
std::string paragraphs(std::size_t size) {
  std::string html =
      "<p class=MsoNormal><img src=\"data:image/png;base64," + std::string(size / 10, 'Q') + "\"></p>";
  for (std::size_t i = 0; html.size() < size; ++i) {
    html +=
        "<p class=\"MsoNormal\" style='mso-margin-top-alt:auto'><span lang=EN-US style='font-size:11.0pt'>Line " +
        std::to_string(i) +
        " of the agenda, gr\xC3\xB6\xC3\x9F"
        "er &amp; longer than before<o:p></o:p></span></p>\r\n";
  }
  return html;
}

const std::string kInvitation = "<p>Join the meeting: <a href=\"https://vorn.example/j/1\">link</a></p>";

OptionalText bodyOf(std::int64_t size) {
  const vnBodyHelper& helper = vnBodyHelper::sharedInstance();
  const std::size_t half = static_cast<std::size_t>(size) / 2;
  return "<html><head><style>p {margin:0}</style></head><body>" + paragraphs(half) +
         helper.insertVnBodyBookMark(kInvitation, true) + paragraphs(half) + "</body></html>";
}

template <typename Operation>
void measure(benchmark::State& state, const Operation& operation) {
  static const int ready = xmlMemSetup(countedFree, countedMalloc, countedRealloc, countedCopy);
  benchmark::DoNotOptimize(ready);
  const std::size_t before = liveBytes;
  // Without the room that it took to grow.
  const OptionalText body(std::in_place, std::string_view(*bodyOf(state.range(0))));
  peakBytes = liveBytes.load();
  for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(operation(body));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * body->size()));
  state.counters["copies"] = static_cast<double>(peakBytes - before) / static_cast<double>(body->size());
}

void update(benchmark::State& state) {
  measure(state, [](const OptionalText& body) {
    return vnBodyHelper::sharedInstance().updateVnBodyWithSrcBody(body, kInvitation, true, nullptr);
  });
}

void updateAtTheTop(benchmark::State& state) {
  measure(state, [](const OptionalText& body) {
    return vnBodyHelper::sharedInstance().newVnBodyToEnd(body, kInvitation, true);
  });
}

void removal(benchmark::State& state) {
  measure(state,
          [](const OptionalText& body) { return vnBodyHelper::sharedInstance().removeVnBodyForDelete(body); });
}

void oneCopy(benchmark::State& state) {
  measure(state, [](const OptionalText& body) { return OptionalText(body); });
}

// Not through the helper, which remembers the texts of the last short bodies.
void plainText(benchmark::State& state) {
  measure(state, [](const OptionalText& body) {
    return OptionalText(vorn::htmlToPlainText(*body, vorn::NoBreakSpaceEntity::leftOut));
  });
}

void bareSax(benchmark::State& state) {
  measure(state, [](const OptionalText& body) {
    std::size_t seen = 0;
    htmlParserCtxt* parser = htmlNewParserCtxt();
    htmlSAXHandler handler{};
    handler.startElement = [](void* user, const xmlChar*, const xmlChar**) { ++*static_cast<std::size_t*>(user); };
    handler.characters = [](void* user, const xmlChar*, int length) {
      *static_cast<std::size_t*>(user) += static_cast<std::size_t>(length);
    };
    *parser->sax = handler;
    parser->userData = &seen;
    htmlCtxtReadMemory(parser, body->data(), static_cast<int>(body->size()), nullptr, "UTF-8",
                       HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NODEFDTD | XML_PARSE_HUGE);
    if (parser->myDoc) xmlFreeDoc(parser->myDoc);
    htmlFreeParserCtxt(parser);
    return seen;
  });
}

constexpr std::int64_t kSmall = 10 << 10;
constexpr std::int64_t kMiddle = 1 << 20;
constexpr std::int64_t kLarge = 16 << 20;

BENCHMARK(update)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(updateAtTheTop)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(removal)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(oneCopy)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainText)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);
BENCHMARK(bareSax)->Arg(kSmall)->Arg(kMiddle)->Arg(kLarge)->Unit(benchmark::kMicrosecond);

}  // namespace

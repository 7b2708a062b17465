// The body of an appointment as a person edits it: what is typed is shown where it was typed, and nothing of what
// is not shown goes with it, whatever the HTML holds.

#include <algorithm>

#include "fuzz/Fuzzing.h"
#include "lab/host/RichBody.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::fuzzing::check;
  vorn::fuzzing::Input input(data, size);
  const std::size_t begin = input.byte();
  const std::size_t length = input.byte() % 4;
  const vornlab::TextStyle style = input.byte() % 2 == 0 ? vornlab::kBold : vornlab::kItalic;
  const std::string html(input.rest());
  vornlab::HtmlCharacters characters;
  const vornlab::ShownHtml shown = vornlab::readShownHtml(html, characters);
  check(shown.text.size() == shown.characters.size(), "each unit has its place");
  std::size_t at = 0;
  for (const vornlab::ShownHtml::Character& each : shown.characters) {
    check(each.bytes.begin >= at && each.bytes.end <= html.size(), "places follow each other");
    at = each.bytes.begin;
  }

  vornlab::RichBody body(html);
  const std::size_t place = std::min(begin, body.text().size());
  const std::size_t taken = std::min(length, body.text().size() - place);
  std::u16string expected = body.text();
  const bool isInLine = expected.substr(place, taken).find_first_of(u"\n\t") == std::u16string::npos;
  body.replace(place, taken, u"x");
  check(body.text().find(u'x') != std::u16string::npos, "what is typed is shown");
  const auto isHalf = [&](std::size_t where) {
    return where > 0 && where < expected.size() && (expected[where] & 0xFC00) == 0xDC00;
  };
  const bool isWhole = !isHalf(place) && !isHalf(place + taken);
  expected.replace(place, taken, u"x");
  // Beside an invitation it stands on a line of its own, and a cell that becomes empty ends its line elsewhere.
  const bool isAlone = html.find("MacVnBookmark") == std::string::npos &&
                       std::none_of(shown.lineTags.begin(), shown.lineTags.end(),
                                    [](const vornlab::ShownHtml::LineTag& tag) { return tag.isOfTable; });
  if (isInLine && isWhole && isAlone)
    check(body.text() == expected, "an edit in one line shows what was typed and nothing else");
  const std::u16string before = body.text();
  body.turn(place, 3, style);
  check(body.text() == before, "a look changes no text");
  return 0;
}

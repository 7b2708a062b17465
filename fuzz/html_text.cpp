// Bodies of appointments as a reader sees them: valid text, whatever the HTML holds.

#include "fuzz/Fuzzing.h"
#include "util/CharacterSets.h"
#include "util/HtmlText.h"
#include "util/Utf16.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::fuzzing::check;
  const std::string_view html{reinterpret_cast<const char*>(data), size};
  for (const auto entity : {vorn::NoBreakSpaceEntity::isBlank, vorn::NoBreakSpaceEntity::leftOut}) {
    const std::string text = vorn::htmlToPlainText(html, entity);
    check(vorn::isValidUtf8(text), "the text is UTF-8");
    // Each byte of the input can become one replacement character or a part of an entity's character.
    check(text.size() <= 3 * size, "the text is no longer than what it was made of");
  }
  const std::string seen = vorn::htmlToPlainText(html);
  const bool hasText = !vorn::trimmed(seen, vorn::isWhitespaceOrNewline).empty();
  check(!hasText || !vorn::htmlShowsNothing(html), "a body with a text shows something");
  return 0;
}

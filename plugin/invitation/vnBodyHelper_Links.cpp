// Plain text to HTML: links and line breaks. Which URLs become links, and which do not, is a matter of how the
// scanner below moves; invitations that are stored in appointments were made this way. Its positions are UTF-16
// units, which matters where it applies them to a text that has grown.

#include <algorithm>
#include <string>
#include <vector>

#include "invitation/vnBodyHelper.h"
#include "util/CharacterSets.h"
#include "util/TextSearch.h"
#include "util/Utf16.h"

namespace vorn {

namespace {

// Each URL costs a pass over the text and each link moves what is behind it, so their number is bounded. No
// invitation comes near it.
constexpr std::size_t kMaxLinks = 256;

bool endsURL(char16_t c) { return c == u' ' || c == u'\r' || c == u'\n'; }

std::size_t findFrom(std::u16string_view text, std::u16string_view wanted, std::size_t start) {
  const std::size_t found = findText(text.substr(start), wanted);
  return found == std::u16string_view::npos ? std::u16string_view::npos : start + found;
}

// Reads a text forward, and skips white space before each move. What it skips counts as not consumed.
class Scanner {
 public:
  explicit Scanner(std::u16string_view text) : m_text(text) {}

  std::size_t position() const { return m_position; }
  bool isAtEnd() const { return m_position + skippable() >= m_text.size(); }

  // Moves to the next occurrence, or to the end without one. False when nothing was consumed.
  bool moveUpTo(std::u16string_view wanted) {
    const std::size_t start = m_position + skippable();
    const std::size_t found = std::min(findFrom(m_text, wanted, start), m_text.size());
    if (found == start) return false;
    m_position = found;
    return true;
  }

  // Moves over the text if it comes next.
  void take(std::u16string_view wanted) {
    const std::size_t start = m_position + skippable();
    if (m_text.substr(start).starts_with(wanted)) m_position = start + wanted.size();
  }

  // Moves to the next blank or line end and gives what was passed.
  std::u16string_view takeURL() {
    const std::size_t start = m_position;
    while (m_position < m_text.size() && !endsURL(m_text[m_position])) ++m_position;
    return m_text.substr(start, m_position - start);
  }

 private:
  std::size_t skippable() const {
    const auto rest = m_text.substr(m_position);
    // All white space is in the basic plane.
    const auto visible =
        std::find_if_not(rest.begin(), rest.end(), [](char16_t c) { return isWhitespaceOrNewline(c); });
    return static_cast<std::size_t>(visible - rest.begin());
  }

  std::u16string_view m_text;
  std::size_t m_position = 0;
};

void collectURLs(std::u16string_view text, std::u16string_view tag, std::vector<std::u16string>& urls) {
  Scanner scanner(text);
  // Moving up consumes nothing when a URL comes at once, and that ends the pass: such URLs stay plain text.
  while (urls.size() < kMaxLinks && scanner.moveUpTo(tag)) {
    const std::u16string_view url = scanner.takeURL();
    if (!url.empty()) urls.emplace_back(url);
  }
}

// The text with the URL as a link wherever it stands.
std::u16string linked(std::u16string_view text, std::u16string_view url) {
  const auto link = std::u16string(u"<a href=\"").append(url).append(u"\">").append(url).append(u"</a>");
  std::u16string result;
  for (std::size_t at = findText(text, url); at != std::u16string_view::npos; at = findText(text, url)) {
    result.append(text.substr(0, at)).append(link);
    text.remove_prefix(at + url.size());
  }
  return result.append(text);
}

// The scanner reads the text as it was before this URL's turn while the text grows, so once a link is made its
// positions lag behind. The following occurrences have turns of their own.
void linkURL(std::u16string& text, std::u16string_view url, std::size_t& linksLeft) {
  const std::u16string snapshot = text;
  Scanner scanner(snapshot);
  std::size_t from = scanner.position();
  if (!scanner.moveUpTo(url)) return;
  for (;;) {
    scanner.take(url);
    const std::size_t to = scanner.position();
    if (scanner.isAtEnd() || to >= text.size() || linksLeft == 0) return;
    if (endsURL(text[to])) {
      const std::u16string passed = linked(std::u16string_view(text).substr(from, to - from), url);
      if (passed.size() != to - from) --linksLeft;
      text.replace(from, to - from, passed);
    }
    if (!scanner.moveUpTo(url)) return;
    from = scanner.position();
  }
}

}  // namespace

OptionalText vnBodyHelper::convertPlainTextToHTML(const OptionalText& text) const {
  if (!text) return std::nullopt;
  std::u16string working = toUtf16(trimmed(*text, isNewline));
  std::vector<std::u16string> urls;
  collectURLs(working, toUtf16(HTTP_TAG), urls);
  collectURLs(working, toUtf16(HTTPS_TAG), urls);
  std::size_t linksLeft = kMaxLinks;
  for (const std::u16string& url : urls) linkURL(working, url, linksLeft);
  return replacingAll(toUtf8(working), "\n", "<br>");
}

}  // namespace vorn

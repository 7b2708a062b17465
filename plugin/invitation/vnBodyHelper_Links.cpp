#include <algorithm>
#include <string>
#include <vector>

#include "invitation/vnBodyHelper.h"
#include "util/CharacterSets.h"
#include "util/TextSearch.h"

// Plain text to HTML: links and line breaks. Which URLs become links, and which do not, is a matter of how the
// scanner below moves; invitations that are stored in appointments were made this way.

namespace vorn {

namespace {

// Each URL costs a pass over the text and each link moves what is behind it, so their number is bounded. No
// invitation comes near it.
constexpr std::size_t kMaxLinks = 256;

bool endsURL(char c) { return c == ' ' || c == '\r' || c == '\n'; }

// Reads a text forward, and skips white space before each move. What it skips counts as not consumed.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  std::size_t position() const { return position_; }
  bool isAtEnd() const { return position_ + skippable() >= text_.size(); }

  // Moves to the next occurrence, or to the end without one. False when nothing was consumed.
  bool moveUpTo(std::string_view wanted) {
    const std::size_t start = position_ + skippable();
    const std::size_t found = std::min(text_.find(wanted, start), text_.size());
    if (found == start) return false;
    position_ = found;
    return true;
  }

  // Moves over the text if it comes next.
  void take(std::string_view wanted) {
    const std::size_t start = position_ + skippable();
    if (text_.substr(start).starts_with(wanted)) position_ = start + wanted.size();
  }

  // Moves to the next blank or line end and gives what was passed.
  std::string_view takeURL() {
    const std::size_t start = position_;
    while (position_ < text_.size() && !endsURL(text_[position_])) ++position_;
    return text_.substr(start, position_ - start);
  }

 private:
  std::size_t skippable() const { return leading(text_.substr(position_), isWhitespaceOrNewline).size(); }

  std::string_view text_;
  std::size_t position_ = 0;
};

void collectURLs(std::string_view text, std::string_view tag, std::vector<std::string>& urls) {
  Scanner scanner(text);
  // Moving up consumes nothing when a URL comes at once, and that ends the pass: such URLs stay plain text.
  while (urls.size() < kMaxLinks && scanner.moveUpTo(tag)) {
    const std::string_view url = scanner.takeURL();
    if (!url.empty()) urls.emplace_back(url);
  }
}

std::string linkTo(const std::string& url) { return "<a href=\"" + url + "\">" + url + "</a>"; }

// The scanner reads the text as it was before this URL's turn while the text grows, so once a link is made its
// positions lag behind. The following occurrences have turns of their own.
void linkURL(std::string& text, const std::string& url, std::size_t& linksLeft) {
  const std::string snapshot = text;
  const std::string link = linkTo(url);
  Scanner scanner(snapshot);
  std::size_t from = scanner.position();
  if (!scanner.moveUpTo(url)) return;
  for (;;) {
    scanner.take(url);
    const std::size_t to = scanner.position();
    if (scanner.isAtEnd() || to >= text.size() || linksLeft == 0) return;
    const std::string_view passed = std::string_view(text).substr(from, to - from);
    if (endsURL(text[to]) && passed.find(url) != std::string_view::npos) {
      text.replace(from, to - from, replacingAll(passed, url, link));
      --linksLeft;
    }
    if (!scanner.moveUpTo(url)) return;
    from = scanner.position();
  }
}

}  // namespace

OptionalText vnBodyHelper::convertPlainTextToHTML(const OptionalText& text) const {
  if (!text) return std::nullopt;
  std::string working(trimmed(*text, isNewline));
  std::vector<std::string> urls;
  collectURLs(working, HTTP_TAG, urls);
  collectURLs(working, HTTPS_TAG, urls);
  std::size_t linksLeft = kMaxLinks;
  for (const std::string& url : urls) linkURL(working, url, linksLeft);
  return replacingAll(working, "\n", "<br>");
}

}  // namespace vorn

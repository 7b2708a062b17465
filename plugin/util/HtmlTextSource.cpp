#include "util/HtmlTextSource.h"

#include <algorithm>
#include <array>
#include <utility>

#include "util/Text.h"
#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";
constexpr std::string_view kNoBreakSpaceEntity = "&nbsp;";
constexpr std::string_view kCommentEnd = "-->";
// What these enclose is not for readers, and is no markup either.
constexpr std::array<std::string_view, 4> kRawElements{"script", "style", "title", "xml"};

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isInName(char c) { return isLetter(c) || (c >= '0' && c <= '9') || c == ':' || c == '-' || c == '_'; }

bool startsWithIgnoringCase(std::string_view text, std::string_view lowerCase) {
  return text.size() >= lowerCase.size() && std::equal(lowerCase.begin(), lowerCase.end(), text.begin(),
                                                       [](char lower, char c) { return asciiLower(c) == lower; });
}

bool isHtmlSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f'; }

// The length of the tag's opening and its name: "<b" or "</b"; 0 when this is no tag.
std::size_t tagNameLength(std::string_view html) {
  const std::size_t name = html.starts_with("</") ? 2 : 1;
  if (html.size() <= name || !isLetter(html[name])) return 0;
  const auto* end = std::find_if_not(html.begin() + name, html.end(), isInName);
  return static_cast<std::size_t>(end - html.begin());
}

std::size_t behindLast(std::string_view html, char c) {
  const std::size_t last = html.rfind(c);
  return last == std::string_view::npos ? html.size() : html.size() - last - 1;
}

}  // namespace

HtmlTextSource::HtmlTextSource(std::string_view html, NoBreakSpaceEntity entity)
    : m_html(html),
      m_entity(entity),
      m_behindLastAngle(behindLast(html, '>')),
      m_behindLastQuote(behindLast(html, '"')),
      m_behindLastApostrophe(behindLast(html, '\'')) {}

std::size_t HtmlTextSource::read(char* buffer, std::size_t size) {
  std::size_t filled = 0;
  while (filled < size) {
    if (m_piece.empty() && m_tagEnd.empty() && m_html.empty()) break;
    if (m_piece.empty()) m_piece = next();
    const std::size_t length = std::min(m_piece.size(), size - filled);
    std::copy_n(m_piece.begin(), length, buffer + filled);
    m_piece.remove_prefix(length);
    filled += length;
  }
  return filled;
}

std::string_view HtmlTextSource::next() {
  if (!m_tagEnd.empty()) return std::exchange(m_tagEnd, {});
  if (m_html.front() == '<') return markup();
  if (m_html.front() == '&' && m_entity == NoBreakSpaceEntity::leftOut &&
      m_html.starts_with(kNoBreakSpaceEntity)) {
    m_html.remove_prefix(kNoBreakSpaceEntity.size());
    return {};
  }
  return text();
}

// Text up to what has to be looked at: a tag, an entity, or a byte that is no text.
std::string_view HtmlTextSource::text() {
  std::size_t end = 0;
  while (end < m_html.size()) {
    const char c = m_html[end];
    if (c == '<' || (c == '&' && end > 0) || c == '\0') break;
    const std::size_t length = static_cast<unsigned char>(c) < 0x80 ? 1 : utf8SequenceLength(m_html, end);
    if (length == 1 && static_cast<unsigned char>(c) >= 0x80) break;
    end += length;
  }
  if (end == 0) {
    // The parser takes a zero byte for the end, and guesses at another encoding when it meets a stray one.
    m_html.remove_prefix(1);
    return kReplacementCharacter;
  }
  const std::string_view found = m_html.substr(0, end);
  m_html.remove_prefix(end);
  return found;
}

std::string_view HtmlTextSource::markup() {
  if (m_html.starts_with("<!--")) {
    skipComment();
    return {};
  }
  if (m_html.size() > m_behindLastAngle) {
    if (tagNameLength(m_html) > 0) return tag();
    // A declaration, a processing instruction, or a comment of another kind: "<![if !mso]>", "<![endif]>".
    if (m_html.size() > 1 && (m_html[1] == '!' || m_html[1] == '?' || m_html[1] == '/')) {
      skipBehind(">");
      return {};
    }
  }
  m_html.remove_prefix(1);
  return "&lt;";
}

// Of a tag its name and its end.
std::string_view HtmlTextSource::tag() {
  const std::string_view name = m_html.substr(0, tagNameLength(m_html));
  m_html.remove_prefix(name.size());
  const bool isClosedAtOnce = skipAttributes() == '/';
  if (!isClosedAtOnce) {
    for (const std::string_view element : kRawElements) {
      if (name.size() == element.size() + 1 && startsWithIgnoringCase(name.substr(1), element)) {
        skipContentOf(element);
        return {};
      }
    }
  }
  m_tagEnd = isClosedAtOnce ? "/>" : ">";
  return name;
}

// "<!-->" is a whole comment: it opens what one of two programs is to see.
void HtmlTextSource::skipComment() {
  m_html.remove_prefix(std::string_view("<!").size());
  skipBehind(kCommentEnd);
}

void HtmlTextSource::skipContentOf(std::string_view element) {
  for (;;) {
    skipBehind("</");
    if (m_html.empty()) return;
    if (startsWithIgnoringCase(m_html, element)) return skipBehind(">");
  }
}

// Goes behind the tag and gives the last character of its inside. A quote begins a value only behind "=", and only
// when it is closed somewhere: a sign of inches or a forgotten quote does not take the text with it.
char HtmlTextSource::skipAttributes() {
  char last = 0;
  while (!m_html.empty()) {
    const char c = m_html.front();
    m_html.remove_prefix(1);
    if (c == '>') break;
    if ((c == '"' || c == '\'') && last == '=' && hasClosing(c)) m_html.remove_prefix(m_html.find(c) + 1);
    if (!isHtmlSpace(c)) last = c;
  }
  return last;
}

void HtmlTextSource::skipBehind(std::string_view wanted) {
  const std::size_t found = m_html.find(wanted);
  m_html.remove_prefix(found == std::string_view::npos ? m_html.size() : found + wanted.size());
}

bool HtmlTextSource::hasClosing(char quote) const {
  return m_html.size() > (quote == '"' ? m_behindLastQuote : m_behindLastApostrophe);
}

}  // namespace vorn

#include "lab/host/HtmlPieces.h"

#include <algorithm>
#include <array>

#include "util/Text.h"

namespace vornlab {

namespace {

using PieceKind = HtmlPiece::Kind;

// What these enclose is not for readers, and is no markup either.
constexpr std::array<std::string_view, 4> kRawElements{"script", "style", "title", "xml"};
// No name of a character is as long.
constexpr std::size_t kLongestEntity = 40;

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isHexDigit(char c) { return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
bool isInName(char c) { return isLetter(c) || isDigit(c) || c == ':' || c == '-' || c == '_'; }
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
// Within a tag.
bool isHtmlSpace(char c) { return isBlank(c) || c == '\f'; }

template <typename Test>
std::size_t lengthOf(std::string_view text, std::size_t from, Test test) {
  std::size_t end = from;
  while (end < text.size() && test(text[end])) ++end;
  return end - from;
}

// The last that is no white space, of which there is only as much as has been skipped just now; 0 for none.
char lastSignBefore(std::string_view html, std::size_t at) {
  while (at > 0 && isHtmlSpace(html[at - 1])) --at;
  return at > 0 ? html[at - 1] : '\0';
}

bool startsWithName(std::string_view text, std::string_view lowerCase) {
  return text.size() >= lowerCase.size() &&
         vorn::asciiLower(std::string(text.substr(0, lowerCase.size()))) == lowerCase;
}

}  // namespace

HtmlPieces::HtmlPieces(std::string_view html)
    : m_html(html),
      m_lastAngle(html.rfind('>')),
      m_lastQuote(html.rfind('"')),
      m_lastApostrophe(html.rfind('\'')) {}

bool HtmlPieces::next(HtmlPiece& piece) {
  if (m_at >= m_html.size()) return false;
  piece = HtmlPiece();
  piece.kind = PieceKind::text;
  piece.bytes.begin = m_at;
  const char c = m_html[m_at];
  if (c == '<') {
    cutMarkup(piece);
  } else if (c == '&') {
    cutEntity(piece);
  } else if (isBlank(c)) {
    piece.kind = PieceKind::blank;
    skipTo(m_at + lengthOf(m_html, m_at, isBlank));
  } else {
    skipTo(m_at + lengthOf(m_html, m_at, [](char each) { return each != '<' && each != '&' && !isBlank(each); }));
  }
  piece.bytes.end = m_at;
  return true;
}

void HtmlPieces::cutMarkup(HtmlPiece& piece) {
  const std::string_view html = rest();
  piece.kind = PieceKind::hidden;
  // "<!-->" is a whole comment: it opens what one of two programs is to see.
  if (html.starts_with("<!--")) {
    skipTo(m_at + 2);
    return skipBehind("-->");
  }
  if (m_lastAngle != std::string_view::npos && m_at <= m_lastAngle) {
    const std::size_t opening = html.starts_with("</") ? 2 : 1;
    if (html.size() > opening && isLetter(html[opening])) return cutTag(piece, lengthOf(html, opening, isInName));
    // A declaration, a processing instruction, or a comment of another kind: "<![if !mso]>", "<![endif]>".
    if (html.size() > 1 && (html[1] == '!' || html[1] == '?' || html[1] == '/')) return skipBehind(">");
  }
  piece.kind = PieceKind::text;
  skipTo(m_at + 1);
}

void HtmlPieces::cutTag(HtmlPiece& piece, std::size_t nameLength) {
  piece.kind = PieceKind::tag;
  piece.isEnd = m_html[m_at + 1] == '/';
  const std::size_t name = m_at + (piece.isEnd ? 2 : 1);
  piece.name = vorn::asciiLower(std::string(m_html.substr(name, nameLength)));
  skipTo(name + nameLength);
  ByteRange ofName;
  ByteRange ofValue;
  while (skipAttribute(ofName, ofValue)) continue;
  piece.isClosedAtOnce = m_html[m_at - 1] == '>' && lastSignBefore(m_html, m_at - 1) == '/';
  if (piece.isClosedAtOnce) return;
  for (const std::string_view element : kRawElements) {
    if (piece.name != element) continue;
    piece.kind = PieceKind::hidden;
    if (!piece.isEnd) skipContentOf(element);
    return;
  }
}

// A quote begins a value only behind "=", and only when it is closed somewhere: a sign of inches or a forgotten
// quote does not take the text with it.
std::size_t HtmlPieces::behindWord(std::size_t at, bool isName) {
  char last = lastSignBefore(m_html, at);
  while (at < m_html.size()) {
    const char c = m_html[at];
    if (c == '>' || isHtmlSpace(c) || (isName && (c == '/' || c == '='))) break;
    const bool isQuote = last == '=' && (c == '"' || c == '\'');
    const bool isClosed = isQuote && hasClosing(c, at);
    m_hasOpenQuote |= isQuote && !isClosed;
    at = isClosed ? m_html.find(c, at + 1) + 1 : at + 1;
    last = c;
  }
  return at;
}

bool HtmlPieces::skipAttribute(ByteRange& name, ByteRange& value) {
  const auto isBetween = [](char c) { return isHtmlSpace(c) || c == '/' || c == '='; };
  std::size_t at = m_at + lengthOf(m_html, m_at, isBetween);
  const auto end = [&](std::size_t behind) {
    skipTo(behind);
    return false;
  };
  if (at >= m_html.size()) return end(at);
  if (m_html[at] == '>') return end(at + 1);
  name.begin = at;
  at = name.end = behindWord(at, true);
  value = {at, at};
  const std::size_t equals = at + lengthOf(m_html, at, isHtmlSpace);
  if (equals < m_html.size() && m_html[equals] == '=') {
    at = equals + 1;
    at += lengthOf(m_html, at, isHtmlSpace);
    skipTo(at);
    const char first = at < m_html.size() ? m_html[at] : 0;
    if ((first == '"' || first == '\'') && hasClosing(first, at)) {
      value = {at + 1, m_html.find(first, at + 1)};
      at = value.end + 1;
    } else {
      value.begin = at;
      at = value.end = behindWord(at, false);
    }
  }
  skipTo(at);
  return true;
}

std::string_view HtmlPieces::attribute(const HtmlPiece& tag, std::string_view wanted) {
  const std::size_t after = m_at;
  m_at = tag.bytes.begin + 1 + tag.name.size();
  ByteRange name;
  ByteRange value;
  std::string_view found;
  while (found.empty() && skipAttribute(name, value)) {
    if (name.end - name.begin == wanted.size() && startsWithName(m_html.substr(name.begin), wanted))
      found = m_html.substr(value.begin, value.end - value.begin);
  }
  m_at = after;
  return found;
}

// A name counts with its semicolon alone, a number without one, too, and whatever its length.
void HtmlPieces::cutEntity(HtmlPiece& piece) {
  const bool isNumber = rest().starts_with("&#");
  const std::string_view html = isNumber ? rest() : rest().substr(0, kLongestEntity);
  const bool isHex = isNumber && html.size() > 2 && (html[2] == 'x' || html[2] == 'X');
  const std::size_t first = isHex ? 3 : isNumber ? 2 : 1;
  const std::size_t length = lengthOf(html, std::min(first, html.size()), [&](char c) {
    return isHex ? isHexDigit(c) : isDigit(c) || (!isNumber && isLetter(c));
  });
  const bool isClosed = first + length < html.size() && html[first + length] == ';';
  if (length == 0 || (!isNumber && !isClosed)) return skipTo(m_at + 1);
  piece.kind = PieceKind::entity;
  skipTo(m_at + first + length + (isClosed ? 1 : 0));
}

void HtmlPieces::skipTo(std::size_t at) {
  m_lookedAt += at - m_at + 1;
  m_at = at;
}

void HtmlPieces::skipBehind(std::string_view wanted) {
  const std::size_t found = m_html.find(wanted, m_at);
  skipTo(found == std::string_view::npos ? m_html.size() : found + wanted.size());
}

void HtmlPieces::skipContentOf(std::string_view element) {
  for (;;) {
    skipBehind("</");
    if (m_at >= m_html.size()) return;
    if (startsWithName(rest(), element)) return skipBehind(">");
  }
}

bool HtmlPieces::hasClosing(char quote, std::size_t at) const {
  const std::size_t last = quote == '"' ? m_lastQuote : m_lastApostrophe;
  return last != std::string_view::npos && last > at;
}

}  // namespace vornlab

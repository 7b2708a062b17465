#include "lab/host/ShownHtml.h"

#include <array>
#include <unordered_set>
#include <utility>

#include "util/HtmlText.h"
#include "util/Text.h"
#include "util/Utf16.h"

namespace vornlab {

namespace {

using Names = std::unordered_set<std::string_view>;

// Those that begin a line of their own.
const Names& lineNames() {
  static const Names names{"address", "article", "aside",   "blockquote", "body", "center", "dd",  "div",
                           "dl",      "dt",      "footer",  "form",       "h1",   "h2",     "h3",  "h4",
                           "h5",      "h6",      "header",  "hr",         "li",   "main",   "nav", "ol",
                           "p",       "pre",     "section", "table",      "tr",   "ul"};
  return names;
}
const Names& tableNames() {
  static const Names names{"table", "tbody", "td", "tfoot", "th", "thead", "tr"};
  return names;
}

unsigned styleOf(std::string_view name) {
  if (name == "b" || name == "strong") return kBold;
  if (name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '6') return kBold;
  if (name == "i" || name == "em") return kItalic;
  return name == "u" || name == "ins" ? kUnderlined : kPlain;
}

// As the plug-in writes them, and as an editor does that has dropped the quotes; it knows no other forms.
constexpr std::array<std::string_view, 2> kBeginBookmarks{"<a name=\"MacVnBookmarkBegin\"></a>",
                                                          "<a name=MacVnBookmarkBegin></a>"};
constexpr std::array<std::string_view, 2> kEndBookmarks{"<a name=\"MacVnBookmarkEnd\"></a>",
                                                        "<a name=MacVnBookmarkEnd></a>"};

bool isDoctype(std::string_view html) {
  constexpr std::string_view doctype = "<!doctype";
  return vorn::asciiLower(std::string(html.substr(0, doctype.size()))) == doctype;
}

// Blanks and line ends wait until something follows them, so that none stand at an end.
class Reader {
 public:
  Reader(std::string_view html, HtmlCharacters& characters)
      : m_html(html), m_pieces(html), m_characters(characters) {
    m_shown.text.reserve(html.size());
    m_shown.characters.reserve(html.size());
  }

  ShownHtml read() {
    HtmlPiece piece;
    while (m_pieces.next(piece)) {
      switch (piece.kind) {
        case HtmlPiece::Kind::text: addText(piece.bytes); break;
        case HtmlPiece::Kind::blank: addBlanks(piece.bytes); break;
        case HtmlPiece::Kind::entity: addEntity(piece.bytes); break;
        case HtmlPiece::Kind::hidden:
          if (isDoctype(m_html.substr(piece.bytes.begin))) beginBodyBehind(piece.bytes, Place::document);
          break;
        case HtmlPiece::Kind::tag:
          if (!piece.isEnd) begin(piece);
          if (piece.isEnd || piece.isClosedAtOnce) end(piece);
          m_shown.endsWithinTag = m_html[piece.bytes.end - 1] != '>';
          break;
      }
    }
    m_shown.lookedAt = m_pieces.lookedAt();
    m_shown.hasOpenQuote = m_pieces.hasOpenQuote();
    return std::move(m_shown);
  }

 private:
  using Kind = ShownHtml::Kind;
  // What the body may be found by.
  enum class Place { nowhere, document, head, body };

  // -- Characters

  void addText(ByteRange bytes) {
    for (std::size_t at = bytes.begin; at < bytes.end;) {
      const std::size_t length = vorn::utf8SequenceLength(m_html, at);
      const ByteRange one{at, at + length};
      const char32_t character = m_html[at] == '\0' ? 0xFFFD : vorn::characterAt(m_html, at);
      at = one.end;
      // The mark in front of a text that tells its encoding.
      constexpr char32_t encodingMark = 0xFEFF;
      if (one.begin == 0 && character == encodingMark) continue;
      const auto meant = isOdd(character) ? m_characters.meaningOf(m_html.substr(one.begin, length))
                                          : HtmlCharacters::Meaning{character};
      if (meant && meant->character != 0) show(meant->character, Kind::text, one);
    }
  }

  // Not sure to be shown as it stands there.
  static bool isOdd(char32_t character) {
    constexpr char32_t firstVisible = 0x20;
    constexpr char32_t firstHigh = 0x7F;
    constexpr char32_t lastHigh = 0xA0;
    constexpr char32_t noCharacter = 0xFFFE;
    return character < firstVisible || (character >= firstHigh && character <= lastHigh) ||
           (character & noCharacter) == noCharacter;
  }

  void addEntity(ByteRange bytes) {
    const auto meant = m_characters.meaningOf(m_html.substr(bytes.begin, bytes.end - bytes.begin));
    if (!meant) return addText(bytes);
    if (meant->isBlank) return addBlank(meant->character, bytes);
    if (meant->character != 0) show(meant->character, Kind::text, bytes);
  }

  void addBlanks(ByteRange bytes) {
    if (m_preformatted == 0) return addBlank(U' ', bytes);
    for (std::size_t at = bytes.begin; at < bytes.end; ++at) {
      addBlank(static_cast<char32_t>(m_html[at]), {at, at + 1});
    }
  }

  void addBlank(char32_t character, ByteRange bytes) {
    if (m_preformatted > 0) return addPreformatted(character, bytes);
    m_shown.blanks.push_back(bytes);
    if (!atLineStart() && !m_lineEndWaits && !m_blank) m_blank = looking(Kind::blank, bytes);
  }

  void addPreformatted(char32_t character, ByteRange bytes) {
    if (character == U'\n') {
      // The first one behind the tag belongs to the tag.
      if (!std::exchange(m_preformattedBegins, false)) addLineBreak(bytes);
    } else if (character != U'\r' && character != 0) {
      show(character, Kind::text, bytes);
    }
  }

  void addLineBreak(ByteRange bytes) {
    m_blank.reset();
    show('\n', Kind::lineBreak, bytes);
  }

  bool atLineStart() const { return m_shown.text.empty() || m_shown.text.back() == '\n'; }

  void show(char32_t character, Kind kind, ByteRange bytes) {
    if (m_lineEndWaits) {
      push(u'\n', {.kind = Kind::line, .bytes = {m_behindLast, bytes.begin}});
    } else if (m_blank) {
      push(u' ', *m_blank);
    }
    m_lineEndWaits = m_cellIsEmpty = m_preformattedBegins = false;
    m_blank.reset();
    const ShownHtml::Character shown = looking(kind, bytes);
    constexpr char32_t firstPair = 0x10000;
    if (character < firstPair) {
      push(static_cast<char16_t>(character), shown);
    } else {
      constexpr char32_t half = 0x400;
      push(static_cast<char16_t>(0xD800 + (character - firstPair) / half), shown);
      push(static_cast<char16_t>(0xDC00 + (character - firstPair) % half), shown);
    }
    m_behindLast = bytes.end;
  }

  // As characters look at this place.
  ShownHtml::Character looking(Kind kind, ByteRange bytes) const {
    unsigned style = kPlain;
    if (m_bold > 0) style |= kBold;
    if (m_italic > 0) style |= kItalic;
    if (m_underlined > 0) style |= kUnderlined;
    return {kind, static_cast<std::uint8_t>(style), m_anchors.empty() ? 0 : m_anchors.back(), bytes};
  }

  void push(char16_t unit, const ShownHtml::Character& character) {
    m_shown.text += unit;
    m_shown.characters.push_back(character);
  }

  // -- Tags

  void begin(const HtmlPiece& tag) {
    const bool isVoid = tag.name == "br" || tag.name == "hr";
    if (!isVoid) ++m_open[tag.name];
    if (tag.name == "br") {
      addLineBreak(tag.bytes);
    } else if (tag.name == "td" || tag.name == "th") {
      note(tag);
      beginCell(tag.bytes);
    } else if (lineNames().contains(tag.name)) {
      note(tag);
      endLine(tag.name);
      if (tag.name == "tr") m_rowHasCell = false;
      if (tag.name == "pre") {
        ++m_preformatted;
        m_preformattedBegins = true;
      }
    } else if (tableNames().contains(tag.name)) {
      note(tag);
    } else if (tag.name == "a") {
      beginAnchor(tag);
    }
    if (tag.name == "html") beginBodyBehind(tag.bytes, Place::document);
    if (tag.name == "body") beginBodyBehind(tag.bytes, Place::body);
    count(tag.name, 1);
  }

  void end(const HtmlPiece& tag) {
    if (tag.name == "head") beginBodyBehind(tag.bytes, Place::head);
    int& open = m_open[tag.name];
    // The end of what was never begun means nothing, but for a paragraph, which it is then the whole of.
    if (open == 0 && tag.name != "p") return;
    if (open > 0) --open;
    if (lineNames().contains(tag.name)) endLine(tag.name);
    if (tableNames().contains(tag.name) || lineNames().contains(tag.name)) note(tag);
    if (tag.name == "pre" && m_preformatted > 0) --m_preformatted;
    if (tag.name == "a") endAnchor(tag);
    count(tag.name, -1);
  }

  // The first tag of its kind counts, and less than one that stands nearer to the body.
  void beginBodyBehind(ByteRange tag, Place nearness) {
    const bool isFirst = m_nearness < nearness || (nearness == Place::document && m_nearness == nearness);
    if (!isFirst || !m_shown.text.empty()) return;
    m_nearness = nearness;
    m_shown.bodyBegin = tag.end;
  }

  void note(const HtmlPiece& tag) {
    if (tag.name == "body") return;
    m_shown.lineTags.push_back({tag.bytes, tag.name, tag.isEnd, tableNames().contains(tag.name)});
  }

  void count(std::string_view name, int step) {
    switch (styleOf(name)) {
      case kBold: m_bold += step; break;
      case kItalic: m_italic += step; break;
      case kUnderlined: m_underlined += step; break;
      default: break;
    }
  }

  void beginAnchor(const HtmlPiece& tag) {
    for (const auto* forms : {&kBeginBookmarks, &kEndBookmarks}) {
      for (const std::string_view form : *forms) {
        if (!m_html.substr(tag.bytes.begin).starts_with(form)) continue;
        m_shown.bookmarks.push_back({{tag.bytes.begin, tag.bytes.begin + form.size()}, forms == &kEndBookmarks});
      }
    }
    const std::string_view address = m_pieces.attribute(tag, "href");
    if (!address.empty()) m_shown.links.push_back({std::string(address), 0});
    m_anchors.push_back(address.empty() ? 0 : static_cast<std::uint32_t>(m_shown.links.size()));
  }

  void endAnchor(const HtmlPiece& tag) {
    if (m_anchors.empty()) return;
    if (m_anchors.back() > 0) m_shown.links[m_anchors.back() - 1].end = tag.bytes.end;
    m_anchors.pop_back();
  }

  // The first line within a cell stays on the row's line; the row itself ends even behind an empty cell.
  void endLine(std::string_view name) {
    m_blank.reset();
    if (!atLineStart() && (!m_cellIsEmpty || name == "tr")) m_lineEndWaits = true;
  }

  void beginCell(ByteRange tag) {
    if (m_rowHasCell) {
      // What ended a line within the cell before does not end the row's line.
      m_lineEndWaits = false;
      m_blank.reset();
      push(u'\t', {.kind = Kind::cell, .bytes = {m_behindLast, tag.end}});
      m_behindLast = tag.end;
    }
    m_rowHasCell = true;
    m_cellIsEmpty = true;
  }

  std::string_view m_html;
  HtmlPieces m_pieces;
  HtmlCharacters& m_characters;
  ShownHtml m_shown;
  Place m_nearness = Place::nowhere;
  std::unordered_map<std::string, int> m_open;
  // Of the anchors that are open, the youngest last: their links, or 0.
  std::vector<std::uint32_t> m_anchors;
  // Where the last character that was shown has ended.
  std::size_t m_behindLast = 0;
  std::optional<ShownHtml::Character> m_blank;
  int m_bold = 0;
  int m_italic = 0;
  int m_underlined = 0;
  int m_preformatted = 0;
  bool m_preformattedBegins = false;
  bool m_lineEndWaits = false;
  bool m_rowHasCell = false;
  bool m_cellIsEmpty = false;
};

}  // namespace

std::optional<HtmlCharacters::Meaning> HtmlCharacters::meaningOf(std::string_view bytes) {
  const auto known = m_known.find(std::string(bytes));
  if (known != m_known.end()) return known->second;
  // What it is between two characters, as it is written, and by itself.
  const auto between = [&](std::string_view before, std::string_view after) {
    return vorn::htmlToPlainText(std::string(before).append(bytes).append(after));
  };
  const auto onlyOne = [](std::string_view read) -> std::optional<Meaning> {
    if (read == "xx") return Meaning();
    if (read.size() <= 2) return {};
    const std::string_view inside = read.substr(1, read.size() - 2);
    if (vorn::utf8SequenceLength(inside, 0) != inside.size()) return {};
    return Meaning{vorn::characterAt(inside, 0)};
  };
  std::optional<Meaning> result = onlyOne(between("x", "x"));
  if (result && result->character == U' ' && between("", "").empty()) {
    result = onlyOne(between("<pre>x", "x</pre>")).value_or(Meaning());
    result->isBlank = true;
  }
  m_known.emplace(bytes, result);
  return result;
}

ShownHtml readShownHtml(std::string_view html, HtmlCharacters& characters) {
  return Reader(html, characters).read();
}

}  // namespace vornlab

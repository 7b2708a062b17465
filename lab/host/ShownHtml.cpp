#include "lab/host/ShownHtml.h"

#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "util/HtmlText.h"
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

// The characters that are written by name or number, or have another meaning than their number. The plug-in's own
// reader knows them, and is asked for each of them once.
class Decoder {
 public:
  // Nothing for what means no character; 0 for one that is not shown.
  std::optional<char32_t> decoded(std::string_view bytes) {
    const auto known = m_known.find(std::string(bytes));
    if (known != m_known.end()) return known->second;
    const std::string read = vorn::htmlToPlainText("x" + std::string(bytes) + "x");
    std::optional<char32_t> result;
    if (read == "xx") {
      result = 0;
    } else if (read.size() > 2) {
      const std::string_view inside = std::string_view(read).substr(1, read.size() - 2);
      if (vorn::utf8SequenceLength(inside, 0) == inside.size()) result = vorn::characterAt(inside, 0);
    }
    m_known.emplace(bytes, result);
    return result;
  }

 private:
  std::unordered_map<std::string, std::optional<char32_t>> m_known;
};

// Blanks and line ends wait until something follows them, so that none stand at an end.
class Reader {
 public:
  explicit Reader(std::string_view html) : m_html(html), m_pieces(html) {
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
        case HtmlPiece::Kind::hidden: break;
        case HtmlPiece::Kind::tag:
          if (!piece.isEnd) begin(piece);
          if (piece.isEnd || piece.isClosedAtOnce) end(piece);
          break;
      }
    }
    m_shown.lookedAt = m_pieces.lookedAt();
    return std::move(m_shown);
  }

 private:
  using Kind = ShownHtml::Kind;

  // -- Characters

  void addText(ByteRange bytes) {
    for (std::size_t at = bytes.begin; at < bytes.end;) {
      const std::size_t length = vorn::utf8SequenceLength(m_html, at);
      const ByteRange one{at, at + length};
      const char32_t character = m_html[at] == '\0' ? 0xFFFD : vorn::characterAt(m_html, at);
      constexpr char32_t firstOdd = 0x80;
      constexpr char32_t lastOdd = 0xA0;
      const bool isOdd = character >= firstOdd && character <= lastOdd;
      const auto meant = isOdd ? m_decoder.decoded(m_html.substr(at, length)) : character;
      if (meant.value_or(0) != 0) show(*meant, Kind::text, one);
      at += length;
    }
  }

  void addEntity(ByteRange bytes) {
    const auto meant = m_decoder.decoded(m_html.substr(bytes.begin, bytes.end - bytes.begin));
    if (!meant) return addText(bytes);
    if (*meant != 0) show(*meant, Kind::text, bytes);
  }

  void addBlanks(ByteRange bytes) {
    if (m_preformatted > 0) {
      for (std::size_t at = bytes.begin; at < bytes.end; ++at) addPreformatted(at);
      return;
    }
    m_shown.blanks.push_back(bytes);
    if (!atLineStart() && !m_lineEndWaits && !m_blank) m_blank = looking(Kind::blank, bytes);
  }

  void addPreformatted(std::size_t at) {
    const ByteRange bytes{at, at + 1};
    const char c = m_html[at];
    if (c == '\n') {
      // The first one behind the tag belongs to the tag.
      if (!std::exchange(m_preformattedBegins, false)) addLineBreak(bytes);
    } else if (c != '\r') {
      show(static_cast<char32_t>(c), Kind::text, bytes);
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
    if (tag.name == "body") m_shown.bodyBegin = tag.bytes.end;
    count(tag.name, 1);
  }

  void end(const HtmlPiece& tag) {
    if (tag.name == "head" && m_shown.bodyBegin == 0) m_shown.bodyBegin = tag.bytes.end;
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
    const std::string_view address = m_pieces.attribute(tag, "href");
    if (!address.empty()) m_shown.links.push_back({vorn::htmlToPlainText(address), 0});
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
  Decoder m_decoder;
  ShownHtml m_shown;
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

ShownHtml readShownHtml(std::string_view html) { return Reader(html).read(); }

}  // namespace vornlab

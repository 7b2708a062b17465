#include "util/HtmlText.h"

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <array>
#include <memory>
#include <unordered_set>
#include <utility>

#include "util/CharacterSets.h"
#include "util/HtmlTextSource.h"

namespace vorn {

namespace {

using Names = std::unordered_set<std::string_view>;

// White space, and the first byte of U+0080 to U+00BF.
constexpr char kFirstByte = '\xC2';
constexpr std::string_view kLookedAt = " \t\r\n\f\xC2";
// The second byte of U+00A0.
constexpr unsigned char kNoBreakSpace = 0xA0;
// The parser looks through all open elements for each end tag, so they may not become arbitrarily many.
constexpr int kMaxOpenElements = 512;
// The document and its body, which the parser adds where they are missing.
constexpr int kKeptElements = 2;

const Names& lineElements() {
  static const Names names{"address", "article", "aside",   "blockquote", "body", "center", "dd",  "div",
                           "dl",      "dt",      "footer",  "form",       "h1",   "h2",     "h3",  "h4",
                           "h5",      "h6",      "header",  "hr",         "li",   "main",   "nav", "ol",
                           "p",       "pre",     "section", "table",      "tr",   "ul"};
  return names;
}

// What is shown in its own place without being text.
const Names& shownElements() {
  static const Names names{"audio", "canvas", "embed", "iframe",      "image",
                           "img",   "object", "svg",   "v:imagedata", "video"};
  return names;
}

// What U+0080 to U+009F, which are no characters to be seen, mean where people have written them as numbers.
constexpr std::array<std::string_view, 32> kNumberedCharacters{
    "€", "",  "‚", "ƒ", "„", "…", "†", "‡", "ˆ", "‰", "Š", "‹", "Œ", "", "Ž", "",
    "",  "‘", "’", "“", "”", "•", "–", "—", "˜", "™", "š", "›", "œ", "", "ž", "Ÿ"};

// Builds the text. Blanks and line ends wait until something follows them, so that none stand at an end.
class TextBuilder {
 public:
  // Takes the memory for the longest text at once, since growing to it would take up to three times as much.
  explicit TextBuilder(std::size_t longest) { m_text.reserve(longest); }

  void begin(std::string_view element) {
    if (element == "br") {
      addLineEnd();
    } else if (element == "td" || element == "th") {
      beginCell();
    } else if (lineElements().contains(element)) {
      endLine(element);
      if (element == "tr") m_rowHasCell = false;
      if (element == "pre") {
        ++m_preformatted;
        m_preformattedBegins = true;
      }
    }
  }

  void end(std::string_view element) {
    if (lineElements().contains(element)) endLine(element);
    if (element == "pre" && m_preformatted > 0) --m_preformatted;
  }

  // Leaves every element that has an effect on the text.
  void leaveAll() { m_preformatted = 0; }

  void add(std::string_view text) {
    while (!text.empty()) {
      const std::size_t length = std::min(text.find_first_of(kLookedAt), text.size());
      if (length > 0) {
        addVisible(text.substr(0, length));
        text.remove_prefix(length);
      } else {
        text.remove_prefix(addOne(text));
      }
    }
  }

  std::string take() { return std::move(m_text); }
  const std::string& text() const { return m_text; }

 private:
  bool atLineStart() const { return m_text.empty() || m_text.back() == '\n'; }

  void addVisible(std::string_view piece) {
    if (m_lineEndWaits)
      m_text += '\n';
    else if (m_blankWaits)
      m_text += ' ';
    m_lineEndWaits = m_blankWaits = m_cellIsEmpty = m_preformattedBegins = false;
    m_text += piece;
  }

  // Adds one of the characters that are looked at, the text's first, and gives its length.
  std::size_t addOne(std::string_view text) {
    if (text.front() != kFirstByte || text.size() < 2) {
      addBlank(text.front());
      return 1;
    }
    const auto second = static_cast<unsigned char>(text[1]);
    if (second == kNoBreakSpace) {
      addVisible(" ");
    } else if (second < kNoBreakSpace) {
      addVisible(kNumberedCharacters[second - 0x80]);
    } else {
      addVisible(text.substr(0, 2));
    }
    return 2;
  }

  void addBlank(char c) {
    if (m_preformatted == 0) {
      if (!atLineStart() && !m_lineEndWaits) m_blankWaits = true;
    } else if (c == '\n') {
      // The first one behind the tag belongs to the tag.
      if (!std::exchange(m_preformattedBegins, false)) addLineEnd();
    } else if (c != '\r') {
      addVisible(std::string_view(&c, 1));
    }
  }

  void addLineEnd() {
    m_blankWaits = false;
    addVisible("\n");
  }

  // The first line within a cell stays on the row's line; the row itself ends even behind an empty cell.
  void endLine(std::string_view element) {
    m_blankWaits = false;
    if (!atLineStart() && (!m_cellIsEmpty || element == "tr")) m_lineEndWaits = true;
  }

  void beginCell() {
    if (m_rowHasCell) {
      // What ended a line within the cell before does not end the row's line.
      m_lineEndWaits = m_blankWaits = false;
      m_text += '\t';
    }
    m_rowHasCell = true;
    m_cellIsEmpty = true;
  }

  std::string m_text;
  int m_preformatted = 0;
  bool m_preformattedBegins = false;
  bool m_blankWaits = false;
  bool m_lineEndWaits = false;
  bool m_rowHasCell = false;
  bool m_cellIsEmpty = false;
};

struct FreeParser {
  void operator()(htmlParserCtxt* parser) const {
    if (parser->myDoc) xmlFreeDoc(parser->myDoc);
    htmlFreeParserCtxt(parser);
  }
};

// So much the parser is given at first when only what it meets first counts. It is given more each time, since it
// takes its time for each piece.
constexpr std::size_t kFirstPiece = 256;

struct Reading {
  htmlParserCtxt* parser;
  HtmlTextSource& source;
  TextBuilder builder;
  // Ends the reading with the first that a reader sees.
  bool isDoneOnceSeen = false;
  bool isSeen = false;
  std::size_t nextPiece = kFirstPiece;

  // The parser goes on with what it has in its buffer: stopped in the middle of a long run of characters it would
  // read behind its own end.
  void see() {
    isSeen = true;
    if (isDoneOnceSeen) source.end();
  }
};

std::string_view viewOf(const xmlChar* name) { return reinterpret_cast<const char*>(name); }

void onStartElement(void* user, const xmlChar* name, const xmlChar**) {
  auto& reading = *static_cast<Reading*>(user);
  if (reading.parser->nameNr > kMaxOpenElements) {
    reading.parser->nameNr = kKeptElements;
    reading.parser->name = reading.parser->nameTab[kKeptElements - 1];
    reading.builder.leaveAll();
  }
  reading.builder.begin(viewOf(name));
  if (shownElements().contains(viewOf(name))) reading.see();
}

void onEndElement(void* user, const xmlChar* name) { static_cast<Reading*>(user)->builder.end(viewOf(name)); }

void onCharacters(void* user, const xmlChar* text, int length) {
  auto& reading = *static_cast<Reading*>(user);
  const std::size_t before = reading.builder.text().size();
  reading.builder.add(viewOf(text).substr(0, static_cast<std::size_t>(length)));
  if (!reading.isDoneOnceSeen || reading.isSeen) return;
  const std::string_view added = std::string_view(reading.builder.text()).substr(before);
  if (!trimmed(added, isWhitespaceOrNewline).empty()) reading.see();
}

int readSource(void* user, char* buffer, int size) {
  auto& reading = *static_cast<Reading*>(user);
  auto wanted = static_cast<std::size_t>(size);
  if (reading.isDoneOnceSeen) wanted = std::min(wanted, std::exchange(reading.nextPiece, reading.nextPiece * 2));
  return static_cast<int>(reading.source.read(buffer, wanted));
}

void readHtml(Reading& reading) {
  htmlSAXHandler handler{};
  handler.startElement = onStartElement;
  handler.endElement = onEndElement;
  handler.characters = onCharacters;
  handler.ignorableWhitespace = onCharacters;
  *reading.parser->sax = handler;
  reading.parser->userData = &reading;
  constexpr int options = HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET |
                          HTML_PARSE_NODEFDTD | HTML_PARSE_IGNORE_ENC | XML_PARSE_HUGE;
  htmlCtxtReadIO(reading.parser, readSource, nullptr, &reading, nullptr, "UTF-8", options);
}

}  // namespace

std::string htmlToPlainText(std::string_view html, NoBreakSpaceEntity entity) {
  const std::unique_ptr<htmlParserCtxt, FreeParser> parser(htmlNewParserCtxt());
  if (!parser) return "";
  HtmlTextSource source(html, entity);
  Reading reading{.parser = parser.get(), .source = source, .builder = TextBuilder(html.size())};
  readHtml(reading);
  return reading.builder.take();
}

bool htmlShowsNothing(std::string_view html) {
  const std::unique_ptr<htmlParserCtxt, FreeParser> parser(htmlNewParserCtxt());
  if (!parser) return true;
  HtmlTextSource source(html, NoBreakSpaceEntity::isBlank);
  Reading reading{.parser = parser.get(), .source = source, .builder = TextBuilder(0), .isDoneOnceSeen = true};
  readHtml(reading);
  return !reading.isSeen;
}

}  // namespace vorn

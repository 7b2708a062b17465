#include "util/HtmlText.h"

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <cctype>
#include <limits>
#include <memory>
#include <unordered_set>

#include "util/Utf16.h"

namespace vorn {

namespace {

using Names = std::unordered_set<std::string_view>;

constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";
constexpr std::string_view kNoBreakSpace = "\xC2\xA0";
// The parser looks through all open elements for each end tag, so they may not become arbitrarily many.
constexpr int kMaxOpenElements = 512;
// The document and its body, which the parser adds where they are missing.
constexpr int kKeptElements = 2;
// The parser compares each attribute of a tag with all before it, so their number is bounded too.
constexpr std::size_t kMaxSeparatorsInTag = 1000;

const Names& lineElements() {
  static const Names names{"address", "article", "aside",   "blockquote", "body", "center", "dd",  "div",
                           "dl",      "dt",      "footer",  "form",       "h1",   "h2",     "h3",  "h4",
                           "h5",      "h6",      "header",  "hr",         "li",   "main",   "nav", "ol",
                           "p",       "pre",     "section", "table",      "tr",   "ul"};
  return names;
}

const Names& silentElements() {
  static const Names names{"head", "script", "style", "title"};
  return names;
}

// Builds the text. Blanks and line ends wait until something follows them, so that none stand at an end.
class TextBuilder {
 public:
  void begin(std::string_view element) {
    if (silentElements().contains(element)) ++silent_;
    if (silent_ > 0) return;
    if (element == "br") {
      addLineEnd();
    } else if (element == "td" || element == "th") {
      beginCell();
    } else if (lineElements().contains(element)) {
      endLine(element);
      if (element == "tr") rowHasCell_ = false;
      if (element == "pre") ++preformatted_;
    }
  }

  void end(std::string_view element) {
    if (silentElements().contains(element)) {
      if (silent_ > 0) --silent_;
      return;
    }
    if (silent_ > 0) return;
    if (lineElements().contains(element)) endLine(element);
    if (element == "pre" && preformatted_ > 0) --preformatted_;
  }

  // Leaves every element that has an effect on the text.
  void leaveAll() {
    silent_ = 0;
    preformatted_ = 0;
  }

  void add(std::string_view text) {
    if (silent_ > 0) return;
    while (!text.empty()) {
      const char c = text.front();
      std::size_t length = 1;
      if (text.starts_with(kNoBreakSpace)) {
        length = kNoBreakSpace.size();
        addVisible(" ");
      } else if (c == '\n' && preformatted_ > 0) {
        addLineEnd();
      } else if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f') {
        addBlank(c);
      } else {
        length = text.find_first_of(" \t\r\n\f\xC2");
        if (length == 0) length = 1;
        addVisible(text.substr(0, length));
      }
      text.remove_prefix(std::min(length, text.size()));
    }
  }

  std::string take() { return std::move(text_); }

 private:
  bool atLineStart() const { return text_.empty() || text_.back() == '\n'; }

  void addVisible(std::string_view piece) {
    if (lineEndWaits_)
      text_ += '\n';
    else if (blankWaits_)
      text_ += ' ';
    lineEndWaits_ = blankWaits_ = cellIsEmpty_ = false;
    text_ += piece;
  }

  void addBlank(char c) {
    if (preformatted_ > 0) {
      if (c != '\r') addVisible(std::string_view(&c, 1));
    } else if (!atLineStart() && !lineEndWaits_) {
      blankWaits_ = true;
    }
  }

  void addLineEnd() {
    blankWaits_ = false;
    addVisible("\n");
  }

  // The first line within a cell stays on the row's line; the row itself ends even behind an empty cell.
  void endLine(std::string_view element) {
    blankWaits_ = false;
    if (!atLineStart() && (!cellIsEmpty_ || element == "tr")) lineEndWaits_ = true;
  }

  void beginCell() {
    if (rowHasCell_) {
      // What ended a line within the cell before does not end the row's line.
      lineEndWaits_ = blankWaits_ = false;
      text_ += '\t';
    }
    rowHasCell_ = true;
    cellIsEmpty_ = true;
  }

  std::string text_;
  int silent_ = 0;
  int preformatted_ = 0;
  bool blankWaits_ = false;
  bool lineEndWaits_ = false;
  bool rowHasCell_ = false;
  bool cellIsEmpty_ = false;
};

struct FreeParser {
  void operator()(htmlParserCtxt* parser) const {
    if (parser->myDoc) xmlFreeDoc(parser->myDoc);
    htmlFreeParserCtxt(parser);
  }
};

struct Reading {
  htmlParserCtxt* parser;
  TextBuilder builder;
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
}

void onEndElement(void* user, const xmlChar* name) { static_cast<Reading*>(user)->builder.end(viewOf(name)); }

void onCharacters(void* user, const xmlChar* text, int length) {
  static_cast<Reading*>(user)->builder.add(viewOf(text).substr(0, static_cast<std::size_t>(length)));
}

// Makes a text that the parser reads in linear time and to its end.
class Cleaner {
 public:
  explicit Cleaner(std::string_view html) : html_(html) { result_.reserve(html.size()); }

  std::string take() {
    while (!html_.empty()) {
      if (const std::size_t length = visibleConditionLength()) {
        html_.remove_prefix(length);
      } else {
        copyCharacter();
      }
    }
    return std::move(result_);
  }

 private:
  // "<![if !mso]>" and "<![endif]>", which the parser takes for text. The end of a conditional comment,
  // "<![endif]-->", is not among them.
  std::size_t visibleConditionLength() const {
    constexpr std::size_t longest = 256;
    if (!html_.starts_with("<![")) return 0;
    const std::size_t end = html_.substr(0, longest).find('>');
    return end != std::string_view::npos && html_[end - 1] == ']' ? end + 1 : 0;
  }

  void copyCharacter() {
    const std::size_t length = utf8SequenceLength(html_, 0);
    const auto first = static_cast<unsigned char>(html_.front());
    // The parser takes a zero byte for the end, and guesses at another encoding when it meets a stray byte.
    if (first == 0 || (length == 1 && first >= 0x80)) {
      result_ += kReplacementCharacter;
    } else {
      result_ += html_.substr(0, length);
    }
    countAttributes();
    html_.remove_prefix(length);
    if (inTag_ && separators_ > kMaxSeparatorsInTag) cutTag();
  }

  void countAttributes() {
    const char c = html_.front();
    if (!inTag_) {
      inTag_ = c == '<' && html_.size() > 1 && std::isalpha(static_cast<unsigned char>(html_[1]));
      separators_ = 0;
      return;
    }
    const bool isBlank = c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
    if (isBlank || c == '=') ++separators_;
    if (quote_ != 0) {
      if (c == quote_) quote_ = 0;
    } else if (c == '>') {
      inTag_ = false;
    } else if ((c == '"' || c == '\'') && lastInTag_ == '=') {
      quote_ = c;
    }
    if (!isBlank) lastInTag_ = c;
  }

  void cutTag() {
    if (quote_ != 0) result_ += quote_;
    result_ += '>';
    inTag_ = false;
    quote_ = 0;
    while (!html_.empty() && html_.front() != '>' && !html_.starts_with("</")) html_.remove_prefix(1);
    if (html_.starts_with('>')) html_.remove_prefix(1);
  }

  std::string_view html_;
  std::string result_;
  bool inTag_ = false;
  // The quote that an attribute's value is in; 0 outside.
  char quote_ = 0;
  char lastInTag_ = 0;
  std::size_t separators_ = 0;
};

}  // namespace

std::string htmlToPlainText(std::string_view html) {
  const std::string input = Cleaner(html).take();
  if (input.empty() || input.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) return {};
  const std::unique_ptr<htmlParserCtxt, FreeParser> parser(htmlNewParserCtxt());
  if (!parser) return {};
  Reading reading{parser.get(), {}};
  htmlSAXHandler handler{};
  handler.startElement = onStartElement;
  handler.endElement = onEndElement;
  handler.characters = onCharacters;
  handler.ignorableWhitespace = onCharacters;
  *parser->sax = handler;
  parser->userData = &reading;
  constexpr int options = HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET |
                          HTML_PARSE_NODEFDTD | HTML_PARSE_IGNORE_ENC | XML_PARSE_HUGE;
  htmlCtxtReadMemory(parser.get(), input.data(), static_cast<int>(input.size()), nullptr, "UTF-8", options);
  return reading.builder.take();
}

}  // namespace vorn

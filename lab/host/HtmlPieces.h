#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vornlab {

// Bytes of a text: from the first one to behind the last.
struct ByteRange {
  std::size_t begin = 0;
  std::size_t end = 0;

  bool operator==(const ByteRange&) const = default;
};

// A piece of HTML and where it stands.
struct HtmlPiece {
  enum class Kind {
    // Characters that stand for themselves, without white space.
    text,
    // White space that belongs together.
    blank,
    // "&amp;" or "&#38", which may mean nothing all the same.
    entity,
    tag,
    // What nobody sees: comments, declarations, and scripts and the like with their content.
    hidden
  };

  Kind kind = Kind::hidden;
  ByteRange bytes;
  // Of a tag, in lower case.
  std::string name;
  bool isEnd = false;
  bool isClosedAtOnce = false;
};

// Cuts HTML into its pieces, none of which is lost: each begins where the one before has ended. Whatever is broken
// is cut as far as it goes; well-formed HTML is cut where the plug-in's own reader of bodies does. UTF-8; time
// linear in the size. The HTML must outlive this object.
class HtmlPieces {
 public:
  explicit HtmlPieces(std::string_view html);

  // False at the end.
  bool next(HtmlPiece& piece);
  // The value of a tag's attribute with that name in lower case, as it is written; "" without one.
  std::string_view attribute(const HtmlPiece& tag, std::string_view name);
  // How many bytes have been looked at, some of them more than once.
  std::size_t lookedAt() const { return m_lookedAt; }
  // Whether a value began so far with a quote that is closed nowhere.
  bool hasOpenQuote() const { return m_hasOpenQuote; }

 private:
  std::string_view rest() const { return m_html.substr(m_at); }
  void cutMarkup(HtmlPiece& piece);
  void cutTag(HtmlPiece& piece, std::size_t nameLength);
  void cutEntity(HtmlPiece& piece);
  void skipTo(std::size_t at);
  void skipBehind(std::string_view wanted);
  void skipContentOf(std::string_view element);
  // From behind a tag's name or an attribute to behind the next one; false at the tag's end.
  bool skipAttribute(ByteRange& name, ByteRange& value);
  // From there over a name or an unquoted value with all that is quoted in it.
  std::size_t behindWord(std::size_t at, bool isName);
  bool hasClosing(char quote, std::size_t at) const;

  std::string_view m_html;
  std::size_t m_at = 0;
  std::size_t m_lookedAt = 0;
  bool m_hasOpenQuote = false;
  // Where the last of each stands, so that none is looked for in vain over and over; npos for none.
  std::size_t m_lastAngle;
  std::size_t m_lastQuote;
  std::size_t m_lastApostrophe;
};

}  // namespace vornlab

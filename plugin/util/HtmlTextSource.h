#pragma once

#include <cstddef>
#include <string_view>

#include "util/HtmlText.h"

namespace vorn {

// Gives an HTML parser that looks for text what it needs, and nothing else, piece by piece: the text, the names of
// the tags, and the entities.
//
// What holds no text is left out here: attributes (an image within the body is one of some megabytes), comments,
// declarations, scripts, styles and titles. That keeps the parser's work linear, and memory small. Bytes that a
// parser of UTF-8 stumbles over become U+FFFD. The HTML must outlive this object.
class HtmlTextSource {
 public:
  HtmlTextSource(std::string_view html, NoBreakSpaceEntity entity);

  // Fills the buffer and answers with how many bytes; 0 at the end.
  std::size_t read(char* buffer, std::size_t size);
  // Nothing more is wanted: whoever reads on is at the end.
  void end() { m_html = m_piece = m_tagEnd = {}; }

 private:
  std::string_view next();
  std::string_view text();
  std::string_view markup();
  std::string_view tag();
  void skipComment();
  void skipContentOf(std::string_view element);
  char skipAttributes();
  void skipBehind(std::string_view wanted);
  bool hasClosing(char quote) const;

  std::string_view m_html;
  NoBreakSpaceEntity m_entity;
  // The rest of a piece for which the buffer had no room, and what closes the tag of which the name was given.
  std::string_view m_piece;
  std::string_view m_tagEnd;
  // How much of the HTML is left behind the last of each, so that none is looked for in vain over and over.
  std::size_t m_behindLastAngle;
  std::size_t m_behindLastQuote;
  std::size_t m_behindLastApostrophe;
};

}  // namespace vorn

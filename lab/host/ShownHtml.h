#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lab/host/HtmlPieces.h"

namespace vornlab {

// How a character looks; several together.
enum TextStyle : unsigned { kPlain = 0, kBold = 1, kItalic = 2, kUnderlined = 4 };

// What a reader of HTML sees, character by character, and where each of them stands in the HTML. Of well-formed
// HTML the text is the one that the plug-in's reader of bodies finds.
struct ShownHtml {
  enum class Kind : std::uint8_t {
    text,
    // White space, of which any number counts once.
    blank,
    // A tag for it, or a line end in preformatted text.
    lineBreak,
    // Where a paragraph or the like ends another line, and where a cell follows another one. Their bytes are the
    // way from the character before to the one behind.
    line,
    cell
  };
  struct Character {
    Kind kind = Kind::text;
    std::uint8_t style = kPlain;
    // 0 for none, and otherwise its place among the links, counted from 1.
    std::uint32_t link = 0;
    ByteRange bytes;
  };
  struct Link {
    // As it is written, with its entities.
    std::string address;
    // Behind the tag that ends it; 0 for one that is never ended.
    std::size_t end = 0;
  };
  // A tag that begins or ends lines.
  struct LineTag {
    ByteRange bytes;
    std::string name;
    bool isEnd = false;
    bool isOfTable = false;
  };
  // An anchor that nobody sees, by which the plug-in finds its invitation: everything between two of them is its
  // own to replace.
  struct Bookmark {
    ByteRange bytes;
    bool isEnd = false;
  };

  // In UTF-16 units, and one entry for each of them: both halves of a pair have the same bytes.
  std::u16string text;
  std::vector<Character> characters;
  std::vector<Link> links;
  std::vector<LineTag> lineTags;
  // White space, shown or not.
  std::vector<ByteRange> blanks;
  std::vector<Bookmark> bookmarks;
  // Behind the tag of the body, or without one behind the head, the document's own tag, or its declaration.
  std::size_t bodyBegin = 0;
  // A quote that is closed nowhere, so that it would be closed by the next one of its kind that is put in.
  bool hasOpenQuote = false;
  // The last tag is closed nowhere, so that it would take in what is put behind it.
  bool endsWithinTag = false;
  // What it has cost, in bytes.
  std::size_t lookedAt = 0;
};

// The characters that are written by name or number, or mean another one or none. The plug-in's own reader knows
// them, and is asked for each of them once.
class HtmlCharacters {
 public:
  struct Meaning {
    // 0 for one that is not shown.
    char32_t character = 0;
    // White space as if it stood there itself.
    bool isBlank = false;
  };

  // Absent for what means no character.
  std::optional<Meaning> meaningOf(std::string_view bytes);

 private:
  std::unordered_map<std::string, std::optional<Meaning>> m_known;
};

// UTF-8; time linear in the size.
ShownHtml readShownHtml(std::string_view html, HtmlCharacters& characters);

}  // namespace vornlab

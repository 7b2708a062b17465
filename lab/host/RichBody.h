#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "lab/host/ShownHtml.h"

namespace vornlab {

// The body of an appointment as a person reads and edits it. What is typed changes the HTML at its own place
// alone: pictures, styles, comments and whatever else has no text in it stay byte for byte. What is typed above or
// below an invitation stands outside the plug-in's bookmarks, even where nothing else stands there yet.
//
// Positions and lengths count UTF-16 units of the shown text; a cut through a pair means the whole character. Each
// operation takes time linear in the size of the body.
class RichBody {
 public:
  // Characters that look the same.
  struct Run {
    std::size_t begin = 0;
    std::size_t length = 0;
    unsigned style = kPlain;
    // "" for none.
    std::string link;

    bool operator==(const Run&) const = default;
  };

  explicit RichBody(std::string html);

  const std::string& html() const { return m_html; }
  // The shown text, with "\n" between lines.
  const std::u16string& text() const { return m_shown.text; }
  // From the beginning to the end, of all that is not plain.
  std::vector<Run> runs() const;

  // Puts the text in place of a part of what is shown. What cannot be taken out stays, such as the end of a line
  // in a table or between a list and what follows it; and what has no sign is not put in.
  void replace(std::size_t begin, std::size_t length, std::u16string_view typed);
  // Gives a part that style, or takes it away where all of it has it. False, and nothing is changed, where it
  // comes with other characters, or its tag could not go without words.
  bool turn(std::size_t begin, std::size_t length, TextStyle style);

  // Where in the text the caret stands behind what replace() has put in.
  std::size_t caret() const;

  // How many bytes have been looked at to read the body the last time.
  std::size_t lookedAt() const { return m_shown.lookedAt; }

  // What a person has done who has the caret at that place of the text afterwards.
  struct Edit {
    std::size_t begin = 0;
    std::size_t length = 0;
    std::u16string typed;

    bool operator==(const Edit&) const = default;
  };
  static Edit editBetween(std::u16string_view before, std::u16string_view after, std::size_t caret);

 private:
  using Kind = ShownHtml::Kind;

  struct Change : Edit {
    // Where in the HTML the text goes in.
    std::size_t place = 0;
    // How many units of the text stand behind the caret.
    std::size_t behindCaret = 0;
    // The end of a line follows, although nothing shows it yet.
    bool isBeforeLine = false;
    // A blank at that end would not be seen, although the text beside it does not show why.
    bool hidesFirstBlank = false;
    bool hidesLastBlank = false;
    // It goes to the other side of a bookmark, away from the characters that it was typed beside.
    bool isOutside = false;
    // The tags of lines that become one.
    std::vector<ByteRange> joined;
  };
  // Bytes of the HTML, and what comes in their place.
  struct Rewriting {
    ByteRange bytes;
    std::string_view text;
  };

  void read();
  std::size_t firstFrom(std::size_t byte) const;
  void widen(Edit& edit) const;
  void takeInTyped(Change& edit) const;
  void joinLines(Change& edit) const;
  void stepOutside(Change& edit) const;
  void takeInBlanks(Change& edit) const;
  std::size_t placeFor(const Edit& edit) const;
  std::string written(const Change& edit) const;
  // What goes for it.
  std::vector<ByteRange> removedBy(const Change& edit) const;
  bool findTagsBetween(ByteRange bytes, std::vector<ByteRange>& tags) const;
  bool hasLineTag(std::size_t begin, std::size_t end) const;
  bool needsBreak(const Change& edit) const;
  bool leavesLineEmpty(const Edit& edit) const;
  bool emptiesLastLine(const Edit& edit) const;
  std::size_t rewrite(std::vector<Rewriting> all, std::size_t place);
  void closeSigns(std::vector<Rewriting>& all) const;
  std::vector<Rewriting> closedSigns(const std::vector<Rewriting>& all) const;
  std::vector<Rewriting> closedNumbers(const std::vector<Rewriting>& all,
                                       const std::vector<Rewriting>& signs) const;
  bool is(std::size_t at, Kind kind) const;
  bool isOfLine(std::size_t at) const { return is(at, Kind::line) || is(at, Kind::cell); }
  bool isInLine(std::size_t at) const;
  bool endsLine(std::size_t at) const;
  std::vector<ByteRange> piecesOf(std::size_t begin, std::size_t end, unsigned withoutStyle) const;

  std::string m_html;
  HtmlCharacters m_characters;
  ShownHtml m_shown;
  // What was typed in one go, which is written anew with every character of it: whether a blank has to be one that
  // is not broken depends on what comes behind it. Empty for nothing.
  ByteRange m_typed;
  // Whether it ends with a break that nobody has typed, for a line that would not be seen without it.
  bool m_hasBreak = false;
  std::size_t m_behindCaret = 0;
};

}  // namespace vornlab

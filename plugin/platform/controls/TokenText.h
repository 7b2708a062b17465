#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/TextRange.h"

namespace vorn {

// What stands in a text as one character: a title that a person reads, and what rules keep with it.
struct TokenChip {
  std::string title{};
  std::map<std::string, std::string, std::less<>> fields{};

  // "" for a field that it does not have.
  const std::string& field(std::string_view key) const;
  // As it is copied: what it says, and the address that it stands for, which would be lost without it.
  std::string written() const;
  bool operator==(const TokenChip&) const = default;
};

// A run of plain text, or a chip.
struct TokenPiece {
  std::string text{};
  std::optional<TokenChip> chip{};

  bool operator==(const TokenPiece&) const = default;
};

// The text of a field that holds plain characters and chips, with its caret and selection. A front end forwards
// what the user does and draws what it finds; whoever owns the field takes the input and does what follows.
//
// Positions are UTF-16 units and never inside a surrogate pair: one that would be is moved out of it, and one
// behind the end is the end. A chip is one unit. Everything takes time linear in the text and in what is put in.
// A plain value. Any thread.
class TokenText {
 public:
  // The unit that stands for a chip. In what a user types or pastes it stands for nothing and is left out.
  static constexpr char16_t kChip = 0xFFFC;

  enum class Key { left, right, start, end, deleteBackward, deleteForward, up, down, tab, newLine, escape };
  enum class Extends { no, yes };

  // What the user has done last.
  struct Input {
    // A command is a key that changes nothing here: up, down, tab, newLine or escape.
    enum class Kind { none, changed, pasted, command };
    Kind kind = Kind::none;
    Key command = Key::escape;
    // Where the pasted text stands.
    TextRange pasted{};

    bool operator==(const Input&) const = default;
  };

  // -- What the user does
  void type(std::string_view text);
  void paste(std::string_view text);
  // A move may extend the selection.
  void press(Key key, Extends extends = Extends::no);
  void select(TextRange range);

  // -- What the field's owner does
  // The input is taken once; then there is none until the user does something.
  Input takeInput();
  // Puts the pieces where the range was. A caret in the range goes behind them, one behind it keeps its place in
  // the text.
  void replace(TextRange range, const std::vector<TokenPiece>& pieces);
  void clear();

  // -- What it holds
  std::size_t length() const { return m_units.size(); }
  // Its length is 0 for a caret alone.
  TextRange selection() const;
  // The end of the selection that moves.
  std::size_t caret() const { return m_caret; }
  // Chips by the order of the text.
  const std::vector<TokenChip>& chips() const { return m_chips; }
  bool isChip(std::size_t position) const { return position < m_units.size() && m_units[position] == kChip; }
  // As UTF-8, a chip as its character.
  std::string text(TextRange range) const;
  // Neighbouring characters are one piece.
  std::vector<TokenPiece> pieces() const;
  // With each chip as its title in brackets, for who cannot see it.
  std::string inWords() const;

  bool operator==(const TokenText&) const = default;

 private:
  std::size_t boundary(std::size_t position) const;
  TextRange bounded(TextRange range) const;
  std::size_t before(std::size_t position) const;
  std::size_t after(std::size_t position) const;
  void moveTo(std::size_t caret, Extends extends);
  void remove(TextRange range);
  TextRange insert(std::string_view text);

  std::u16string m_units;
  std::vector<TokenChip> m_chips;
  // The selection is between them, and the caret is the end that moves.
  std::size_t m_anchor = 0;
  std::size_t m_caret = 0;
  Input m_input;
};

}  // namespace vorn

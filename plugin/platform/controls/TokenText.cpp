#include "platform/controls/TokenText.h"

#include <algorithm>
#include <utility>

#include "util/Utf16.h"

namespace vorn {

namespace {

std::u16string plainUnits(std::string_view text) {
  std::u16string units = toUtf16(text);
  std::erase(units, TokenText::kChip);
  return units;
}

std::ptrdiff_t chipsIn(std::u16string_view units) {
  return std::count(units.begin(), units.end(), TokenText::kChip);
}

}  // namespace

const std::string& TokenChip::field(std::string_view key) const {
  static const std::string kNone;
  const auto found = fields.find(key);
  return found == fields.end() ? kNone : found->second;
}

std::string TokenChip::written() const {
  const std::string& email = field("email");
  if (email.empty() || email == title) return title;
  // Pasted back, such a name would be taken for another address or for words between two.
  if (title.find_first_of("@;\r\n") != std::string::npos) return email;
  return title + " <" + email + ">";
}

// -- Positions ---------------------------------------------------------------------------------------------------

std::size_t TokenText::boundary(std::size_t position) const {
  if (position >= m_units.size()) return m_units.size();
  const bool isInPair =
      position > 0 && isHighSurrogate(m_units[position - 1]) && isLowSurrogate(m_units[position]);
  return isInPair ? position - 1 : position;
}

TextRange TokenText::bounded(TextRange range) const {
  const std::size_t from = std::min(range.begin, m_units.size());
  const std::size_t begin = boundary(from);
  if (range.length == 0) return {begin, 0};
  std::size_t end = from + std::min(range.length, m_units.size() - from);
  // A pair of which the range holds one half is in it.
  if (boundary(end) < end) ++end;
  return {begin, end - begin};
}

std::size_t TokenText::before(std::size_t position) const { return position == 0 ? 0 : boundary(position - 1); }

std::size_t TokenText::after(std::size_t position) const {
  const std::size_t next = std::min(position + 1, m_units.size());
  return boundary(next) < next ? next + 1 : next;
}

TextRange TokenText::selection() const {
  const auto [begin, end] = std::minmax(m_anchor, m_caret);
  return {begin, end - begin};
}

// -- What the user does ------------------------------------------------------------------------------------------

void TokenText::remove(TextRange range) {
  const std::u16string_view all = m_units;
  const auto first = m_chips.begin() + chipsIn(all.substr(0, range.begin));
  m_chips.erase(first, first + chipsIn(all.substr(range.begin, range.length)));
  m_units.erase(range.begin, range.length);
}

TextRange TokenText::insert(std::string_view text) {
  const TextRange replaced = selection();
  const std::u16string units = plainUnits(text);
  remove(replaced);
  m_units.insert(replaced.begin, units);
  moveTo(replaced.begin + units.size(), Extends::no);
  return {replaced.begin, units.size()};
}

void TokenText::type(std::string_view text) {
  insert(text);
  m_input = {.kind = Input::Kind::changed};
}

void TokenText::paste(std::string_view text) {
  m_input = {.kind = Input::Kind::pasted};
  m_input.pasted = insert(text);
}

void TokenText::moveTo(std::size_t caret, Extends extends) {
  m_caret = boundary(caret);
  if (extends == Extends::no) m_anchor = m_caret;
}

void TokenText::press(Key key, Extends extends) {
  m_input = {.kind = Input::Kind::changed};
  const TextRange selected = selection();
  const bool collapses = extends == Extends::no && selected.length > 0;
  switch (key) {
    case Key::left: return moveTo(collapses ? selected.begin : before(m_caret), extends);
    case Key::right: return moveTo(collapses ? selected.end() : after(m_caret), extends);
    case Key::start: return moveTo(0, extends);
    case Key::end: return moveTo(m_units.size(), extends);
    case Key::deleteBackward:
    case Key::deleteForward: {
      TextRange gone = selected;
      if (gone.length == 0) {
        const std::size_t begin = key == Key::deleteBackward ? before(m_caret) : m_caret;
        gone = {begin, (key == Key::deleteBackward ? m_caret : after(m_caret)) - begin};
      }
      remove(gone);
      return moveTo(gone.begin, Extends::no);
    }
    case Key::up:
    case Key::down:
    case Key::tab:
    case Key::newLine:
    case Key::escape: m_input = {.kind = Input::Kind::command, .command = key};
  }
}

void TokenText::select(TextRange range) {
  const TextRange inside = bounded(range);
  m_anchor = inside.begin;
  m_caret = inside.end();
  m_input = {.kind = Input::Kind::changed};
}

// -- What the field's owner does ---------------------------------------------------------------------------------

TokenText::Input TokenText::takeInput() { return std::exchange(m_input, {}); }

void TokenText::replace(TextRange range, const std::vector<TokenPiece>& pieces) {
  const TextRange gone = bounded(range);
  std::u16string units;
  std::vector<TokenChip> chips;
  for (const TokenPiece& piece : pieces) {
    if (piece.chip) {
      units += kChip;
      chips.push_back(*piece.chip);
    } else {
      units += plainUnits(piece.text);
    }
  }
  remove(gone);
  const auto place = m_chips.begin() + chipsIn(std::u16string_view(m_units).substr(0, gone.begin));
  m_chips.insert(place, std::make_move_iterator(chips.begin()), std::make_move_iterator(chips.end()));
  m_units.insert(gone.begin, units);
  const auto moved = [&](std::size_t position) {
    if (position < gone.begin) return position;
    return gone.begin + units.size() + (position > gone.end() ? position - gone.end() : 0);
  };
  m_anchor = boundary(moved(m_anchor));
  m_caret = boundary(moved(m_caret));
}

void TokenText::clear() { *this = TokenText(); }

// -- What it holds -----------------------------------------------------------------------------------------------

std::string TokenText::text(TextRange range) const {
  const TextRange inside = bounded(range);
  return toUtf8(std::u16string_view(m_units).substr(inside.begin, inside.length));
}

std::vector<TokenPiece> TokenText::pieces() const {
  std::vector<TokenPiece> all;
  std::size_t chip = 0;
  for (std::size_t at = 0; at < m_units.size();) {
    if (m_units[at] == kChip) {
      all.push_back({.chip = m_chips[chip++]});
      ++at;
      continue;
    }
    const std::size_t end = std::min(m_units.find(kChip, at), m_units.size());
    all.push_back({.text = toUtf8(std::u16string_view(m_units).substr(at, end - at))});
    at = end;
  }
  return all;
}

std::string TokenText::inWords() const {
  std::string words;
  for (const TokenPiece& piece : pieces()) words += piece.chip ? "[" + piece.chip->title + "]" : piece.text;
  return words;
}

}  // namespace vorn

#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace vorn {

// A text as a reader compares it: one unit for each character, whatever it is written as. Escapes of JSON, of
// iCalendar and of URLs and entities of HTML are read, also when one is packed into another; a line that iCalendar
// has folded goes on; letters are lower case, without accents, and of ordinary width. So a rule is written once
// and holds for "@", "%40", "&#64;" and "\u0040".
//
// The text must outlive it. Linear in the text's size. Any thread.
class ReadableText {
 public:
  explicit ReadableText(std::string_view text);
  ReadableText(const ReadableText&) = delete;
  ReadableText& operator=(const ReadableText&) = delete;

  std::size_t size() const { return m_size; }
  // The character at a place; 0 behind the end.
  char32_t operator[](std::size_t at) const { return at < m_size ? m_first[at].character : 0; }
  // Where in the text it begins; the text's size behind the end.
  std::size_t begin(std::size_t at) const { return at < m_size ? m_first[at].begin : m_text.size(); }
  // The first place at or behind that byte.
  std::size_t placeOf(std::size_t byte) const;
  std::string_view text() const { return m_text; }

  // The characters of a word as they would be found in such a text.
  static std::u32string folded(std::string_view words);

 private:
  struct Unit {
    char32_t character;
    std::size_t begin;
  };
  std::string_view m_text;
  std::vector<Unit> m_units;
  // Every rule asks for every character.
  const Unit* m_first = nullptr;
  std::size_t m_size = 0;
};

}  // namespace vorn

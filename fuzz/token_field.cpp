// A field of tokens: what its user does to the text, against a plain list of characters in which a chip is one;
// and what the field makes of it, in whatever order its chips come.
//
// The input: a byte for the account, then acts of a byte for what is done, and what it takes.

#include <algorithm>

#include "fuzz/PanelWorld.h"
#include "settings/VNAlternateHostHelper.h"

namespace {

using vorn::TokenText;
using vorn::fuzzing::check;
using Key = TokenText::Key;

constexpr const char* kField = "alternateHostTextField";

// Positions are those of characters.
class PlainField {
 public:
  explicit PlainField(const TokenText& tokens) {
    const std::string text = tokens.text({0, tokens.length()});
    for (std::size_t at = 0; at < text.size(); at += vorn::utf8SequenceLength(text, at)) {
      m_units.push_back(vorn::characterAt(text, at) > 0xFFFF ? 2 : 1);
      m_text.emplace_back(text.substr(at, vorn::utf8SequenceLength(text, at)));
    }
    m_begin = characterAt(tokens.selection().begin);
    m_end = characterAt(tokens.selection().end());
  }

  void insert(std::string text) {
    const std::string chip = "\uFFFC";
    for (std::size_t at = text.find(chip); at != std::string::npos; at = text.find(chip))
      text.erase(at, chip.size());
    remove();
    for (std::size_t at = 0; at < text.size(); ++m_begin) {
      const std::size_t length = vorn::utf8SequenceLength(text, at);
      m_text.insert(m_text.begin() + static_cast<std::ptrdiff_t>(m_begin), text.substr(at, length));
      at += length;
    }
    m_end = m_begin;
  }
  void press(Key key) {
    if (key == Key::deleteBackward || key == Key::deleteForward) {
      if (m_begin == m_end && key == Key::deleteBackward && m_begin > 0) --m_begin;
      if (m_begin == m_end && key == Key::deleteForward && m_end < m_text.size()) ++m_end;
      remove();
    } else if (key == Key::left) {
      m_end = m_begin = m_begin == m_end && m_begin > 0 ? m_begin - 1 : m_begin;
    } else if (key == Key::right) {
      m_begin = m_end = m_begin == m_end && m_end < m_text.size() ? m_end + 1 : m_end;
    } else if (key == Key::start) {
      m_begin = m_end = 0;
    } else if (key == Key::end) {
      m_begin = m_end = m_text.size();
    }
  }
  std::string text() const {
    std::string all;
    for (const std::string& each : m_text) all += each;
    return all;
  }
  std::size_t begin() const { return m_begin; }
  std::size_t end() const { return m_end; }

 private:
  std::size_t characterAt(std::size_t unit) const {
    std::size_t character = 0;
    for (std::size_t passed = 0; passed < unit; ++character) passed += m_units.at(character);
    return character;
  }
  void remove() {
    m_text.erase(m_text.begin() + static_cast<std::ptrdiff_t>(m_begin),
                 m_text.begin() + static_cast<std::ptrdiff_t>(m_end));
    m_end = m_begin;
  }

  std::vector<std::string> m_text;
  std::vector<std::size_t> m_units;
  std::size_t m_begin = 0;
  std::size_t m_end = 0;
};

void checkSame(const TokenText& tokens, const PlainField& plain) {
  check(tokens.text({0, tokens.length()}) == plain.text(), "both hold the same text");
  const PlainField again(tokens);
  check(again.begin() == plain.begin() && again.end() == plain.end(), "the caret stands in the same place");
}

void checkWhole(const TokenText& tokens) {
  std::size_t chips = 0;
  for (std::size_t at = 0; at < tokens.length(); ++at) chips += tokens.isChip(at) ? 1 : 0;
  check(chips == tokens.chips().size(), "each chip has its place");
  TokenText again;
  again.replace({}, tokens.pieces());
  check(again.inWords() == tokens.inWords(), "the pieces are the whole text");
}

void act(vorn::fuzzing::PanelWorld& world, vorn::fuzzing::Input& input) {
  const unsigned verb = input.byte() % 16;
  if (verb >= 14) return world.wait();
  if (verb == 13) {
    const int index = static_cast<std::int8_t>(input.byte());
    world.click("alternateHostSearchListWindowRows", [index](vorn::Control& list) { list.index = index; });
    return;
  }
  world.click(kField, [&](vorn::Control& field) {
    TokenText& tokens = field.tokens;
    PlainField plain(tokens);
    if (verb < 5) {
      const std::string text = vorn::fuzzing::typedText(verb < 3 ? input.take(1) : input.part());
      tokens.type(text);
      plain.insert(text);
    } else if (verb < 7) {
      const std::string text = vorn::fuzzing::typedText(input.part());
      tokens.paste(text);
      plain.insert(text);
    } else if (verb < 11) {
      const auto key = static_cast<Key>(input.byte() % 11);
      tokens.press(key);
      plain.press(key);
    } else {
      const std::size_t begin = input.byte();
      tokens.select({begin, input.byte()});
      plain = PlainField(tokens);
    }
    checkSame(tokens, plain);
    checkWhole(tokens);
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vorn::fuzzing::Input input(data, std::min<std::size_t>(size, 400));
  vorn::fuzzing::PanelWorld world(input.byte(), false);
  // Whom the list offers.
  vorn::Value known = vorn::Value::array();
  for (const char* each : {"ann@x.example", "anna@x.example", "bo@y.example"}) known.append(each);
  vorn::VNAlternateHostHelper::sharedInstance().addToInputAlternateHostHistory(known);
  while (!input.isEmpty() && world.shown()) {
    act(world, input);
    if (world.shown()) checkWhole(world.shown()->find(kField)->tokens);
  }
  world.wait();
  return 0;
}

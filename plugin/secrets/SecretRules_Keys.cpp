// The rule for values of keys.

#include <algorithm>

#include "secrets/ReadableSigns.h"
#include "secrets/SecretMask.h"
#include "secrets/SecretRules.h"
#include "secrets/SecretTable.h"

namespace vorn {

namespace {

constexpr std::size_t kLongestKey = 80;
constexpr std::size_t kMostBlanksInJson = 64;

std::size_t skipBlanksOfJson(const ReadableText& text, std::size_t at) {
  const std::size_t end = at + kMostBlanksInJson;
  while (at < end && isBlankSign(text[at])) ++at;
  return at;
}

bool isSign(std::string_view text, std::size_t at, char sign) { return at < text.size() && text[at] == sign; }

// A value of JSON among the bytes of a text.
class KeyedValue {
 public:
  KeyedValue(const ReadableText& text, std::size_t place, bool isPacked)
      : m_raw(text.text()), m_begin(text.begin(place)), m_isPacked(isPacked) {
    const std::size_t sign = std::min(m_raw.find_first_not_of('\\', m_begin), m_raw.size());
    if (isSign(m_raw, sign, '"')) {
      readText(sign, sign - m_begin);
    } else if (isSign(m_raw, m_begin, '[') || isSign(m_raw, m_begin, '{')) {
      m_end = endOfContainer();
      m_isBare = true;
      // Nobody is in an empty list.
      if (m_end - m_begin <= 2) m_begin = m_end;
    } else {
      m_end = std::min(m_raw.find_first_of(",;]}\\\" \t\r\n", m_begin), m_raw.size());
      m_isBare = true;
      const std::string_view word = m_raw.substr(m_begin, m_end - m_begin);
      // These hide nothing.
      if (word == "true" || word == "false" || word == "null" || word == "YES" || word == "NO") m_begin = m_end;
    }
  }

  std::size_t begin() const { return m_begin; }
  std::size_t end() const { return m_end; }

  // JSON stays JSON: what had no quotes gets some.
  void cover(CoveredRanges& ranges) const {
    const std::string quote = m_isPacked ? "\\\"" : "\"";
    ranges.add(m_begin, m_end, m_isBare ? quote + std::string(SecretMask::kCover) + quote : "");
  }

 private:
  // A text of JSON that was packed into JSON has backslashes before its own quotes, and more before those inside.
  void readText(std::size_t quote, std::size_t backslashes) {
    m_begin = quote + 1;
    m_end = m_raw.size();
    std::size_t run = 0;
    for (std::size_t i = m_begin; i < m_raw.size(); ++i) {
      if (m_raw[i] == '"' && (backslashes == 0 ? run % 2 == 0 : run <= backslashes)) {
        m_end = std::max(m_begin, i - std::min(run, backslashes));
        return;
      }
      run = m_raw[i] == '\\' ? run + 1 : 0;
    }
  }

  std::size_t endOfContainer() const {
    std::size_t depth = 0;
    bool isInText = false;
    for (std::size_t i = m_begin; i < m_raw.size(); ++i) {
      const char c = m_raw[i];
      if (c == '\\' && !m_isPacked) ++i;
      if (c == '"') isInText = !isInText;
      if (isInText) continue;
      if (c == '[' || c == '{') ++depth;
      if ((c == ']' || c == '}') && --depth == 0) return i + 1;
    }
    return m_raw.size();
  }

  std::string_view m_raw;
  std::size_t m_begin;
  std::size_t m_end = 0;
  bool m_isPacked;
  bool m_isBare = false;
};

// The place of the quote that ends a key which begins at that quote, or 0.
std::size_t endOfKey(const ReadableText& text, std::size_t quote) {
  for (std::size_t at = quote + 1; at <= quote + kLongestKey && at < text.size(); ++at) {
    if (text[at] == '"') return at;
  }
  return 0;
}

// The place of the value behind a key, or 0.
std::size_t valueOfKey(const ReadableText& text, std::size_t keyEnd) {
  const std::size_t colon = skipBlanksOfJson(text, keyEnd + 1);
  if (text[colon] != ':' && text[colon] != '=') return 0;
  const std::size_t value = skipBlanksOfJson(text, colon + 1);
  return value < text.size() ? value : 0;
}

}  // namespace

// Every quote is tried as the one that opens a key, the closing ones too, so that broken or packed JSON leads
// nobody astray.
void coverKeyedValues(const ReadableText& text, CoveredRanges& ranges) {
  const std::string_view raw = text.text();
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t keyEnd = text[at] == '"' ? endOfKey(text, at) : 0;
    const std::size_t value = keyEnd == 0 ? 0 : valueOfKey(text, keyEnd);
    const std::size_t keyBegin = text.begin(at + 1);
    const KeyKind kind =
        value == 0 ? KeyKind::plain : kindOfKey(raw.substr(keyBegin, text.begin(keyEnd) - keyBegin));
    if (kind == KeyKind::plain) {
      ++at;
      continue;
    }
    const KeyedValue keyed(text, value, isSign(raw, text.begin(keyEnd), '\\'));
    if (kind == KeyKind::secret) {
      keyed.cover(ranges);
    } else {
      coverCodes(text, text.placeOf(keyed.begin()), text.placeOf(keyed.end()), ranges);
    }
    at = std::max(text.placeOf(keyed.end()), at + 1);
  }
}

}  // namespace vorn

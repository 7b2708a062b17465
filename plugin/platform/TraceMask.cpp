#include "platform/TraceMask.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <optional>

#include "util/Text.h"
#include "util/Utf16.h"

namespace vorn {

namespace {

using Position = std::size_t;
constexpr Position kNone = std::string_view::npos;

constexpr std::string_view kCover = "******";
// What a person reads at a glance; the rest is told by its size.
constexpr std::size_t kShownBytes = 1000;

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kWordEnds = " \t\r\n\"<>()[]{};,";

// Parts of a JSON key that say: the value behind it is nobody's business. One word of a key is enough.
constexpr std::array<std::string_view, 6> kSecretKeyParts = {"password",       "passcode", "pwd",
                                                             "alternatehosts", "email",    "token"};
// Parameters of a URL, and how their equals sign may be written.
constexpr std::array<std::string_view, 4> kSecretParameters = {"pwd", "passcode", "password", "token"};
constexpr std::array<std::string_view, 3> kEqualsSigns = {"=", "%3d", "\\u003d"};
// The words of an invitation's text that introduce a passcode: this, and one of the endings.
constexpr std::string_view kLabelBegin = "pass";
constexpr std::array<std::string_view, 2> kLabelEnds = {"code", "word"};
constexpr std::size_t kLabelSize = 8;
// The forms of the sign that makes an address.
constexpr std::array<std::string_view, 5> kAtSigns = {"@", "%40", "\\u0040", "&#64", "&#x40"};

// Bounds on what may stand between a label or a key and what belongs to it. Without them a text of nothing but
// labels would be read again for each of them.
constexpr std::size_t kLongestKey = 80;
constexpr std::size_t kLongestTag = 256;
constexpr std::size_t kMostBlanks = 64;

// Runs of these letters of this length are packed data and no words.
constexpr std::size_t kShortestPacked = 40;
constexpr std::size_t kShortestPaddedPacked = 16;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isLetterOrDigit(char c) { return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool startsAt(std::string_view text, Position at, std::string_view part) {
  return text.substr(std::min(at, text.size()), part.size()) == part;
}

template <std::size_t N>
bool holdsAny(std::string_view text, const std::array<std::string_view, N>& parts) {
  return std::any_of(parts.begin(), parts.end(), [&](std::string_view part) { return text.find(part) != kNone; });
}

Position skipBlanks(std::string_view text, Position at) {
  const Position end = std::min(text.size(), at + kMostBlanks);
  while (at < end && kBlanks.find(text[at]) != kNone) ++at;
  return at;
}

// The bytes that a packed field holds; absent when the word is none.
std::optional<std::size_t> packedBytes(std::string_view word) {
  std::size_t end = word.size();
  while (end > 0 && word.size() - end < 2 && word[end - 1] == '=') --end;
  const bool isPadded = end < word.size();
  std::size_t letters = 0;
  for (Position i = 0; i < end; ++i) {
    // A JSON writer may put a backslash before a slash.
    if (word[i] == '\\' && i + 1 < end && word[i + 1] == '/') continue;
    if (!isLetterOrDigit(word[i]) && word[i] != '+' && word[i] != '/') return std::nullopt;
    ++letters;
  }
  if (letters < (isPadded ? kShortestPaddedPacked : kShortestPacked)) return std::nullopt;
  return letters * 3 / 4;
}

// The numeric passcode in a telephone number that is dialled at one tap.
bool isDialledPasscode(std::string_view word) {
  return word.size() > 2 && word.front() == '*' && word.back() == '#' &&
         std::all_of(word.begin() + 1, word.end() - 1, isDigit);
}

// Goes through the text once, from left to right, and gathers what may be seen.
class Cover {
 public:
  Cover(std::string_view text, std::size_t mostBytes) : m_text(text), m_mostBytes(mostBytes) {}

  std::string run() {
    while (m_at < m_text.size() && m_seen.size() < m_mostBytes) {
      if (m_text[m_at] == '"') {
        takeQuote();
      } else if (kWordEnds.find(m_text[m_at]) != kNone) {
        m_seen += m_text[m_at++];
      } else {
        takeWord();
      }
    }
    const std::size_t leftOut = m_text.size() - m_at;
    std::string_view shown = m_seen;
    if (shown.size() > m_mostBytes) {
      std::size_t cut = m_mostBytes;
      while (cut > 0 && (static_cast<unsigned char>(shown[cut]) & 0xC0) == 0x80) --cut;
      shown = shown.substr(0, cut);
    }
    const std::size_t notShown = leftOut + (m_seen.size() - shown.size());
    std::string result(shown);
    if (notShown > 0) result += "… <" + std::to_string(notShown) + " bytes more>";
    return result;
  }

 private:
  // A quote may open a key with a secret behind it. Every quote is tried, the closing ones too, so that broken
  // or packed JSON leads nobody astray.
  void takeQuote() {
    const Position keyEnd = m_text.substr(0, m_at + kLongestKey).find('"', m_at + 1);
    const Position value = keyEnd == kNone ? kNone : valueOfKey(keyEnd);
    const bool isSecret =
        value != kNone && holdsAny(asciiLower(std::string(m_text.substr(m_at, keyEnd - m_at))), kSecretKeyParts);
    if (!isSecret) {
      m_seen += m_text[m_at++];
      return;
    }
    coverFrom(value, endOfValue(value, m_text[keyEnd - 1] == '\\'));
  }

  Position valueOfKey(Position keyEnd) const {
    const Position colon = skipBlanks(m_text, keyEnd + 1);
    return startsAt(m_text, colon, ":") ? skipBlanks(m_text, colon + 1) : kNone;
  }

  // Behind the value's last byte. Words such as true stay; they hide nothing.
  Position endOfValue(Position value, bool isPacked) const {
    if (value >= m_text.size()) return m_text.size();
    const Position quote = m_text.find_first_not_of('\\', value);
    if (startsAt(m_text, quote, "\"")) return endOfText(quote, quote - value);
    if (m_text[value] == '[' || m_text[value] == '{') return endOfContainer(value, isPacked);
    if (isDigit(m_text[value]) || m_text[value] == '-')
      return std::min(m_text.find_first_of(",]} \r\n", value), m_text.size());
    return value;
  }

  // A text of JSON that was packed into JSON has backslashes before its own quotes, and more before those inside.
  Position endOfText(Position quote, std::size_t backslashes) const {
    std::size_t run = 0;
    for (Position i = quote + 1; i < m_text.size(); ++i) {
      if (m_text[i] == '"' && (backslashes == 0 ? run % 2 == 0 : run <= backslashes)) return i + 1;
      run = m_text[i] == '\\' ? run + 1 : 0;
    }
    return m_text.size();
  }

  Position endOfContainer(Position open, bool isPacked) const {
    std::size_t depth = 0;
    bool isInText = false;
    for (Position i = open; i < m_text.size(); ++i) {
      const char c = m_text[i];
      if (c == '\\' && !isPacked) ++i;
      if (c == '"') isInText = !isInText;
      if (isInText) continue;
      if (c == '[' || c == '{') ++depth;
      if ((c == ']' || c == '}') && --depth == 0) return i + 1;
    }
    return m_text.size();
  }

  void coverFrom(Position begin, Position end) {
    takeWayTo(begin);
    if (end > begin) m_seen.append("\"").append(kCover).append("\"");
    m_at = end;
  }

  // A key or a label, with what stands before its value. It may itself hold what must not be seen.
  void takeWayTo(Position value) {
    const std::string_view way = m_text.substr(m_at, value - m_at);
    const std::string lower = asciiLower(std::string(way));
    bool isSecret = holdsAny(lower, kAtSigns);
    for (Position i = 0; !isSecret && i < lower.size(); ++i) isSecret = valueOfParameter(lower, i) != kNone;
    m_seen += isSecret ? kCover : way;
    m_at = value;
  }

  void takeWord() {
    const Position end = std::min(m_text.find_first_of(kWordEnds, m_at), m_text.size());
    const std::string_view word = m_text.substr(m_at, end - m_at);
    const std::string lower = asciiLower(std::string(word));
    for (Position label = nextLabel(lower, 0); label != kNone; label = nextLabel(lower, label + 1)) {
      const Position value = valueOfLabel(m_at + label);
      if (value == kNone) continue;
      takePlainWord(word.substr(0, label), std::string_view(lower).substr(0, label));
      m_at += label;
      takeWayTo(value);
      m_seen += kCover;
      m_at = endOfPasscode(value);
      return;
    }
    takePlainWord(word, lower);
    m_at = end;
  }

  static Position nextLabel(const std::string& lower, Position from) {
    for (Position at = lower.find(kLabelBegin, from); at != kNone; at = lower.find(kLabelBegin, at + 1)) {
      for (const std::string_view end : kLabelEnds) {
        if (startsAt(lower, at + kLabelBegin.size(), end)) return at;
      }
    }
    return kNone;
  }

  // Where the passcode behind a label begins: after a colon, blanks and marks of HTML.
  Position valueOfLabel(Position label) const {
    Position at = skipMarks(label + kLabelSize);
    if (startsAt(m_text, at, ":")) return skipMarks(at + 1);
    if (startsAt(m_text, at, "：")) return skipMarks(at + std::string_view("：").size());
    return kNone;
  }

  Position skipMarks(Position at) const {
    const Position bound = at + kLongestTag;
    while (at < std::min(m_text.size(), bound)) {
      const Position before = at;
      at = skipBlanks(m_text, at);
      for (const std::string_view blank : {"&nbsp;", "\u00A0", "\\n", "\\r", "\\t", "*"}) {
        if (startsAt(m_text, at, blank)) at += blank.size();
      }
      if (startsAt(m_text, at, "<")) {
        const Position close = m_text.substr(0, bound).find('>', at);
        if (close != kNone) at = close + 1;
      }
      if (at == before) break;
    }
    return std::min(at, m_text.size());
  }

  Position endOfPasscode(Position value) const {
    for (Position i = value; i < m_text.size(); ++i) {
      const char c = m_text[i];
      if (kBlanks.find(c) != kNone) return i;
      if (c == '"' && (i == value || m_text[i - 1] != '\\')) return i;
      if (c == '<' && i + 1 < m_text.size() && (m_text[i + 1] == '/' || isLetterOrDigit(m_text[i + 1]))) return i;
    }
    return m_text.size();
  }

  void takePlainWord(std::string_view word, std::string_view lower) {
    if (const std::optional<std::size_t> bytes = packedBytes(word)) {
      m_seen += "<base64, " + std::to_string(*bytes) + " bytes>";
    } else if (isDialledPasscode(word) || holdsAny(lower, kAtSigns)) {
      m_seen += kCover;
    } else {
      takeParameters(word, lower);
    }
  }

  // A word with the values of secret parameters covered.
  void takeParameters(std::string_view word, std::string_view lower) {
    Position i = 0;
    while (i < word.size()) {
      const Position value = valueOfParameter(lower, i);
      if (value == kNone) {
        m_seen += word[i++];
        continue;
      }
      m_seen.append(word.substr(i, value - i)).append(kCover);
      i = std::min(word.find_first_of("&#", value), word.size());
    }
  }

  // Behind the equals sign when a secret parameter's name stands there. Nothing is asked of what stands before:
  // the URL may be packed into another one.
  static Position valueOfParameter(std::string_view lower, Position at) {
    for (const std::string_view name : kSecretParameters) {
      if (!startsAt(lower, at, name)) continue;
      for (const std::string_view sign : kEqualsSigns) {
        if (startsAt(lower, at + name.size(), sign)) return at + name.size() + sign.size();
      }
    }
    return kNone;
  }

  std::string_view m_text;
  std::size_t m_mostBytes;
  Position m_at = 0;
  std::string m_seen;
};

}  // namespace

std::string TraceMask::covered(std::string_view text) { return Cover(text, kShownBytes).run(); }

std::string TraceMask::coveredWhole(std::string_view text) {
  return Cover(text, std::numeric_limits<std::size_t>::max()).run();
}

}  // namespace vorn

#include "channel/transport/EnvelopeMask.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "channel/transport/vnIPCConstants.h"
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

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

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
  explicit Cover(std::string_view text) : text_(text) {}

  std::string run() {
    while (at_ < text_.size() && seen_.size() < kShownBytes) {
      if (text_[at_] == '"') {
        takeQuote();
      } else if (kWordEnds.find(text_[at_]) != kNone) {
        seen_ += text_[at_++];
      } else {
        takeWord();
      }
    }
    const std::size_t leftOut = text_.size() - at_;
    std::string_view shown = seen_;
    if (shown.size() > kShownBytes) {
      std::size_t cut = kShownBytes;
      while (cut > 0 && (static_cast<unsigned char>(shown[cut]) & 0xC0) == 0x80) --cut;
      shown = shown.substr(0, cut);
    }
    const std::size_t notShown = leftOut + (seen_.size() - shown.size());
    std::string result(shown);
    if (notShown > 0) result += "… <" + std::to_string(notShown) + " bytes more>";
    return result;
  }

 private:
  // A quote may open a key with a secret behind it. Every quote is tried, the closing ones too, so that broken
  // or packed JSON leads nobody astray.
  void takeQuote() {
    const Position keyEnd = text_.substr(0, at_ + kLongestKey).find('"', at_ + 1);
    const Position value = keyEnd == kNone ? kNone : valueOfKey(keyEnd);
    const bool isSecret = value != kNone && holdsAny(lowerCase(text_.substr(at_, keyEnd - at_)), kSecretKeyParts);
    if (!isSecret) {
      seen_ += text_[at_++];
      return;
    }
    coverFrom(value, endOfValue(value, text_[keyEnd - 1] == '\\'));
  }

  Position valueOfKey(Position keyEnd) const {
    const Position colon = skipBlanks(text_, keyEnd + 1);
    return startsAt(text_, colon, ":") ? skipBlanks(text_, colon + 1) : kNone;
  }

  // Behind the value's last byte. Words such as true stay; they hide nothing.
  Position endOfValue(Position value, bool isPacked) const {
    if (value >= text_.size()) return text_.size();
    const Position quote = text_.find_first_not_of('\\', value);
    if (startsAt(text_, quote, "\"")) return endOfText(quote, quote - value);
    if (text_[value] == '[' || text_[value] == '{') return endOfContainer(value, isPacked);
    if (isDigit(text_[value]) || text_[value] == '-')
      return std::min(text_.find_first_of(",]} \r\n", value), text_.size());
    return value;
  }

  // A text of JSON that was packed into JSON has backslashes before its own quotes, and more before those inside.
  Position endOfText(Position quote, std::size_t backslashes) const {
    std::size_t run = 0;
    for (Position i = quote + 1; i < text_.size(); ++i) {
      if (text_[i] == '"' && (backslashes == 0 ? run % 2 == 0 : run <= backslashes)) return i + 1;
      run = text_[i] == '\\' ? run + 1 : 0;
    }
    return text_.size();
  }

  Position endOfContainer(Position open, bool isPacked) const {
    std::size_t depth = 0;
    bool isInText = false;
    for (Position i = open; i < text_.size(); ++i) {
      const char c = text_[i];
      if (c == '\\' && !isPacked) ++i;
      if (c == '"') isInText = !isInText;
      if (isInText) continue;
      if (c == '[' || c == '{') ++depth;
      if ((c == ']' || c == '}') && --depth == 0) return i + 1;
    }
    return text_.size();
  }

  void coverFrom(Position begin, Position end) {
    takeWayTo(begin);
    if (end > begin) seen_.append("\"").append(kCover).append("\"");
    at_ = end;
  }

  // A key or a label, with what stands before its value. It may itself hold what must not be seen.
  void takeWayTo(Position value) {
    const std::string_view way = text_.substr(at_, value - at_);
    const std::string lower = lowerCase(way);
    bool isSecret = holdsAny(lower, kAtSigns);
    for (Position i = 0; !isSecret && i < lower.size(); ++i) isSecret = valueOfParameter(lower, i) != kNone;
    seen_ += isSecret ? kCover : way;
    at_ = value;
  }

  void takeWord() {
    const Position end = std::min(text_.find_first_of(kWordEnds, at_), text_.size());
    const std::string_view word = text_.substr(at_, end - at_);
    const std::string lower = lowerCase(word);
    for (Position label = nextLabel(lower, 0); label != kNone; label = nextLabel(lower, label + 1)) {
      const Position value = valueOfLabel(at_ + label);
      if (value == kNone) continue;
      takePlainWord(word.substr(0, label), std::string_view(lower).substr(0, label));
      at_ += label;
      takeWayTo(value);
      seen_ += kCover;
      at_ = endOfPasscode(value);
      return;
    }
    takePlainWord(word, lower);
    at_ = end;
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
    if (startsAt(text_, at, ":")) return skipMarks(at + 1);
    if (startsAt(text_, at, "：")) return skipMarks(at + std::string_view("：").size());
    return kNone;
  }

  Position skipMarks(Position at) const {
    const Position bound = at + kLongestTag;
    while (at < std::min(text_.size(), bound)) {
      const Position before = at;
      at = skipBlanks(text_, at);
      for (const std::string_view blank : {"&nbsp;", "\u00A0", "\\n", "\\r", "\\t", "*"}) {
        if (startsAt(text_, at, blank)) at += blank.size();
      }
      if (startsAt(text_, at, "<")) {
        const Position close = text_.substr(0, bound).find('>', at);
        if (close != kNone) at = close + 1;
      }
      if (at == before) break;
    }
    return std::min(at, text_.size());
  }

  Position endOfPasscode(Position value) const {
    for (Position i = value; i < text_.size(); ++i) {
      const char c = text_[i];
      if (kBlanks.find(c) != kNone) return i;
      if (c == '"' && (i == value || text_[i - 1] != '\\')) return i;
      if (c == '<' && i + 1 < text_.size() && (text_[i + 1] == '/' || isLetterOrDigit(text_[i + 1]))) return i;
    }
    return text_.size();
  }

  void takePlainWord(std::string_view word, std::string_view lower) {
    if (const std::optional<std::size_t> bytes = packedBytes(word)) {
      seen_ += "<base64, " + std::to_string(*bytes) + " bytes>";
    } else if (isDialledPasscode(word) || holdsAny(lower, kAtSigns)) {
      seen_ += kCover;
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
        seen_ += word[i++];
        continue;
      }
      seen_.append(word.substr(i, value - i)).append(kCover);
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

  std::string_view text_;
  Position at_ = 0;
  std::string seen_;
};

}  // namespace

Value EnvelopeMask::facts(const Value& envelope) {
  const std::string& content = envelope[VN_IPC_CONTENT].text();
  return Value::dictionaryFromPairs({{"action", envelope[VN_IPC_ACTION_ID].stringValue()},
                                     {"bytes", content.size()},
                                     {"content", covered(content)}});
}

std::string EnvelopeMask::covered(std::string_view content) { return Cover(content).run(); }

}  // namespace vorn

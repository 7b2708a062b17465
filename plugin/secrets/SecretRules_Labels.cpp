// The rule for secrets behind the words that announce them.

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "secrets/ReadableSigns.h"
#include "secrets/SecretMask.h"
#include "secrets/SecretRules.h"
#include "secrets/SecretTable.h"

namespace vorn {

namespace {

// Bounds on what may stand between a label and its secret, and on how far a word is looked at before it is taken
// for one. Without them a text of nothing but labels would be read again for each of them.
constexpr std::size_t kFarthestValue = 300;
constexpr std::size_t kLongestTag = 256;
constexpr std::size_t kLongestBracket = 64;
constexpr std::size_t kLongestWord = 64;
constexpr std::size_t kMostGroups = 4;

constexpr std::size_t kShortestNumber = 4;
// A code that stands behind a word with many meanings.
constexpr std::size_t kShortestCode = 5;

using Words = std::vector<std::u32string>;

Words foldedWords(std::span<const std::string_view> table) {
  Words words;
  for (const std::string_view each : table) words.push_back(ReadableText::folded(each));
  return words;
}

struct FoldedLabel {
  std::u32string words;
  SecretLabel::Stands stands;
  SecretLabel::Means means;
};

// The labels by their first character; of those that begin alike the longest is the first.
using Labels = std::map<char32_t, std::vector<FoldedLabel>>;

const Labels& foldedLabels() {
  static const Labels labels = [] {
    Labels made;
    for (const SecretLabel& label : secretLabels()) {
      const std::u32string words = ReadableText::folded(label.words);
      made[words.front()].push_back({words, label.stands, label.means});
    }
    for (auto& [first, alike] : made) {
      std::sort(alike.begin(), alike.end(),
                [](const FoldedLabel& a, const FoldedLabel& b) { return a.words.size() > b.words.size(); });
    }
    return made;
  }();
  return labels;
}

// Whether any label may begin with these two characters. Nearly every place of a text is passed by this answer.
bool mayBeginLabel(char32_t first, char32_t second) {
  constexpr std::size_t kAscii = 0x80;
  static const std::vector<char> pairs = [] {
    std::vector<char> made(kAscii * kAscii, 0);
    for (const auto& [begin, alike] : foldedLabels()) {
      for (const FoldedLabel& label : alike) {
        if (begin < kAscii && label.words[1] < kAscii) made[begin * kAscii + label.words[1]] = 1;
      }
    }
    return made;
  }();
  return first >= kAscii || (second < kAscii && pairs[first * kAscii + second] != 0);
}

bool isWordSign(char32_t c) { return isLetterSign(c) || isDigitSign(c); }

bool isWordEnd(const ReadableText& text, std::size_t at) {
  return !isLetterSign(text[at]) || isOfWordlessScript(text[at]) || isOfWordlessScript(text[at - 1]);
}

// The place behind any of the words that stands there as a whole, or 0.
std::size_t endOfAny(const ReadableText& text, std::size_t at, const Words& words) {
  for (const std::u32string& each : words) {
    const std::size_t end = endOfWords(text, at, each);
    if (end != 0 && (!isWordSign(each.back()) || !isWordSign(text[end]))) return end;
  }
  return 0;
}

// Whether the word that ends before that place says that a code is none to hide.
bool isPlainCode(const ReadableText& text, std::size_t label) {
  static const Words words = foldedWords(wordsOfPlainCodes());
  std::size_t end = label;
  while (end > 0 && (isBlankSign(text[end - 1]) || isDash(text[end - 1])) && label - end < 3) --end;
  return std::any_of(words.begin(), words.end(), [&](const std::u32string& word) {
    return end >= word.size() && endOfWords(text, end - word.size(), word) == end;
  });
}

// What stands between a label and its value.
struct Way {
  std::size_t value = 0;
  bool hasColon = false;
  // A tab, a tag that is more than a change of letters, a quote: what follows belongs to the label.
  bool isCell = false;
  bool hasLineEnd = false;
};

// The place behind a tag that begins there, or 0.
std::size_t endOfTag(const ReadableText& text, std::size_t at) {
  if (text[at] != '<') return 0;
  for (std::size_t i = at + 1; i < at + kLongestTag && i < text.size(); ++i) {
    if (text[i] == '>') return i + 1;
  }
  return 0;
}

bool isInlineTag(const ReadableText& text, std::size_t at) {
  static const Words names = foldedWords(std::to_array<std::string_view>(
      {"b", "i", "u", "a", "em", "strong", "span", "font", "small", "big", "mark", "wbr"}));
  const std::size_t name = text[at + 1] == '/' ? at + 2 : at + 1;
  return endOfAny(text, name, names) != 0;
}

std::size_t endOfBracket(const ReadableText& text, std::size_t at) {
  if (text[at] != '(') return 0;
  for (std::size_t i = at + 1; i < at + kLongestBracket && i < text.size() && !isLineEnd(text[i]); ++i) {
    if (text[i] == ')') return i + 1;
  }
  return 0;
}

// Whether the cover of an earlier turn stands there, and no marks of a text.
bool isCover(const ReadableText& text, std::size_t at) {
  for (std::size_t i = 0; i < SecretMask::kCover.size(); ++i) {
    if (text[at + i] != '*') return false;
  }
  return true;
}

// The place where the next part of a way ends; the place itself where the value begins.
std::size_t nextOnWay(const ReadableText& text, std::size_t at, Way& way) {
  static const Words before = foldedWords(wordsBeforeSecret());
  const char32_t c = text[at];
  if (isCover(text, at)) return at;
  if (c == ' ' || c == '*' || c == '_' || c == '`') return at + 1;
  if (c == '\t') way.isCell = true;
  if (isLineEnd(c)) way.hasLineEnd = true;
  if (c == '\t' || isLineEnd(c)) return at + 1;
  if (!way.hasColon && (c == ':' || c == '=')) {
    way.hasColon = true;
    return text[at + 1] == '>' ? at + 2 : at + 1;
  }
  if (const std::size_t end = endOfTag(text, at); end != 0) {
    way.isCell = way.isCell || !isInlineTag(text, at);
    return end;
  }
  if (way.hasColon) return at;
  if (isDash(c) && isBlankSign(text[at + 1])) return at + 1;
  if (const std::size_t end = endOfBracket(text, at); end != 0) return end;
  if (isBlankSign(text[at - 1])) {
    if (const std::size_t end = endOfAny(text, at, before); end != 0) return end;
  }
  return at;
}

Way wayFrom(const ReadableText& text, std::size_t labelEnd) {
  Way way;
  way.value = labelEnd;
  while (way.value < text.size() && way.value < labelEnd + kFarthestValue) {
    const std::size_t next = nextOnWay(text, way.value, way);
    if (next == way.value) break;
    way.value = next;
  }
  return way;
}

bool isOpeningQuote(char32_t c) {
  return c == '"' || c == '\'' || c == 0x201C || c == 0x201E || c == 0x2018 || c == 0x201A || c == 0xAB;
}

bool isClosingQuote(char32_t open, char32_t c) {
  if (open == '"' || open == '\'') return c == open;
  return c == 0x201C || c == 0x201D || c == 0x2018 || c == 0x2019 || c == 0xBB;
}

bool isOneByte(const ReadableText& text, std::size_t at) { return text.begin(at + 1) - text.begin(at) == 1; }

bool endsWord(const ReadableText& text, std::size_t at) {
  const char32_t c = text[at];
  if (at >= text.size() || isBlankSign(c)) return true;
  if (c == '<') return text[at + 1] == '/' || isWordSign(text[at + 1]);
  // A passcode may hold a quote, which JSON writes with a backslash.
  return c == '"' && isOneByte(text, at);
}

// The end of a number that is written in groups, such as "562 780".
std::size_t endOfGroups(const ReadableText& text, std::size_t begin, std::size_t end) {
  const auto isGroup = [&text](std::size_t from, std::size_t to) {
    if (to - from < 2 || to - from > 4) return false;
    for (std::size_t i = from; i < to; ++i) {
      if (!isDigitSign(text[i])) return false;
    }
    return true;
  };
  for (std::size_t count = 0; count < kMostGroups && isGroup(begin, end) && text[end] == ' '; ++count) {
    std::size_t next = end + 1;
    while (isDigitSign(text[next]) && next - end <= 5) ++next;
    if (!isGroup(end + 1, next) || !endsWord(text, next)) break;
    begin = end + 1;
    end = next;
  }
  return end;
}

// The word behind a label, as far as it is looked at.
struct Word {
  std::size_t length = 0;
  std::size_t digits = 0;
  bool isAloneOnItsLine = false;
  bool endsWithHash = false;
};

Word wordAt(const ReadableText& text, std::size_t at) {
  Word word;
  std::size_t end = at;
  for (; end < at + kLongestWord && !endsWord(text, end); ++end) {
    ++word.length;
    if (isDigitSign(text[end])) ++word.digits;
  }
  word.endsWithHash = end > at && text[end - 1] == '#';
  std::size_t next = end;
  while (next < end + kLongestWord && text[next] == ' ') ++next;
  word.isAloneOnItsLine =
      next >= text.size() || isLineEnd(text[next]) || text[next] == '<' || text[next] == '"' || text[next] == '\t';
  return word;
}

class LabelRule {
 public:
  LabelRule(const ReadableText& text, CoveredRanges& ranges) : m_text(text), m_ranges(ranges) {}

  void run() {
    const Labels& labels = foldedLabels();
    for (std::size_t at = 0; at < m_text.size();) {
      if (!mayBeginLabel(m_text[at], m_text[at + 1])) {
        ++at;
        continue;
      }
      const auto alike = labels.find(m_text[at]);
      std::size_t next = at + 1;
      if (alike != labels.end()) {
        for (const FoldedLabel& label : alike->second) {
          const std::size_t goOnAt = coverBehind(at, label);
          if (goOnAt == 0) continue;
          next = goOnAt;
          break;
        }
      }
      at = next;
    }
  }

 private:
  // Covers it, and answers where to go on; 0 when the label does not stand there or announces nothing.
  std::size_t coverBehind(std::size_t at, const FoldedLabel& label) {
    std::size_t end = endOfWords(m_text, at, label.words);
    if (end == 0) return 0;
    if (label.stands == SecretLabel::Stands::alone && at > 0 && isWordSign(m_text[at - 1])) return 0;
    if (m_text[end] == 's' && isWordEnd(m_text, end + 1)) ++end;
    if (!isWordEnd(m_text, end)) return 0;
    const Way way = wayFrom(m_text, end);
    if (way.value == end || way.value >= m_text.size() || standsNoSecret(m_text, way.value)) return 0;
    if (!announces(way, at, label)) return 0;
    const bool isQuoted = isOpeningQuote(m_text[way.value]);
    const std::size_t begin = isQuoted ? way.value + 1 : way.value;
    // As in a URL, where other parameters follow.
    const bool isParameter = m_text[end] == '=' && way.value == end + 1;
    const std::size_t valueEnd = isQuoted      ? endOfQuote(way.value)
                                 : isParameter ? endOfParameterValue(begin)
                                               : endOfValue(begin);
    m_ranges.add(m_text.begin(begin), m_text.begin(valueEnd));
    // What was taken for a value may be the label of the next one, and so may what was passed over on the way to
    // it, such as a text that only looks like a tag.
    return isParameter ? valueEnd : end;
  }

  bool announces(const Way& way, std::size_t at, const FoldedLabel& label) const {
    const Word word = wordAt(m_text, way.value);
    if (label.means == SecretLabel::Means::manyThings) {
      if (isPlainCode(m_text, at) || word.digits == 0) return false;
      return way.hasColon || way.isCell || word.digits >= kShortestCode || word.endsWithHash;
    }
    if (way.hasColon || way.isCell) return true;
    const bool isNumber = word.digits > 0 && word.length >= kShortestNumber;
    if (way.hasLineEnd) return isNumber || word.isAloneOnItsLine;
    return isNumber || isOpeningQuote(m_text[way.value]);
  }

  std::size_t endOfQuote(std::size_t open) {
    for (std::size_t i = open + 1; i < open + kLongestTag && i < m_text.size() && !isLineEnd(m_text[i]); ++i) {
      if (isClosingQuote(m_text[open], m_text[i])) return i;
    }
    return endOfValue(open + 1);
  }

  std::size_t endOfParameterValue(std::size_t begin) const {
    std::size_t end = begin;
    while (!endsWord(m_text, end) && m_text[end] != '&' && m_text[end] != '#') ++end;
    return end;
  }

  std::size_t endOfValue(std::size_t begin) {
    // Within a word that was read before, its end is known.
    std::size_t end = begin >= m_lastWordBegin ? std::max(begin, m_lastWordEnd) : begin;
    while (!endsWord(m_text, end)) ++end;
    if (end > m_lastWordEnd) {
      m_lastWordBegin = begin;
      m_lastWordEnd = end;
    }
    return endOfGroups(m_text, begin, end);
  }

  const ReadableText& m_text;
  CoveredRanges& m_ranges;
  std::size_t m_lastWordBegin = 0;
  std::size_t m_lastWordEnd = 0;
};

}  // namespace

bool standsNoSecret(const ReadableText& text, std::size_t at) {
  static const Words words = foldedWords(wordsOfNoSecret());
  return endOfAny(text, at, words) != 0;
}

void coverLabelledValues(const ReadableText& text, CoveredRanges& ranges) { LabelRule(text, ranges).run(); }

}  // namespace vorn

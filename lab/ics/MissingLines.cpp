#include "lab/ics/MissingLines.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <vector>

#include "util/CharacterSets.h"
#include "util/HtmlText.h"
#include "util/Text.h"
#include "util/TextSearch.h"
#include "util/Utf16.h"

namespace vornlab {

namespace {

using Words = std::vector<std::string_view>;

// Of a body with an invitation in it both forms were stored by a host with the plug-in, and said the same.
// Programs that write both for themselves make them of one source, with differences of all kinds.
bool holdsInvitation(std::string_view html) {
  return vorn::findText(html, "MacVnBookmark") != std::string_view::npos;
}

bool isInWord(std::string_view text, std::size_t at) {
  return u_isalnum(static_cast<UChar32>(vorn::characterAt(text, at))) != 0;
}

// Takes the next word out of the text; "" at the end.
std::string_view takeWord(std::string_view& text) {
  std::size_t begin = 0;
  while (begin < text.size() && !isInWord(text, begin)) begin += vorn::utf8SequenceLength(text, begin);
  std::size_t end = begin;
  while (end < text.size() && isInWord(text, end)) end += vorn::utf8SequenceLength(text, end);
  const std::string_view word = text.substr(begin, end - begin);
  text.remove_prefix(end);
  return word;
}

void addWords(Words& words, std::string_view text) {
  for (std::string_view word = takeWord(text); !word.empty(); word = takeWord(text)) words.push_back(word);
}

// Many writers of plain text put a link's address behind its words.
void addWordsOfAddresses(Words& words, std::string_view html) {
  for (const std::string_view name : {"href=", "src="}) {
    std::size_t at = html.find(name);
    while (at != std::string_view::npos) {
      const std::size_t begin = html.find_first_not_of("\"'", at + name.size());
      if (begin == std::string_view::npos) return;
      const std::size_t end = std::min(html.find_first_of("\"'<> \t\r\n", begin), html.size());
      addWords(words, html.substr(begin, end - begin));
      at = html.find(name, end);
    }
  }
}

// Elements with text that nobody sees, and comments.
bool mayHideText(std::string_view tag) {
  const std::string beginning = vorn::asciiLower(std::string(tag.substr(0, 3)));
  return beginning.starts_with("<!") || beginning == "<sc" || beginning == "<st" || beginning == "<ti";
}

// The length of an entity in front that stands for no letter or digit; 0 for another.
std::size_t lengthOfSign(std::string_view html) {
  for (const std::string_view sign : {"&nbsp;", "&amp;", "&lt;", "&gt;", "&quot;"}) {
    if (html.starts_with(sign)) return sign.size();
  }
  return 0;
}

// Also every byte of what is not ASCII.
bool isLetterOrDigit(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 || std::isalnum(byte) != 0;
}

// Whether both have the same letters and digits in the same order, as all bodies have that were stored here. False
// also where only a parser, which takes many times as long, can tell.
bool readAlike(std::string_view html, std::string_view text) {
  std::size_t skipped = 0;
  for (; !html.empty(); html.remove_prefix(skipped)) {
    skipped = 1;
    if (html.front() == '<') {
      skipped = html.find('>') + 1;
      if (skipped == 0 || mayHideText(html)) return false;
    } else if (html.front() == '&') {
      skipped = lengthOfSign(html);
      if (skipped == 0) return false;
    } else if (isLetterOrDigit(html.front())) {
      while (!text.empty() && !isLetterOrDigit(text.front())) text.remove_prefix(1);
      if (!text.starts_with(html.front())) return false;
      text.remove_prefix(1);
    }
  }
  return std::none_of(text.begin(), text.end(), isLetterOrDigit);
}

// "2." or "b)" in front of an item, which the HTML of a list leaves to its reader.
bool isListSign(std::string_view word, std::string_view rest) {
  constexpr std::size_t kLongest = 3;
  return word.size() <= kLongest && (rest.starts_with(". ") || rest.starts_with(") "));
}

// Such as an arrow or a face, which say something by themselves; not what stands for an image, nor what rules and
// frames are drawn with.
bool isPicture(char32_t character) {
  constexpr char32_t object = 0xFFFC;
  const bool isOfFrame = character >= 0x2500 && character <= 0x257F;
  return character >= 0x80 && character != object && !isOfFrame &&
         u_isgraph(static_cast<UChar32>(character)) != 0 && u_isalnum(static_cast<UChar32>(character)) == 0;
}

std::set<char32_t> picturesIn(std::string_view text) {
  std::set<char32_t> pictures;
  for (std::size_t at = 0; at < text.size(); at += vorn::utf8SequenceLength(text, at)) {
    const char32_t character = vorn::characterAt(text, at);
    if (isPicture(character)) pictures.insert(character);
  }
  return pictures;
}

bool holdsList(std::string_view foldedHtml) {
  return vorn::findText(foldedHtml, "<li>") != std::string_view::npos ||
         vorn::findText(foldedHtml, "<li ") != std::string_view::npos;
}

}  // namespace

std::string linesMissingIn(std::string_view html, std::string_view text) {
  const auto trimmed = [](std::string_view any) { return vorn::trimmed(any, vorn::isWhitespaceOrNewline); };
  if (text.empty()) return {};
  if (!holdsInvitation(html)) return vorn::htmlShowsNothing(html) ? std::string(trimmed(text)) : "";
  if (readAlike(html, text)) return {};
  const std::string foldedText = vorn::caseFolded(vorn::htmlToPlainText(html));
  const std::string foldedHtml = vorn::caseFolded(html);
  Words known;
  addWords(known, foldedText);
  addWordsOfAddresses(known, foldedHtml);
  std::sort(known.begin(), known.end());
  const std::set<char32_t> knownPictures = picturesIn(foldedText);
  const bool hasList = holdsList(foldedHtml);

  std::string missing;
  bool isTaken = false;
  for (const std::string_view line : vorn::splitLines(text)) {
    const std::string folded = vorn::caseFolded(line);
    std::string_view rest = folded;
    std::string_view word = takeWord(rest);
    const std::set<char32_t> pictures = word.empty() ? picturesIn(folded) : std::set<char32_t>();
    // An empty line or a rule belongs to the line above it.
    if (!word.empty() || !pictures.empty())
      isTaken = !std::includes(knownPictures.begin(), knownPictures.end(), pictures.begin(), pictures.end());
    for (bool isFirst = hasList; !word.empty() && !isTaken; word = takeWord(rest), isFirst = false) {
      isTaken = !(isFirst && isListSign(word, rest)) && !std::binary_search(known.begin(), known.end(), word);
    }
    if (isTaken) missing.append(line) += '\n';
  }
  return std::string(trimmed(missing));
}

}  // namespace vornlab

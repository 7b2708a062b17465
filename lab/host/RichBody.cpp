#include "lab/host/RichBody.h"

#include <algorithm>
#include <array>
#include <utility>

#include "util/HtmlText.h"
#include "util/Utf16.h"

namespace vornlab {

namespace {

constexpr std::string_view kLineBreak = "<br>";
constexpr std::string_view kFirmBlank = "&nbsp;";
constexpr std::size_t kNone = std::string::npos;

bool isLineEnd(char16_t unit) { return unit == u'\n' || unit == u'\t'; }

// What cannot be typed, or would be read as something else.
bool isNoText(char16_t unit) {
  constexpr char16_t firstVisible = 0x20;
  constexpr char16_t firstControl = 0x7F;
  constexpr char16_t lastControl = 0x9F;
  constexpr char16_t objectPlace = 0xFFFC;
  return unit < firstVisible || (unit >= firstControl && unit <= lastControl) || unit == objectPlace;
}

bool isAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// A text as it can be shown: line ends of one kind, and nothing that has no sign.
std::u16string typable(std::u16string_view typed) {
  std::u16string result;
  for (std::size_t at = 0; at < typed.size(); ++at) {
    const char16_t unit = typed[at];
    constexpr char16_t lineSeparator = 0x2028;
    constexpr char16_t paragraphSeparator = 0x2029;
    if (unit == u'\r' && at + 1 < typed.size() && typed[at + 1] == u'\n') continue;
    if (unit == u'\n' || unit == u'\r' || unit == lineSeparator || unit == paragraphSeparator) {
      result += u'\n';
    } else if (unit == u'\t' || unit == u'\u00A0') {
      result += u' ';
    } else if (!isNoText(unit)) {
      result += unit;
    }
  }
  return result;
}

// Where "&#32" or "&#x20" begins that ends at the place without a semicolon, behind what has changed before it;
// kNone where there is none.
std::size_t openNumberBefore(std::string_view html, std::size_t place, std::size_t changedUntil) {
  constexpr std::string_view hexDigits = "0123456789abcdefABCDEF";
  std::size_t digits = place;
  while (digits > changedUntil && hexDigits.find(html[digits - 1]) != kNone) --digits;
  if (digits == place) return kNone;
  const std::string_view before = html.substr(0, digits);
  if (before.ends_with("&#x") || before.ends_with("&#X")) return digits - 3;
  const bool isDecimal = html.substr(digits, place - digits).find_first_not_of("0123456789") == kNone;
  return isDecimal && before.ends_with("&#") ? digits - 2 : kNone;
}

// Where a name ends that an "&" before the place would begin.
std::size_t endOfName(std::string_view html, std::size_t place) {
  constexpr std::size_t longest = 40;
  const auto isInName = [](char c) { return c == '#' || (c >= '0' && c <= '9') || isAsciiLetter(c); };
  std::size_t end = place;
  while (end < html.size() && end - place < longest && isInName(html[end])) ++end;
  return end;
}

// The first of what is in the order of its places that begins there or behind it.
template <typename Rewritings>
auto rewritingFrom(const Rewritings& all, std::size_t place) {
  return std::partition_point(all.begin(), all.end(),
                              [place](const auto& each) { return each.bytes.begin < place; });
}

std::string_view tagOf(TextStyle style, bool isEnd) {
  switch (style) {
    case kBold: return isEnd ? "</b>" : "<b>";
    case kItalic: return isEnd ? "</i>" : "<i>";
    default: return isEnd ? "</u>" : "<u>";
  }
}

}  // namespace

RichBody::RichBody(std::string html) : m_html(std::move(html)) { read(); }

void RichBody::read() { m_shown = readShownHtml(m_html, m_characters); }

std::vector<RichBody::Run> RichBody::runs() const {
  std::vector<Run> runs;
  const std::vector<ShownHtml::Character>& all = m_shown.characters;
  for (std::size_t at = 0; at < all.size();) {
    const std::size_t begin = at;
    const auto isSame = [&](const ShownHtml::Character& each) {
      return each.style == all[begin].style && each.link == all[begin].link;
    };
    while (at < all.size() && isSame(all[at])) ++at;
    if (all[begin].style == kPlain && all[begin].link == 0) continue;
    std::string link = all[begin].link == 0 ? "" : m_shown.links[all[begin].link - 1].address;
    if (link.find('&') != kNone) link = vorn::htmlToPlainText(link);
    runs.push_back({begin, at - begin, all[begin].style, std::move(link)});
  }
  return runs;
}

bool RichBody::is(std::size_t at, Kind kind) const {
  return at < m_shown.characters.size() && m_shown.characters[at].kind == kind;
}

// Whether a blank there would be seen, as long as something follows it.
bool RichBody::isInLine(std::size_t at) const { return at > 0 && !isLineEnd(text()[at - 1]); }

// Whether a blank in front of it would not be seen.
bool RichBody::endsLine(std::size_t at) const { return at >= m_shown.text.size() || isLineEnd(m_shown.text[at]); }

// -- Editing -----------------------------------------------------------------------------------------------------

void RichBody::replace(std::size_t begin, std::size_t length, std::u16string_view typed) {
  Change edit;
  edit.begin = std::min(begin, text().size());
  edit.length = std::min(length, text().size() - edit.begin);
  edit.typed = typable(typed);
  widen(edit);
  takeInTyped(edit);
  joinLines(edit);
  edit.place = placeFor(edit);
  stepOutside(edit);
  if (!edit.isOutside) {
    takeInBlanks(edit);
    edit.place = placeFor(edit);
  }
  m_hasBreak = needsBreak(edit);
  const bool isLastLine = m_hasBreak && emptiesLastLine(edit);
  // An empty last line is shown by the break that ends the one before.
  if (isLastLine) edit.place = m_shown.characters[edit.begin - 1].bytes.begin;
  const std::string bytes = written(edit);
  std::vector<Rewriting> all{{{edit.place, edit.place}, bytes}};
  for (const ByteRange& each : removedBy(edit)) all.push_back({each, ""});
  const std::size_t place = rewrite(std::move(all), edit.place);
  m_typed = {place, place + bytes.size()};
  m_behindCaret = edit.behindCaret + (m_hasBreak && !isLastLine ? 1 : 0);
}

std::size_t RichBody::caret() const {
  const std::size_t end = firstFrom(m_typed.end);
  return end - std::min(m_behindCaret, end);
}

// The first character that begins there or behind it.
std::size_t RichBody::firstFrom(std::size_t byte) const {
  const auto& all = m_shown.characters;
  const auto found = std::partition_point(
      all.begin(), all.end(), [byte](const ShownHtml::Character& each) { return each.bytes.begin < byte; });
  return static_cast<std::size_t>(found - all.begin());
}

void RichBody::widen(Edit& edit) const {
  std::size_t end = edit.begin + edit.length;
  if (edit.begin < text().size() && vorn::isLowSurrogate(text()[edit.begin]) && edit.begin > 0) --edit.begin;
  if (end > edit.begin && end < text().size() && vorn::isLowSurrogate(text()[end])) ++end;
  edit.length = end - edit.begin;
}

void RichBody::takeInTyped(Change& edit) const {
  const std::size_t begin = firstFrom(m_typed.begin);
  const std::size_t end = firstFrom(m_typed.end);
  const std::size_t editEnd = edit.begin + edit.length;
  // In front of it belongs to what stands before, unless it is an empty line.
  const bool isEmptyLine = m_hasBreak && begin + 1 == end;
  if (begin == end || editEnd > end || edit.begin < begin || (editEnd == begin && !isEmptyLine)) return;
  // Behind the break that nobody has typed the next line begins.
  if (m_hasBreak && edit.begin == end) return;
  // The break that nobody has typed comes again where it is needed still, unless it is what goes.
  edit.isBeforeLine = m_hasBreak && editEnd < end;
  const std::size_t last = edit.isBeforeLine ? end - 1 : end;
  edit.typed = text().substr(begin, edit.begin - begin) + edit.typed + text().substr(editEnd, last - editEnd);
  edit.behindCaret = last - editEnd;
  edit.begin = begin;
  edit.length = end - begin;
}

// Which lines become one, and what that means for blanks where they do not.
void RichBody::joinLines(Change& edit) const {
  const std::vector<ShownHtml::Character>& all = m_shown.characters;
  const std::size_t end = edit.begin + edit.length;
  std::size_t first = edit.begin;
  while (first < end && isOfLine(first)) ++first;
  bool hasLines = false;
  for (std::size_t at = edit.begin; at < end; ++at) hasLines |= isOfLine(at);
  if (!hasLines || findTagsBetween({all[edit.begin].bytes.begin, all[end - 1].bytes.end}, edit.joined)) return;
  edit.hidesFirstBlank = first > edit.begin && first < end;
  for (std::size_t at = first < end ? first : edit.begin; at < end; ++at) edit.hidesLastBlank |= isOfLine(at);
}

bool RichBody::hasLineTag(std::size_t begin, std::size_t end) const {
  const auto isThere = [&](const auto& tag) { return tag.bytes.begin >= begin && tag.bytes.begin < end; };
  return std::any_of(m_shown.lineTags.begin(), m_shown.lineTags.end(), isThere);
}

// What is between the bookmarks is the plug-in's to replace. So whoever types at one of its two ends, or in place
// of what is there, does so outside, on a line of its own where the invitation has lines of its own: what is typed
// next goes on behind it, and may be a whole agenda.
void RichBody::stepOutside(Change& edit) const {
  if (edit.typed.empty()) return;
  const std::vector<ShownHtml::Character>& all = m_shown.characters;
  const std::size_t end = edit.begin + edit.length;
  const bool isFirst = edit.begin == 0;
  const std::size_t from = isFirst                          ? 0
                           : is(edit.begin - 1, Kind::line) ? all[edit.begin - 1].bytes.begin
                                                            : all[edit.begin - 1].bytes.end;
  const std::size_t to = end == all.size() ? m_html.size()
                         : isOfLine(end)   ? all[end].bytes.end
                                           : all[end].bytes.begin;
  const ShownHtml::Bookmark* first = nullptr;
  const ShownHtml::Bookmark* last = nullptr;
  for (const ShownHtml::Bookmark& each : m_shown.bookmarks) {
    if (each.bytes.begin < from || each.bytes.end > to) continue;
    const bool isBehind = each.bytes.begin >= edit.place;
    // It is in front of that invitation already.
    if (!each.isEnd && isBehind) break;
    if (!each.isEnd && !first) first = &each;
    if (each.isEnd && isBehind) last = &each;
  }
  if (!first && !last) return;
  edit.isOutside = true;
  edit.place = first ? first->bytes.begin : last->bytes.end;
  const bool isBehindLine = hasLineTag(from, edit.place);
  edit.isBeforeLine = hasLineTag(edit.place, to);
  const auto isInFront = [&](const ByteRange& blank) { return blank.begin >= from && blank.begin < edit.place; };
  edit.hidesFirstBlank = isBehindLine || std::any_of(m_shown.blanks.begin(), m_shown.blanks.end(), isInFront);
  edit.hidesLastBlank = edit.isBeforeLine;
  if (first && !isFirst && is(edit.begin - 1, Kind::line) && !isBehindLine) edit.typed.insert(0, 1, u'\n');
  if (!first && is(end, Kind::line) && !edit.isBeforeLine) {
    edit.typed += u'\n';
    ++edit.behindCaret;
  }
}

// A blank beside what is edited is written anew where it would be shown no more.
void RichBody::takeInBlanks(Change& edit) const {
  const std::size_t end = edit.begin + edit.length;
  const bool isNothing = edit.typed.empty();
  const bool endsThere =
      isNothing ? edit.hidesLastBlank || endsLine(end) || is(end, Kind::blank) : isLineEnd(edit.typed.front());
  const bool isSeenNoMore = edit.begin > 0 && is(edit.begin - 1, Kind::blank) && endsThere;
  const bool beginsLine = edit.hidesFirstBlank || edit.hidesLastBlank || !isInLine(edit.begin);
  if (is(end, Kind::blank) && (isNothing ? beginsLine : isLineEnd(edit.typed.back()))) {
    edit.typed += u' ';
    ++edit.length;
    ++edit.behindCaret;
  }
  if (!isSeenNoMore) return;
  edit.typed.insert(0, 1, u' ');
  --edit.begin;
  ++edit.length;
}

// Where the text goes in: what replaces something looks as that did, and what is new as what stands before it, but
// goes on with no link.
std::size_t RichBody::placeFor(const Edit& edit) const {
  const std::vector<ShownHtml::Character>& all = m_shown.characters;
  const auto hasBytes = [&](std::size_t at) {
    return at < all.size() && all[at].kind != Kind::line && all[at].kind != Kind::cell;
  };
  for (std::size_t at = edit.begin; at < edit.begin + edit.length; ++at) {
    if (hasBytes(at)) return all[at].bytes.begin;
  }
  if (edit.length > 0) return all[edit.begin].bytes.begin;
  const std::size_t at = edit.begin;
  if (isInLine(at)) {
    const ShownHtml::Character& before = all[at - 1];
    const bool isLinkEnd = before.link > 0 && (at == all.size() || all[at].link != before.link);
    const std::size_t behind = isLinkEnd ? m_shown.links[before.link - 1].end : 0;
    // A link that begins within another leaves the end of that one behind characters of its own.
    const bool hasOthers = hasBytes(at) && behind > all[at].bytes.begin;
    const bool isBehind = behind > before.bytes.end && !hasOthers && !hasLineTag(before.bytes.end, behind);
    return isBehind ? behind : before.bytes.end;
  }
  if (hasBytes(at)) return all[at].bytes.begin;
  return at > 0 ? all[at - 1].bytes.end : m_shown.bodyBegin;
}

std::string RichBody::written(const Change& edit) const {
  const std::size_t end = edit.begin + edit.length;
  std::string bytes;
  bool afterBlank = edit.hidesFirstBlank || !isInLine(edit.begin) || is(edit.begin - 1, Kind::blank);
  for (std::size_t at = 0; at < edit.typed.size(); ++at) {
    const char16_t unit = edit.typed[at];
    const bool isLast = at + 1 == edit.typed.size();
    const bool beforeEnd = isLast
                               ? edit.isBeforeLine || edit.hidesLastBlank || endsLine(end) || is(end, Kind::blank)
                               : isLineEnd(edit.typed[at + 1]);
    bool isBlank = false;
    switch (unit) {
      case u'&': bytes += "&amp;"; break;
      case u'<': bytes += "&lt;"; break;
      case u'>': bytes += "&gt;"; break;
      case u'\n': bytes += kLineBreak; break;
      case u'"': bytes += m_shown.hasOpenQuote ? "&quot;" : "\""; break;
      case u'\'': bytes += m_shown.hasOpenQuote ? "&#39;" : "'"; break;
      case u' ':
        isBlank = !afterBlank && !beforeEnd;
        bytes += isBlank ? " " : kFirmBlank;
        break;
      default: {
        const bool isPair = vorn::isHighSurrogate(unit) && !isLast && vorn::isLowSurrogate(edit.typed[at + 1]);
        bytes += vorn::toUtf8(std::u16string_view(edit.typed).substr(at, isPair ? 2 : 1));
        if (isPair) ++at;
      }
    }
    afterBlank = isBlank || unit == u'\n';
  }
  if (m_hasBreak) bytes += kLineBreak;
  return bytes;
}

// A break at the very end of a paragraph ends nothing by itself, and without one an empty paragraph is not seen.
bool RichBody::needsBreak(const Change& edit) const {
  const bool isBeforeLine = edit.isBeforeLine || (!edit.isOutside && is(edit.begin + edit.length, Kind::line));
  if (!edit.typed.empty()) return edit.typed.back() == u'\n' && isBeforeLine;
  return edit.isBeforeLine ? edit.begin == 0 || text()[edit.begin - 1] == u'\n' : leavesLineEmpty(edit);
}

bool RichBody::leavesLineEmpty(const Edit& edit) const {
  const std::size_t end = edit.begin + edit.length;
  if (!edit.typed.empty() || edit.length == 0) return false;
  const bool isPreceded = edit.begin > 0;
  if (isPreceded && text()[edit.begin - 1] != u'\n') return false;
  // The first and the last of these are joined with what stands around them.
  if (is(edit.begin, Kind::line) || is(end - 1, Kind::line)) return false;
  return end < text().size() ? is(end, Kind::line) : isPreceded && is(edit.begin - 1, Kind::line);
}

// The last line of all has become empty, behind the end of a line that only a following one shows.
bool RichBody::emptiesLastLine(const Edit& edit) const {
  if (!edit.typed.empty() || edit.begin + edit.length < text().size() || edit.begin == 0) return false;
  const ByteRange line = m_shown.characters[edit.begin - 1].bytes;
  // An invitation keeps its own last line.
  return is(edit.begin - 1, Kind::line) &&
         std::none_of(m_shown.bookmarks.begin(), m_shown.bookmarks.end(), [&](const auto& each) {
           return each.bytes.begin >= line.begin && each.bytes.end <= line.end;
         });
}

std::vector<ByteRange> RichBody::removedBy(const Change& edit) const {
  const std::vector<ShownHtml::Character>& all = m_shown.characters;
  const std::size_t end = edit.begin + edit.length;
  std::vector<ByteRange> removed = edit.joined;
  for (std::size_t at = edit.begin; at < end; ++at) {
    if (!isOfLine(at)) removed.push_back(all[at].bytes);
  }
  // White space that was shown by another that goes would be shown itself, and so would the one at a link's end
  // that is no end of the line any longer.
  const bool goesOn = (is(end, Kind::text) || is(end, Kind::blank)) && !(edit.isOutside && edit.isBeforeLine);
  std::size_t from = edit.place;
  std::size_t until = edit.place;
  if (edit.length > 0) {
    from = all[edit.begin].bytes.begin;
    until = all[end - 1].bytes.end;
  } else if (isInLine(edit.begin) && !edit.isOutside) {
    from = all[edit.begin - 1].bytes.end;
  }
  if (goesOn) until = all[end].bytes.begin;
  auto blank = std::partition_point(m_shown.blanks.begin(), m_shown.blanks.end(),
                                    [from](const ByteRange& each) { return each.begin < from; });
  for (; blank != m_shown.blanks.end() && blank->begin < until; ++blank) removed.push_back(*blank);
  return removed;
}

// The tags of lines that have become one: those of what has gone altogether, and those that end one line and begin
// another of the same kind. False where a line stays, such as a cell of a table.
bool RichBody::findTagsBetween(ByteRange bytes, std::vector<ByteRange>& tags) const {
  std::vector<ByteRange> whole;
  bool hasRule = false;
  std::vector<const ShownHtml::LineTag*> begun;
  std::vector<const ShownHtml::LineTag*> ended;
  for (const ShownHtml::LineTag& tag : m_shown.lineTags) {
    if (tag.bytes.begin < bytes.begin || tag.bytes.end > bytes.end) continue;
    if (tag.isOfTable) return false;
    if (tag.name == "hr") {
      hasRule = true;
    } else if (!tag.isEnd) {
      begun.push_back(&tag);
    } else if (begun.empty()) {
      ended.push_back(&tag);
    } else if (begun.back()->name == tag.name) {
      whole.insert(whole.end(), {begun.back()->bytes, tag.bytes});
      begun.pop_back();
    } else {
      return false;
    }
  }
  // A paragraph and an entry of a list end by themselves where the next one begins.
  const bool isImplied =
      ended.empty() && begun.size() == 1 && (begun.front()->name == "p" || begun.front()->name == "li");
  const bool isMirrored = std::equal(ended.begin(), ended.end(), begun.rbegin(), begun.rend(),
                                     [](const auto* one, const auto* other) { return one->name == other->name; });
  if (isMirrored || isImplied) {
    for (const auto* tag : ended) whole.push_back(tag->bytes);
    for (const auto* tag : begun) whole.push_back(tag->bytes);
  }
  tags = std::move(whole);
  return (isMirrored || isImplied) && !hasRule;
}

// Where in the new HTML what was at that place has come to stand. What is put in at a place goes in front of what
// is taken out from there on.
std::size_t RichBody::rewrite(std::vector<Rewriting> all, std::size_t place) {
  const auto isEarlier = [](const Rewriting& one, const Rewriting& other) {
    const auto isWide = [](const Rewriting& each) { return each.bytes.end > each.bytes.begin; };
    return std::pair(one.bytes.begin, isWide(one)) < std::pair(other.bytes.begin, isWide(other));
  };
  std::stable_sort(all.begin(), all.end(), isEarlier);
  closeSigns(all);
  std::stable_sort(all.begin(), all.end(), isEarlier);
  std::string html;
  html.reserve(m_html.size());
  std::size_t moved = 0;
  std::size_t at = 0;
  for (const Rewriting& each : all) {
    // The halves of a pair have the same bytes.
    if (each.bytes.begin < at) continue;
    html.append(m_html, at, each.bytes.begin - at);
    at = each.bytes.end;
    if (each.bytes == ByteRange{place, place}) moved = html.size();
    html += each.text;
  }
  html.append(m_html, at, kNone);
  m_html = std::move(html);
  read();
  return moved;
}

// A sign that stands for itself without being written as one would begin a tag or a name with what comes to stand
// behind it, and both would be seen no more. A last tag without an end would take it into itself: it gets its ">".
void RichBody::closeSigns(std::vector<Rewriting>& all) const {
  if (all.empty()) return;
  const std::vector<Rewriting> signs = closedSigns(all);
  const std::vector<Rewriting> numbers = closedNumbers(all, signs);
  // In front of what changes at the same place.
  all.insert(all.begin(), numbers.begin(), numbers.end());
  all.insert(all.begin(), signs.begin(), signs.end());
}

// The signs, the named and numbered characters and the last tag, in the order of their places.
std::vector<RichBody::Rewriting> RichBody::closedSigns(const std::vector<Rewriting>& all) const {
  const std::size_t lastAngle = m_html.rfind('>');
  const std::size_t lastPlace = all.back().bytes.begin;
  const auto isChangedIn = [&](std::size_t first, std::size_t last) {
    const auto found = rewritingFrom(all, first);
    return found != all.end() && found->bytes.begin <= last;
  };
  const auto isTakenOut = [&](const ByteRange& sign) {
    auto each = rewritingFrom(all, sign.begin);
    while (each != all.end() && each->bytes.begin == sign.begin && each->bytes != sign) ++each;
    return each != all.end() && each->bytes == sign;
  };
  const auto mayBeginTag = [this](std::size_t at) {
    return at < m_html.size() && (isAsciiLetter(m_html[at]) || std::string_view("/!?").find(m_html[at]) != kNone);
  };
  std::vector<Rewriting> closed;
  ByteRange seen{};
  for (const ShownHtml::Character& each : m_shown.characters) {
    const ByteRange sign = each.bytes;
    // The halves of a pair have the same bytes.
    if (std::exchange(seen, sign) == sign) continue;
    if (each.kind != Kind::text || sign.end > lastPlace) continue;
    const bool isSign = m_html[sign.begin] == '<' || m_html[sign.begin] == '&';
    if (!isSign || isTakenOut(sign)) continue;
    if (m_html[sign.begin] == '<') {
      // Behind the last tag it is none only because no tag ends there.
      const bool isOpen = (lastAngle == kNone || sign.begin > lastAngle) && mayBeginTag(sign.end);
      if (isOpen || isChangedIn(sign.end, sign.end)) closed.push_back({sign, "&lt;"});
    } else if (sign.end == sign.begin + 1) {
      if (isChangedIn(sign.end, endOfName(m_html, sign.end))) closed.push_back({sign, "&amp;"});
    } else if (m_html[sign.end - 1] != ';' && isChangedIn(sign.end, sign.end)) {
      closed.push_back({{sign.end, sign.end}, ";"});
    }
  }
  const bool isPutInAtEnd = lastPlace == m_html.size() && !all.back().text.empty();
  if (m_shown.endsWithinTag && isPutInAtEnd) closed.push_back({{lastPlace, lastPlace}, ">"});
  return closed;
}

// The numbers of white space, which have no sign of their own.
std::vector<RichBody::Rewriting> RichBody::closedNumbers(const std::vector<Rewriting>& all,
                                                         const std::vector<Rewriting>& signs) const {
  const auto beginsAt = [](const std::vector<Rewriting>& list, std::size_t place) {
    const auto found = rewritingFrom(list, place);
    return found != list.end() && found->bytes.begin == place;
  };
  std::vector<Rewriting> closed;
  std::size_t lastPlace = kNone;
  std::size_t changedUntil = 0;
  for (const Rewriting& each : all) {
    const std::size_t place = each.bytes.begin;
    const std::size_t number = place == lastPlace ? kNone : openNumberBefore(m_html, place, changedUntil);
    lastPlace = place;
    changedUntil = std::max(changedUntil, each.bytes.end);
    // Either it goes itself, or it is closed with the signs.
    if (number == kNone || beginsAt(all, number) || beginsAt(signs, number) || beginsAt(signs, place)) continue;
    closed.push_back({{place, place}, ";"});
  }
  return closed;
}

// -- Styles ------------------------------------------------------------------------------------------------------

// The bytes of characters that follow each other without anything between them.
std::vector<ByteRange> RichBody::piecesOf(std::size_t begin, std::size_t end, unsigned withoutStyle) const {
  std::vector<ByteRange> pieces;
  for (std::size_t at = begin; at < end; ++at) {
    const ShownHtml::Character& each = m_shown.characters[at];
    if ((each.kind != Kind::text && each.kind != Kind::blank) || (each.style & withoutStyle) != 0) continue;
    if (!pieces.empty() && (pieces.back().end == each.bytes.begin || pieces.back().end == each.bytes.end)) {
      pieces.back().end = each.bytes.end;
    } else {
      pieces.push_back(each.bytes);
    }
  }
  return pieces;
}

bool RichBody::turn(std::size_t begin, std::size_t length, TextStyle style) {
  Edit edit;
  edit.begin = std::min(begin, text().size());
  edit.length = std::min(length, text().size() - edit.begin);
  widen(edit);
  const std::size_t end = edit.begin + edit.length;
  const std::vector<ByteRange> without = piecesOf(edit.begin, end, style);
  const std::string_view first = tagOf(style, false);
  const std::string_view last = tagOf(style, true);
  std::vector<Rewriting> all;
  for (const ByteRange& piece : without) {
    all.push_back({{piece.begin, piece.begin}, first});
    all.push_back({{piece.end, piece.end}, last});
  }
  if (without.empty()) {
    const std::vector<ByteRange> pieces = piecesOf(edit.begin, end, kPlain);
    std::size_t at = 0;
    for (const ByteRange& piece : pieces) {
      const bool isEnclosed = piece.begin >= at + first.size() &&
                              m_html.compare(piece.begin - first.size(), first.size(), first) == 0 &&
                              m_html.compare(piece.end, last.size(), last) == 0;
      if (!isEnclosed) return false;
      at = piece.end + last.size();
      all.push_back({{piece.begin - first.size(), piece.begin}, ""});
      all.push_back({{piece.end, at}, ""});
    }
    if (pieces.empty()) return false;
  }
  const std::string htmlBefore = m_html;
  const std::u16string textBefore = text();
  rewrite(std::move(all), kNone);
  // In HTML that no tag of its own ends, what stands before a tag may go on without it and take words along.
  if (text() != textBefore) {
    m_html = htmlBefore;
    read();
    return false;
  }
  m_typed = {};
  m_hasBreak = false;
  m_behindCaret = 0;
  return true;
}

RichBody::Edit RichBody::editBetween(std::u16string_view before, std::u16string_view after, std::size_t caret) {
  const std::size_t shorter = std::min(before.size(), after.size());
  // What stands behind the caret was there before: so the place is sure also among characters that are all the
  // same.
  const std::size_t mostBehind = std::min(shorter, after.size() - std::min(caret, after.size()));
  std::size_t behind = 0;
  while (behind < mostBehind && before[before.size() - 1 - behind] == after[after.size() - 1 - behind]) ++behind;
  std::size_t same = 0;
  while (same < shorter - behind && before[same] == after[same]) ++same;
  return {same, before.size() - behind - same, std::u16string(after.substr(same, after.size() - behind - same))};
}

}  // namespace vornlab

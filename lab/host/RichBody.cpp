#include "lab/host/RichBody.h"

#include <algorithm>
#include <array>
#include <utility>

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

std::string_view tagOf(TextStyle style, bool isEnd) {
  switch (style) {
    case kBold: return isEnd ? "</b>" : "<b>";
    case kItalic: return isEnd ? "</i>" : "<i>";
    default: return isEnd ? "</u>" : "<u>";
  }
}

}  // namespace

RichBody::RichBody(std::string html) : m_html(std::move(html)) { read(); }

void RichBody::read() { m_shown = readShownHtml(m_html); }

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
    runs.push_back({begin, at - begin, all[begin].style,
                    all[begin].link == 0 ? "" : m_shown.links[all[begin].link - 1].address});
  }
  return runs;
}

bool RichBody::is(std::size_t at, Kind kind) const {
  return at < m_shown.characters.size() && m_shown.characters[at].kind == kind;
}

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
  takeInBlanks(edit);
  const std::size_t place = placeFor(edit);
  m_hasBreak = needsBreak(edit);
  const std::string bytes = written(edit);
  rewrite(removedBy(edit, place), place, bytes);
  m_typed = {place, place + bytes.size()};
}

void RichBody::widen(Edit& edit) const {
  std::size_t end = edit.begin + edit.length;
  if (edit.begin < text().size() && vorn::isLowSurrogate(text()[edit.begin]) && edit.begin > 0) --edit.begin;
  if (end > edit.begin && end < text().size() && vorn::isLowSurrogate(text()[end])) ++end;
  edit.length = end - edit.begin;
}

void RichBody::takeInTyped(Change& edit) const {
  const auto at = [this](std::size_t byte) {
    const auto& all = m_shown.characters;
    const auto found = std::partition_point(
        all.begin(), all.end(), [byte](const ShownHtml::Character& each) { return each.bytes.begin < byte; });
    return static_cast<std::size_t>(found - all.begin());
  };
  const std::size_t begin = at(m_typed.begin);
  const std::size_t end = at(m_typed.end);
  const std::size_t editEnd = edit.begin + edit.length;
  // In front of it belongs to what stands before, unless it is an empty line.
  const bool isEmptyLine = m_hasBreak && begin + 1 == end;
  if (begin == end || editEnd > end || edit.begin < begin || (editEnd == begin && !isEmptyLine)) return;
  // The break that nobody has typed comes again where it is needed still, unless it is what goes.
  edit.isBeforeLine = m_hasBreak && editEnd < end;
  const std::size_t last = edit.isBeforeLine ? end - 1 : end;
  edit.typed = text().substr(begin, edit.begin - begin) + edit.typed + text().substr(editEnd, last - editEnd);
  edit.begin = begin;
  edit.length = end - begin;
}

// A blank beside what is edited is written anew where it would be shown no more.
void RichBody::takeInBlanks(Change& edit) const {
  const std::size_t end = edit.begin + edit.length;
  const bool isNothing = edit.typed.empty();
  const bool endsThere = isNothing ? endsLine(end) || is(end, Kind::blank) : isLineEnd(edit.typed.front());
  const bool isSeenNoMore = edit.begin > 0 && is(edit.begin - 1, Kind::blank) && endsThere;
  const bool beginsLine = edit.begin == 0 || isLineEnd(text()[edit.begin - 1]);
  if (is(end, Kind::blank) && (isNothing ? beginsLine : isLineEnd(edit.typed.back()))) {
    edit.typed += u' ';
    ++edit.length;
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
  const bool isInLine = at > 0 && !isLineEnd(text()[at - 1]);
  if (isInLine) {
    const ShownHtml::Character& before = all[at - 1];
    const bool isLinkEnd = before.link > 0 && (at == all.size() || all[at].link != before.link);
    const std::size_t behind = isLinkEnd ? m_shown.links[before.link - 1].end : 0;
    const bool isInSameLine = std::none_of(m_shown.lineTags.begin(), m_shown.lineTags.end(), [&](const auto& tag) {
      return tag.bytes.begin >= before.bytes.end && tag.bytes.begin < behind;
    });
    return behind > before.bytes.end && isInSameLine ? behind : before.bytes.end;
  }
  if (hasBytes(at)) return all[at].bytes.begin;
  return at > 0 ? all[at - 1].bytes.end : m_shown.bodyBegin;
}

std::string RichBody::written(const Change& edit) const {
  const std::size_t end = edit.begin + edit.length;
  std::string bytes;
  bool afterBlank = edit.begin == 0 || isLineEnd(text()[edit.begin - 1]) || is(edit.begin - 1, Kind::blank);
  for (std::size_t at = 0; at < edit.typed.size(); ++at) {
    const char16_t unit = edit.typed[at];
    const bool isLast = at + 1 == edit.typed.size();
    const bool beforeEnd =
        isLast ? edit.isBeforeLine || endsLine(end) || is(end, Kind::blank) : isLineEnd(edit.typed[at + 1]);
    bool isBlank = false;
    switch (unit) {
      case u'&': bytes += "&amp;"; break;
      case u'<': bytes += "&lt;"; break;
      case u'>': bytes += "&gt;"; break;
      case u'\n': bytes += kLineBreak; break;
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
  const bool isBeforeLine = edit.isBeforeLine || is(edit.begin + edit.length, Kind::line);
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

std::vector<ByteRange> RichBody::removedBy(const Edit& edit, std::size_t place) const {
  const std::vector<ShownHtml::Character>& all = m_shown.characters;
  const std::size_t end = edit.begin + edit.length;
  std::vector<ByteRange> removed;
  bool hasLines = false;
  for (std::size_t at = edit.begin; at < end; ++at) {
    hasLines |= all[at].kind == Kind::line;
    if (all[at].kind != Kind::line && all[at].kind != Kind::cell) removed.push_back(all[at].bytes);
  }
  // White space that was shown by another that goes would be shown itself.
  const bool goesOn = is(end, Kind::text) || is(end, Kind::blank);
  const std::size_t until = goesOn ? all[end].bytes.begin : edit.length > 0 ? all[end - 1].bytes.end : place;
  auto blank = std::partition_point(m_shown.blanks.begin(), m_shown.blanks.end(),
                                    [place](const ByteRange& each) { return each.begin < place; });
  for (; blank != m_shown.blanks.end() && blank->begin < until; ++blank) removed.push_back(*blank);
  if (hasLines) addTagsBetween({all[edit.begin].bytes.begin, all[end - 1].bytes.end}, removed);
  return removed;
}

// The tags of lines that have become one: those of what has gone altogether, and those that end one line and begin
// another of the same kind. A table keeps its cells.
void RichBody::addTagsBetween(ByteRange bytes, std::vector<ByteRange>& removed) const {
  std::vector<ByteRange> whole;
  std::vector<const ShownHtml::LineTag*> begun;
  std::vector<const ShownHtml::LineTag*> ended;
  for (const ShownHtml::LineTag& tag : m_shown.lineTags) {
    if (tag.bytes.begin < bytes.begin || tag.bytes.end > bytes.end || tag.name == "hr") continue;
    if (tag.isOfTable) return;
    if (!tag.isEnd) {
      begun.push_back(&tag);
    } else if (begun.empty()) {
      ended.push_back(&tag);
    } else if (begun.back()->name == tag.name) {
      whole.insert(whole.end(), {begun.back()->bytes, tag.bytes});
      begun.pop_back();
    } else {
      return;
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
  removed.insert(removed.end(), whole.begin(), whole.end());
}

void RichBody::rewrite(std::vector<ByteRange> removed, std::size_t place, const std::string& written) {
  std::sort(removed.begin(), removed.end(),
            [](const ByteRange& one, const ByteRange& other) { return one.begin < other.begin; });
  std::string html;
  html.reserve(m_html.size() + written.size());
  html.append(m_html, 0, place);
  html += written;
  std::size_t at = place;
  for (const ByteRange& each : removed) {
    // The halves of a pair have the same bytes.
    if (each.begin < at) continue;
    html.append(m_html, at, each.begin - at);
    at = each.end;
  }
  html.append(m_html, at, kNone);
  m_html = std::move(html);
  read();
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
  std::string html;
  std::size_t at = 0;
  const auto copyTo = [&](std::size_t place) {
    html.append(m_html, at, place - at);
    at = place;
  };
  for (const ByteRange& piece : without) {
    copyTo(piece.begin);
    html += tagOf(style, false);
    copyTo(piece.end);
    html += tagOf(style, true);
  }
  if (without.empty()) {
    const std::string_view first = tagOf(style, false);
    const std::string_view last = tagOf(style, true);
    const std::vector<ByteRange> pieces = piecesOf(edit.begin, end, kPlain);
    for (const ByteRange& piece : pieces) {
      const bool isEnclosed = piece.begin >= at + first.size() &&
                              m_html.compare(piece.begin - first.size(), first.size(), first) == 0 &&
                              m_html.compare(piece.end, last.size(), last) == 0;
      if (!isEnclosed) return false;
      copyTo(piece.begin - first.size());
      at = piece.begin;
      copyTo(piece.end);
      at = piece.end + last.size();
    }
    if (pieces.empty()) return false;
  }
  copyTo(m_html.size());
  m_html = std::move(html);
  m_typed = {};
  m_hasBreak = false;
  read();
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

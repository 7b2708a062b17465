// Finding the invitation again in a body that the user and the editor have changed.

#include <optional>

#include "invitation/vnBodyHelper.h"
#include "util/CharacterSets.h"
#include "util/HtmlText.h"
#include "util/TextSearch.h"

namespace vorn {

namespace {

// The editor wraps the invitation in font tags, and the wrapper has to go too.
constexpr std::string_view kWrapperBegin = "<font size=";
constexpr std::string_view kWrapperEnd = "@</font>";

constexpr std::string_view kBeginBookmarkName = "MacVnBookmarkBegin";
constexpr std::string_view kEndBookmarkName = "MacVnBookmarkEnd";

struct Bookmarks {
  std::string_view begin;
  std::string_view end;
};

constexpr Bookmarks kQuoted{kvn_BeginBookmark, kvn_EndBookmark};
constexpr Bookmarks kUnquoted{kvn_BeginBookmarkEx, kvn_EndBookmarkEx};

bool holdsBoth(std::string_view body, const Bookmarks& pair) {
  return body.find(pair.begin) != std::string_view::npos && body.find(pair.end) != std::string_view::npos;
}

// Where the span of a begin bookmark at this position starts.
std::size_t reachingBack(std::size_t position) { return position - g_offset_BeginBookmarkInsert; }

// The start of the lead, or of the wrapper before the bookmark.
std::size_t startOf(std::string_view lead, std::string_view body, std::string_view bookmark) {
  const std::size_t found = findLastIgnoringCase(body, lead);
  if (found != std::string_view::npos) return found;
  const std::size_t marked = body.find(bookmark);
  if (marked == std::string_view::npos) return std::string_view::npos;
  const std::size_t wrapper = findLastIgnoringCase(body.substr(0, marked), kWrapperBegin);
  if (wrapper == std::string_view::npos) return wrapper;
  // One that shows something before the bookmark wraps words of the user's.
  return htmlShowsNothing(body.substr(wrapper, marked - wrapper)) ? wrapper : std::string_view::npos;
}

// The position behind the trail, or behind the wrapper's end.
std::size_t endOf(std::string_view trail, std::string_view body) {
  for (const std::string_view wanted : {trail, kWrapperEnd}) {
    const std::size_t found = findLastIgnoringCase(body, wanted);
    if (found != std::string_view::npos) return found + wanted.size();
  }
  return std::string_view::npos;
}

struct Span {
  std::size_t start, end;
};

// The last lead that has a trail behind it, and the first such trail. A part of the invitation that the user has
// copied brings a bookmark along, and what stands between that one and the invitation is the user's.
std::optional<Span> pairOf(std::string_view lead, std::string_view trail, std::string_view body) {
  const std::size_t lastTrail = findLastIgnoringCase(body, trail);
  if (lastTrail == std::string_view::npos) return std::nullopt;
  const std::size_t start = findLastIgnoringCase(body.substr(0, lastTrail), lead);
  if (start == std::string_view::npos) return std::nullopt;
  const std::size_t behind = start + lead.size();
  return Span{start, behind + findIgnoringCase(body.substr(behind), trail) + trail.size()};
}

// Where the invitation stands in the body.
Span spanOf(std::string_view lead, std::string_view trail, std::string_view body, std::string_view bookmark) {
  if (const auto pair = pairOf(lead, trail, body)) return *pair;
  return {startOf(lead, body, bookmark), endOf(trail, body)};
}

// The body with the span replaced; absent when an end is missing. So it is for ends that have crossed, which a
// user can make by moving text: what lies between them is the user's. Ends that touch have an empty span, where
// the new text comes in.
OptionalText replaced(std::string_view body, const Span& span, std::string_view newText) {
  const bool isWhole = span.start != std::string_view::npos && span.end != std::string_view::npos;
  if (!isWhole || span.end < span.start) return std::nullopt;
  return replacingSpan(body, span.start, span.end, newText);
}

// The end of the new text from its end bookmark on, as an editor writes it: without line ends and their tags.
std::string withoutLineEnds(std::string_view text) {
  std::string kept(text);
  std::erase_if(kept, [](char c) { return c == '\r' || c == '\n'; });
  return replacingAll(kept, "<br>", "");
}

}  // namespace

// An editor may write an anchor in a form of its own, with which nothing can be replaced; but the words around it
// are the user's.
bool vnBodyHelper::holdsAnyBookmark(std::string_view body) {
  return findIgnoringCase(body, kBeginBookmarkName) != std::string_view::npos ||
         findIgnoringCase(body, kEndBookmarkName) != std::string_view::npos;
}

BookmarkForm vnBodyHelper::bookmarkForm(std::string_view body) {
  // Every placeholder's bookmarks are quoted ones as well, so those that have crossed are still found as such.
  const std::size_t placeholder = body.find(kvn_InitBeginBookMark);
  const std::size_t end = body.find(kvn_InitEndBookMark);
  const bool hasPlaceholder = placeholder != std::string_view::npos && end != std::string_view::npos;
  if (hasPlaceholder && placeholder <= end + kvn_InitEndBookMark.size()) return BookmarkForm::placeholder;
  if (holdsBoth(body, kQuoted)) return BookmarkForm::quoted;
  return holdsBoth(body, kUnquoted) ? BookmarkForm::unquoted : BookmarkForm::none;
}

OptionalText vnBodyHelper::updateVnBodyWithVnBookmark(const OptionalText& body,
                                                      const OptionalText& bodyWithVnBookmark) const {
  if (!body || !bodyWithVnBookmark) return std::nullopt;
  const std::string_view newText = *bodyWithVnBookmark;
  const std::size_t begin = newText.find(kvn_BeginBookmark);
  const std::size_t end = newText.find(kvn_EndBookmark);
  if (begin == std::string_view::npos || end == std::string_view::npos) return std::nullopt;
  const std::string lead = replacingAll(newText.substr(0, begin + kvn_BeginBookmark.size()), "<br>", "");
  const std::string rest = withoutLineEnds(newText.substr(end));
  const std::string_view trail = trimmed(rest, isWhitespace);
  OptionalText result = replaced(*body, spanOf(lead, trail, *body, kvn_BeginBookmark), newText);
  if (!result) return updateVnBodyWithVnBookmarkEx(body, bodyWithVnBookmark);
  return result;
}

OptionalText vnBodyHelper::updateVnBodyWithVnBookmarkEx(const OptionalText& body,
                                                        const OptionalText& bodyWithVnBookmark) const {
  if (!body || !bodyWithVnBookmark) return std::nullopt;
  const Bookmarks& pair = holdsBoth(*body, kQuoted) ? kQuoted : kUnquoted;
  if (!holdsBoth(*body, pair)) return std::nullopt;
  const std::size_t begin = reachingBack(body->find(pair.begin));
  const std::string_view lead =
      std::string_view(*body).substr(begin, g_offset_BeginBookmarkInsert + pair.begin.size());
  OptionalText result = replaced(*body, spanOf(lead, pair.end, *body, pair.begin), *bodyWithVnBookmark);
  if (!result) return body;
  return result;
}

OptionalText vnBodyHelper::removeVnBodyForDelete(const OptionalText& body) const {
  if (!body) return std::nullopt;
  const Bookmarks& pair = holdsBoth(*body, kQuoted) ? kQuoted : kUnquoted;
  const std::size_t firstEnd = body->find(pair.end);
  if (firstEnd == std::string_view::npos) return std::nullopt;
  const std::size_t firstBegin = body->find(pair.begin);
  // What stands before a lost begin bookmark goes as well, deliberately. But one that has kept its quotes is not
  // lost, and what stands before it is the user's.
  if (firstBegin == std::string_view::npos) {
    const std::size_t quoted = body->find(kvn_BeginBookmark);
    const std::size_t start = quoted < firstEnd ? quoted : 0;
    return replacingSpan(*body, start, firstEnd + pair.end.size(), EMPTY_STRING);
  }
  // Ends that have crossed enclose the user's text, and so does a bookmark that was copied with a part of the
  // invitation: the first end that has a begin before it counts, with the last begin before that.
  const std::size_t end = body->find(pair.end, firstBegin);
  if (end == std::string_view::npos) return body;
  const std::size_t start = reachingBack(body->rfind(pair.begin, end));
  return replacingSpan(*body, start, end + pair.end.size(), EMPTY_STRING);
}

}  // namespace vorn

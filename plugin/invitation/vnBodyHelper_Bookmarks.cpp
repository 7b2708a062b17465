#include "invitation/vnBodyHelper.h"
#include "util/CharacterSets.h"
#include "util/TextSearch.h"

// Finding the invitation again in a body that the user and the editor have changed.

namespace vorn {

namespace {

constexpr std::size_t kNotFound = std::string_view::npos;
constexpr std::string_view kLineBreak = "<br>";
// The editor wraps the invitation in font tags, and the wrapper has to go too.
constexpr std::string_view kWrapperBegin = "<font size=";
constexpr std::string_view kWrapperEnd = "@</font>";

// The start of the lead, or of the wrapper before the bookmark.
std::size_t startOf(std::string_view lead, std::string_view body, std::string_view bookmark) {
  const std::size_t found = findLastIgnoringCase(body, lead);
  if (found != kNotFound) return found;
  const std::size_t marked = body.find(bookmark);
  if (marked == kNotFound) return kNotFound;
  return findLastIgnoringCase(body.substr(0, marked), kWrapperBegin);
}

// The position behind the trail, or behind the wrapper's end.
std::size_t endOf(std::string_view trail, std::string_view body) {
  for (const std::string_view wanted : {trail, kWrapperEnd}) {
    const std::size_t found = findLastIgnoringCase(body, wanted);
    if (found != kNotFound) return found + wanted.size();
  }
  return kNotFound;
}

// The body with the span replaced; absent when an end is missing or the ends enclose nothing.
OptionalText replaced(const std::string& body, std::size_t start, std::size_t end, const std::string& newText) {
  if (start == kNotFound || end == kNotFound || end <= start) return std::nullopt;
  return std::string(body).replace(start, end - start, newText);
}

}  // namespace

OptionalText vnBodyHelper::updateVnBodyWithVnBookmark(const OptionalText& body,
                                                      const OptionalText& bodyWithVnBookmark) const {
  if (!body || !bodyWithVnBookmark) return std::nullopt;
  const std::size_t begin = bodyWithVnBookmark->find(kvn_BeginBookmark);
  const std::size_t end = bodyWithVnBookmark->find(kvn_EndBookmark);
  if (begin == kNotFound || end == kNotFound) return std::nullopt;
  const std::string lead =
      replacingAll(bodyWithVnBookmark->substr(0, begin + kvn_BeginBookmark.size()), kLineBreak, "");
  std::string rest = replacingAll(bodyWithVnBookmark->substr(end), kLineBreak, "");
  std::erase_if(rest, [](char c) { return c == '\r' || c == '\n'; });
  const std::string_view trail = trimmed(rest, isWhitespace);
  const OptionalText result =
      replaced(*body, startOf(lead, *body, kvn_BeginBookmark), endOf(trail, *body), *bodyWithVnBookmark);
  return result ? result : updateVnBodyWithVnBookmarkEx(body, bodyWithVnBookmark);
}

OptionalText vnBodyHelper::updateVnBodyWithVnBookmarkEx(const OptionalText& body,
                                                        const OptionalText& bodyWithVnBookmark) const {
  if (!body || !bodyWithVnBookmark) return std::nullopt;
  const auto hasPair = [&body](std::string_view begin, std::string_view end) {
    return body->find(begin) != kNotFound && body->find(end) != kNotFound;
  };
  std::string_view begin = kvn_BeginBookmark;
  std::string_view end = kvn_EndBookmark;
  if (!hasPair(begin, end)) {
    begin = kvn_BeginBookmarkEx;
    end = kvn_EndBookmarkEx;
    if (!hasPair(begin, end)) return std::nullopt;
  }
  const OptionalText result =
      replaced(*body, startOf(begin, *body, begin), endOf(end, *body), *bodyWithVnBookmark);
  return result ? result : body;
}

}  // namespace vorn

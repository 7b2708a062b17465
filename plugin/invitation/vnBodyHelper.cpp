#include "invitation/vnBodyHelper.h"

#include <algorithm>
#include <optional>

#include "platform/Registry.h"
#include "util/CharacterSets.h"
#include "util/TextSearch.h"
#include "util/Utf16.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

constexpr std::string_view kLineBreak = "<br>";
constexpr std::string_view kBlankLine = "<br><br>";
constexpr std::string_view kBodyTag = "<body";
constexpr std::string_view kBodyEndTag = "</body>";
// Characters of the invitation's own text by which its two ends are found again.
constexpr std::size_t kLandmarkLength = 20;
// How far the end bookmark is moved behind the landmark. The places come out of the text's own characters; that is
// so on purpose.
constexpr std::size_t kEndBookmarkShift = 3;

// A search for the empty text finds nothing.
std::size_t find(std::string_view text, std::string_view wanted) {
  return wanted.empty() ? std::string_view::npos : text.find(wanted);
}

std::size_t findLast(std::string_view text, std::string_view wanted) {
  return wanted.empty() ? std::string_view::npos : text.rfind(wanted);
}

std::string betweenBlankLines(std::string_view text) {
  return std::string(kBlankLine).append(text).append(kBlankLine);
}

// The text with its bookmarks, and before the second of them what parts it from the text.
std::string withBookmarksInPlainText(const std::string& text, std::string_view apart) {
  const std::string_view content = trimmed(text, isWhitespaceOrNewline);
  const std::string_view head = trimmed(utf16Prefix(content, kLandmarkLength), isWhitespaceOrNewline);
  const std::string_view tail = trimmed(utf16Suffix(content, kLandmarkLength), isWhitespaceOrNewline);
  std::string marked = text;
  const std::size_t begin = find(marked, head);
  marked.insert((begin == std::string_view::npos ? 0 : begin) + g_offset_BeginBookmarkInsert, kvn_BeginBookmark);
  const std::size_t last = findLast(marked, tail);
  std::size_t end = last == std::string_view::npos ? marked.size() : last + tail.size();
  end += utf16Prefix(std::string_view(marked).substr(end), kEndBookmarkShift).size();
  marked.insert(end, std::string(apart).append(kvn_EndBookmark));
  return marked;
}

// The span of a placeholder goes whole, its decoration too.
std::string placeholderReplaced(std::string_view body, std::string_view marked) {
  const std::size_t end = body.find(kvn_InitEndBookMark) + kvn_InitEndBookMark.size();
  return replacingSpan(body, body.find(kvn_InitBeginBookMark), end, marked);
}

// The position behind the opening body tag; 0 without one.
std::size_t behindBodyTag(std::string_view body) {
  for (std::size_t at = body.find(kBodyTag); at != std::string_view::npos; at = body.find(kBodyTag, at + 1)) {
    const std::size_t next = at + kBodyTag.size();
    if (next < body.size() && body[next] == '>') return next + 1;
    if (next >= body.size() || body[next] != ' ') continue;
    const std::size_t close = body.find('>', next);
    return close == std::string_view::npos ? 0 : close + 1;
  }
  return 0;
}

}  // namespace

vnBodyHelper& vnBodyHelper::sharedInstance() { return Registry::shared<vnBodyHelper>(); }

OptionalText vnBodyHelper::trimHTMLNBSPTags(const OptionalText& html) const {
  if (!html) return std::nullopt;
  return replacingAll(*html, HTML_NBSP_TAG, EMPTY_STRING);
}

OptionalText vnBodyHelper::convertHTMLToPlainText(const OptionalText& html) const {
  if (!html || html->empty()) return std::nullopt;
  return m_recentTexts.textOf(*html);
}

std::string vnBodyHelper::insertVnBodyBookMark(const OptionalText& vnBody, bool isHTML) const {
  if (!vnBody || vnBody->empty()) return std::string(EMPTY_STRING);
  if (isHTML) return std::string(kvn_BeginBookmark).append(*vnBody).append(kvn_EndBookmark);
  const std::string text = replacingAll(*vnBody, "<", "&lt;");
  std::string html = convertPlainTextToHTML(withBookmarksInPlainText(text, "")).value_or("");
  // A URL at the text's end takes the bookmark into its link, and an invitation whose end is not found again would
  // take the user's body with it.
  if (html.find(kvn_EndBookmark) == std::string::npos) {
    html = convertPlainTextToHTML(withBookmarksInPlainText(text, "\n")).value_or("");
  }
  return betweenBlankLines(html);
}

OptionalText vnBodyHelper::newVnBodyToEnd(const OptionalText& body, const OptionalText& newBody,
                                          bool positionAtTop) const {
  if (!body) return std::nullopt;
  const std::string added = newBody.value_or("");
  if (positionAtTop) {
    const std::size_t top = behindBodyTag(*body);
    return replacingSpan(*body, top, top, std::string(kLineBreak).append(added));
  }
  const std::size_t end = std::min(body->rfind(kBodyEndTag), body->size());
  return replacingSpan(*body, end, end, added);
}

OptionalText vnBodyHelper::updateVnBodyWithSrcBody(const OptionalText& srcBody, const OptionalText& vnBody,
                                                   bool isHTMLVnBody, InvitationOwner* vnMeetingMgr) const {
  if (!srcBody) return std::nullopt;
  const std::string marked = insertVnBodyBookMark(vnBody, isHTMLVnBody);
  switch (bookmarkForm(*srcBody)) {
    case BookmarkForm::placeholder: return placeholderReplaced(*srcBody, marked);
    case BookmarkForm::quoted: return updateVnBodyWithVnBookmark(srcBody, marked);
    case BookmarkForm::unquoted: return updateVnBodyWithVnBookmarkEx(srcBody, marked);
    case BookmarkForm::none: break;
  }
  // An updated meeting whose bookmarks are gone: the invitation replaces the user's body. While one end of them is
  // left, the rest of the invitation may be anywhere and the body is mostly the user's, so it stays and the
  // invitation is added anew.
  const bool isUpdate = vnMeetingMgr && vnMeetingMgr->isUpdateVornMeetingEvent();
  if (isUpdate && !holdsAnyBookmark(*srcBody)) return marked;
  const bool atTop = vnMeetingMgr && vnMeetingMgr->putInvitationAtTheTop();
  OptionalText result = newVnBodyToEnd(srcBody, marked, atTop);
  if (!result || result->empty()) return marked;
  return result;
}

OptionalText vnBodyHelper::updateBodyForPAC(const OptionalText& srcBody, const OptionalText& vnBody,
                                            bool isHTMLVnBody) const {
  if (isHTMLVnBody) return newVnBodyToEnd(srcBody, vnBody, false);
  return newVnBodyToEnd(srcBody, betweenBlankLines(convertPlainTextToHTML(vnBody).value_or("")), false);
}

bool vnBodyHelper::isEqualHTMLBodyContent(const OptionalText& srcBody, const OptionalText& destBody) const {
  const OptionalText src = vnOLUtils::trimAllSpace(convertHTMLToPlainText(srcBody));
  const OptionalText dest = vnOLUtils::trimAllSpace(convertHTMLToPlainText(destBody));
  return src && dest && *src == *dest;
}

}  // namespace vorn

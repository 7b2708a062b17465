#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "invitation/InvitationOwner.h"
#include "invitation/RecentTexts.h"
#include "util/Value.h"

namespace vorn {

// The invisible anchors around the invitation text in an appointment's body.
inline constexpr std::string_view kvn_BeginBookmark = "<a name=\"MacVnBookmarkBegin\"></a>";
inline constexpr std::string_view kvn_EndBookmark = "<a name=\"MacVnBookmarkEnd\"></a>";
// The same anchors after an editor has dropped the quotes.
inline constexpr std::string_view kvn_BeginBookmarkEx = "<a name=MacVnBookmarkBegin></a>";
inline constexpr std::string_view kvn_EndBookmarkEx = "<a name=MacVnBookmarkEnd></a>";
// What a placeholder body holds; whoever finds both replaces the whole span, the decoration too.
inline constexpr std::string_view kvn_InitBeginBookMark = "<br><br>+<a name=\"MacVnBookmarkBegin\"></a>";
inline constexpr std::string_view kvn_InitEndBookMark = "<a name=\"MacVnBookmarkEnd\"></a>.<br><br>";
inline constexpr std::string_view HTTP_TAG = "http://";
inline constexpr std::string_view HTTPS_TAG = "https://";
inline constexpr std::string_view HTML_NBSP_TAG = "&nbsp;";
inline constexpr std::string_view EMPTY_STRING;
// How many characters behind its place the begin bookmark is put, and how far the span that it opens reaches back.
// None, and it has never been another number.
inline constexpr std::size_t g_offset_BeginBookmarkInsert = 0;

// In which form a body holds a begin and an end bookmark.
enum class BookmarkForm { none, placeholder, quoted, unquoted };

// Every string operation on an appointment's body: how the invitation gets into it, is found again after the user
// has edited around it, is replaced, and is taken out.
//
// Bodies are HTML in UTF-8; nothing here touches the host. Any thread, but for sharedInstance(), which is the
// main thread's. Time is linear in the texts, and beside the body that is given and the one that comes of it no
// further copy of a long body is made. Absence in gives absence out unless something else is said; a caller shows
// "" for it.
class vnBodyHelper {
 public:
  static vnBodyHelper& sharedInstance();

  // The text without every "&nbsp;".
  OptionalText trimHTMLNBSPTags(const OptionalText& html) const;
  // What a reader sees of the HTML, its "&nbsp;" left out; absent for an empty text too.
  OptionalText convertHTMLToPlainText(const OptionalText& html) const;
  // Plain text as HTML: new lines become "<br>", URLs become links. A URL at the very start, at the very end, or
  // with only white space between it and the URL before stays plain text, and so do all behind the 256th of a
  // text.
  OptionalText convertPlainTextToHTML(const OptionalText& text) const;

  // The invitation between bookmarks, ready for a body; "" for an absent or empty one. Around a plain one stand
  // two blank lines on either side, outside the bookmarks, and each update adds them again. A URL that reaches to
  // the end of a plain one would take the end bookmark into its link, so a line end parts the two then.
  std::string insertVnBodyBookMark(const OptionalText& vnBody, bool isHTML) const;

  // Puts a new text into a body that has none: before the closing body tag, or at the top behind the opening one,
  // with a "<br>" above it.
  OptionalText newVnBodyToEnd(const OptionalText& body, const OptionalText& newBody, bool positionAtTop) const;

  // The form that an update of this body goes by: a placeholder before quoted bookmarks, these before unquoted
  // ones.
  static BookmarkForm bookmarkForm(std::string_view body);
  // Also one that has lost its other end.
  static bool holdsAnyBookmark(std::string_view body);

  // Replaces what lies between the bookmarks, and the decoration that the editor put around them, by a text with
  // bookmarks of its own. Absent when that text has no bookmarks, or the body has none where they are needed; the
  // body itself when its end bookmark stands before its begin bookmark with something between them.
  OptionalText updateVnBodyWithVnBookmark(const OptionalText& body, const OptionalText& bodyWithVnBookmark) const;
  OptionalText updateVnBodyWithVnBookmarkEx(const OptionalText& body,
                                            const OptionalText& bodyWithVnBookmark) const;

  // The entry for all updates: brings the invitation into the body in the way that the body calls for. The manager
  // may be null.
  OptionalText updateVnBodyWithSrcBody(const OptionalText& srcBody, const OptionalText& vnBody, bool isHTMLVnBody,
                                       InvitationOwner* vnMeetingMgr) const;

  // The body without the invitation; absent when it has no end bookmark. Without a begin bookmark everything
  // before the end goes.
  OptionalText removeVnBodyForDelete(const OptionalText& body) const;

  // Adds the text of a personal audio conference at the end, without bookmarks.
  OptionalText updateBodyForPAC(const OptionalText& srcBody, const OptionalText& vnBody, bool isHTMLVnBody) const;

  // True when the two bodies read the same apart from blanks; false when either is absent or has no text.
  bool isEqualHTMLBodyContent(const OptionalText& srcBody, const OptionalText& destBody) const;

 private:
  mutable RecentTexts m_recentTexts;
};

}  // namespace vorn

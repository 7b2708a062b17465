// The invitation in a body that a user has edited: put in, replaced and taken out, whatever the body holds.

#include "fuzz/Fuzzing.h"
#include "invitation/vnBodyHelper.h"
#include "util/TextSearch.h"

namespace {

// In any case: an update finds them so.
bool holdsBookmark(std::string_view text) {
  for (const std::string_view bookmark :
       {vorn::kvn_BeginBookmark, vorn::kvn_EndBookmark, vorn::kvn_BeginBookmarkEx, vorn::kvn_EndBookmarkEx}) {
    if (vorn::findIgnoringCase(text, bookmark) != std::string_view::npos) return true;
  }
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::fuzzing::check;
  vorn::fuzzing::Input input(data, size);
  const bool isHtml = input.byte() % 2 == 0;
  const std::string body(input.part());
  const std::string invitation(input.rest());
  const vorn::vnBodyHelper helper;

  const std::string marked = helper.insertVnBodyBookMark(invitation, isHtml);
  helper.updateVnBodyWithVnBookmark(body, marked);
  helper.updateVnBodyWithVnBookmarkEx(body, marked);
  helper.updateBodyForPAC(body, invitation, isHtml);
  helper.convertHTMLToPlainText(body);
  helper.isEqualHTMLBodyContent(body, invitation);
  helper.removeVnBodyForDelete(body);
  const vorn::OptionalText updated = helper.updateVnBodyWithSrcBody(body, invitation, isHtml, nullptr);
  const vorn::OptionalText placed = helper.newVnBodyToEnd(body, marked, isHtml);
  if (placed && !marked.empty()) {
    check(helper.removeVnBodyForDelete(placed).has_value(), "what was put in can be taken out");
    if (isHtml && !holdsBookmark(body) && !holdsBookmark(invitation)) {
      check(helper.removeVnBodyForDelete(helper.newVnBodyToEnd(body, marked, false)) == body,
            "an invitation leaves no trace");
      check(helper.updateVnBodyWithSrcBody(updated, invitation, true, nullptr) == updated,
            "updating twice equals updating once");
    }
  }
  if (updated) helper.removeVnBodyForDelete(updated);
  return 0;
}

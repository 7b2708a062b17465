// What one operation on an appointment's body makes of a text that somebody has reported.

#include "diagnosis/Diagnosis.h"
#include "invitation/vnBodyHelper.h"

namespace vorn {

namespace {

// A manager that says what the question says.
class AssumedOwner final : public InvitationOwner {
 public:
  explicit AssumedOwner(const Value& parameters)
      : m_isUpdate(parameters["existingMeeting"].boolValue()), m_isAtTop(parameters["atTop"].boolValue()) {}

  bool isUpdateVornMeetingEvent() override { return m_isUpdate; }
  bool putInvitationAtTheTop() override { return m_isAtTop; }
  OptionalText encodeMailBody() override { return std::nullopt; }

 private:
  bool m_isUpdate;
  bool m_isAtTop;
};

std::string_view nameOf(BookmarkForm form) {
  switch (form) {
    case BookmarkForm::placeholder: return "placeholder";
    case BookmarkForm::quoted: return "quoted";
    case BookmarkForm::unquoted: return "unquoted";
    case BookmarkForm::none: break;
  }
  return "none";
}

OptionalText resultOf(std::string_view operation, const OptionalText& body, const Value& parameters) {
  const vnBodyHelper& helper = vnBodyHelper::sharedInstance();
  const OptionalText invitation = parameters["invitation"].optionalText();
  const bool isHTML = parameters["isHTML"].boolValue();
  AssumedOwner owner(parameters);
  if (operation == "remove") return helper.removeVnBodyForDelete(body);
  if (operation == "text") return helper.convertHTMLToPlainText(body);
  if (!invitation || invitation->empty()) return std::nullopt;
  if (operation == "update") return helper.updateVnBodyWithSrcBody(body, invitation, isHTML, &owner);
  return helper.newVnBodyToEnd(body, helper.insertVnBodyBookMark(invitation, isHTML),
                               owner.putInvitationAtTheTop());
}

// Why an operation has given nothing.
std::string_view reasonOf(std::string_view operation, std::string_view body) {
  if (operation == "text") return "the body is empty";
  if (operation == "remove") {
    return vnBodyHelper::holdsAnyBookmark(body) ? "not both bookmarks are there as we write them"
                                                : "no bookmarks were found";
  }
  return "the invitation is empty";
}

}  // namespace

Value Diagnosis::body(const Value& parameters) {
  const std::string& operation = parameters["operation"].text();
  const OptionalText body = parameters["body"].text();
  const OptionalText result = resultOf(operation, body, parameters);
  const BookmarkForm form = vnBodyHelper::bookmarkForm(*body);
  // A removal makes do with an end whose begin was lost.
  const bool isEndAlone = operation == "remove" && form == BookmarkForm::none && result;
  Value answer =
      Value::dictionaryFromPairs({{"result", nullptr},
                                  {"bookmarks", std::string(isEndAlone ? "unquoted end" : nameOf(form))},
                                  {"reason", std::string(result ? "" : reasonOf(operation, *body))}});
  if (result) answer.set("result", *result);
  return answer;
}

}  // namespace vorn

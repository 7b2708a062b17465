#pragma once

#include <string_view>

#include "util/Value.h"

namespace vorn {

// Tells people who support users what this system finds on the machine and understands of the account.
//
// Main thread only, while the plug-in stands. E-mail addresses and passcodes are covered with "******" in every
// answer, but where it says otherwise.
//
//   question     parameters       answer
//   "client"     none             groups; "troubles": texts, each a reason why no meeting could be made now
//   "fetch"      "what"           asks the client. "profile" is for the profile, behind which the request for the
//                                 audio conferences follows by itself; "people" for the people to schedule for,
//                                 when there are any. "sent": whether the request passed the gate, also one that
//                                 the channel then drops; "refused": the code for which it did not. The replies
//                                 come by the run loop
//   "account"    none             groups; "hasProfile"
//   "defaults"   none             one group: each setting of a new meeting, and who decided it; "hasProfile"
//   "hooks"      none             a group for each class of the host, a row for each selector, with how its hook
//                                 fared; "rows" and "standing": how many there are and how many of them stand
//   "appointment"  "event"        groups: what is seen in the host's event, and where its meeting's key comes from
//   "window"     "editor"         of the host's editor: "hasBar"; "action" and "actionName", the last command;
//                                 "state" and "stateName", what the manager waits for; "key", the meeting's number
//                                 or ""; "hostAction", the host's operation that waits; "actionResult"; and flags:
//                                 "fromFieldChanged", "supported", "updateIsForced", "dragIsUnderWay",
//                                 "openedFromClient". Without a bar the shared manager answers, as for any
//                                 window that is not known
//   "panel"      "editor"         "hasPanel": whether the settings panel was opened in the editor's window;
//                                 then one group with what its commit would hand out, and "settings", the same
//                                 as a dictionary and uncovered, for comparing and never for showing
//   "body"       "operation"      "result": what "insert", "update", "remove" or "text" makes of "body", which is
//                                 given back uncovered; null when it gives nothing, for "reason". "bookmarks":
//                                 the form that was found. Further parameters of the first two: "invitation",
//                                 "isHTML", "atTop", and "existingMeeting" of "update"
//
// "groups" is an array as DiagnosisReport makes it.
class Diagnosis {
 public:
  // False for a question that is not known; the answer is then left alone.
  static bool answer(std::string_view question, const Value& parameters, Value& answer);

 private:
  static Value client();
  static Value fetch(const Value& parameters);
  static Value account();
  static Value defaults();
  static Value hooks();
  static Value appointment(const Value& parameters);
  static Value window(const Value& parameters);
  static Value panel(const Value& parameters);
  static Value body(const Value& parameters);
};

}  // namespace vorn

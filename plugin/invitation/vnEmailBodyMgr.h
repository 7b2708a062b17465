#pragma once

#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "invitation/InvitationOwner.h"
#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// Decides whether the body of an appointment needs a new invitation, and hands over to the editor, which reads and
// writes the host's own. One for each meeting manager. Main thread.
class vnEmailBodyMgr {
 public:
  // The one for a window without a manager.
  static vnEmailBodyMgr& sharedInstance();

  // The manager stays the caller's and outlives this object; null for none.
  void setMeetingMgrInstance(InvitationOwner* manager) { m_manager = manager; }

  // Brings the invitation into the editor's body when that is due.
  void updateMailBody(const HostObject& editor, const OptionalText& vnInviteEmail, bool isDelete, bool isHTML);
  // Adds the text of a personal audio conference without any test.
  void updateMailBodyForPAC(const HostObject& editor, const OptionalText& vnInviteEmail, bool isHTML);

  // True unless the invitation's plain text is the one that the manager has written last.
  bool isVnBodyChanged(const OptionalText& vnPlainText) const;
  // True for a delete or an invitation that is not empty, when the body is empty or the invitation has changed.
  // False without an editor.
  bool needUpdateVnEmail(const vnERCalendarEventEditorViewController* editor, const OptionalText& vnInviteEmail,
                         bool isVnDelete, bool isHTML) const;

  // The source body with the invitation in it, or without it when the invitation is empty.
  OptionalText getMailBodyContentWithVorn(const OptionalText& sourceBody, const OptionalText& vnInviteEmail,
                                          bool isHTMLBody) const;

 private:
  InvitationOwner* m_manager = nullptr;
};

}  // namespace vorn

#include "invitation/vnEmailBodyMgr.h"

#include "invitation/vnBodyHelper.h"
#include "platform/Registry.h"
#include "util/vnMd5Utils.h"

namespace vorn {

vnEmailBodyMgr& vnEmailBodyMgr::sharedInstance() { return Registry::shared<vnEmailBodyMgr>(); }

void vnEmailBodyMgr::updateMailBody(const HostObject& editor, const OptionalText& vnInviteEmail, bool isDelete,
                                    bool isHTML) {
  if (!editor) return;
  vnERCalendarEventEditorViewController proxy(editor);
  if (!needUpdateVnEmail(&proxy, vnInviteEmail, isDelete, isHTML)) return;
  proxy.updateEmailBodyWithVornContent(vnInviteEmail, isHTML);
}

void vnEmailBodyMgr::updateMailBodyForPAC(const HostObject& editor, const OptionalText& vnInviteEmail,
                                          bool isHTML) {
  vnERCalendarEventEditorViewController(editor).updateEmailBodyForPAC(vnInviteEmail, isHTML);
}

bool vnEmailBodyMgr::isVnBodyChanged(const OptionalText& vnPlainText) const {
  const OptionalText digest = m_manager ? m_manager->encodeMailBody() : std::nullopt;
  return isEmpty(digest) || digest != vnMd5Utils::vnMD5Hex(vnPlainText);
}

bool vnEmailBodyMgr::needUpdateVnEmail(const vnERCalendarEventEditorViewController* editor,
                                       const OptionalText& vnInviteEmail, bool isVnDelete, bool isHTML) const {
  if (!editor) return false;
  if (!isVnDelete && isEmpty(vnInviteEmail)) return false;
  if (editor->isCurrentEmailBodyEmpty()) return true;
  // The digest is one of plain text, so that it does not depend on how the invitation was delivered.
  return isVnBodyChanged(isHTML ? vnBodyHelper::sharedInstance().convertHTMLToPlainText(vnInviteEmail)
                                : vnInviteEmail);
}

OptionalText vnEmailBodyMgr::getMailBodyContentWithVorn(const OptionalText& sourceBody,
                                                        const OptionalText& vnInviteEmail, bool isHTMLBody) const {
  const vnBodyHelper& helper = vnBodyHelper::sharedInstance();
  if (isEmpty(vnInviteEmail)) return helper.removeVnBodyForDelete(sourceBody);
  return helper.updateVnBodyWithSrcBody(sourceBody, vnInviteEmail, isHTMLBody, m_manager);
}

}  // namespace vorn

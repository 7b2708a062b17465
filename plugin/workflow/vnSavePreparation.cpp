#include "workflow/vnSavePreparation.h"

#include "util/HtmlText.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnMeetingMgrMonitor.h"

namespace vorn {

namespace {

std::shared_ptr<MeetingBar> barOfEditor(const HostObject& editor) {
  return vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByEditorViewCtrl(editor);
}

}  // namespace

void vn_preHandleVnMeeting(const HostObject& editor) {
  const auto bar = barOfEditor(editor);
  if (!bar) return;
  vnERCalendarEventEditorViewController proxy(editor);
  if (!bar->currentIsVornMeeting()) return renewBodyToStore(proxy);
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByVnView(bar.get());
  if (bar->fromFieldChanged() && manager && !manager->getMeetingHelper()->supportHtmlEmail()) {
    vn_convertMailBodyToPlainText(editor);
  }
  vn_preSaveDataBeforeSaveAndClose(proxy);
}

void vn_preSaveDataBeforeSaveAndClose(vnERCalendarEventEditorViewController& editor) {
  const auto bar = barOfEditor(editor.getDelegate());
  if (!bar) return;
  ApptSaveData& save = vnApptDataForSaveRecord::sharedInstance().of(bar);
  const OptionalText body = editor.bodyContent().optionalText();
  if (body && !htmlShowsNothing(*body)) save.setOLNewBody(body);
  if (bar->isDeleteVornMeeting()) return;
  if (const OptionalText location = editor.getLocationFromUI()) save.setOLNewLocation(location);
}

void renewBodyToStore(vnERCalendarEventEditorViewController& editor) {
  const auto bar = barOfEditor(editor.getDelegate());
  if (!bar) return;
  ApptSaveData& save = vnApptDataForSaveRecord::sharedInstance().of(bar);
  if (!save.getOLNewBody()) return;
  if (const OptionalText body = editor.bodyContent().optionalText()) save.setOLNewBody(body);
}

void vn_convertMailBodyToPlainText(const HostObject& editor) {
  vnERCalendarEventEditorViewController(editor).convertBodyContentFormat(false);
}

}  // namespace vorn

#include "workflow/vnSavePreparation.h"

#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "util/HtmlText.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnMeetingMgrMonitor.h"

namespace vorn {

void vn_preHandleVnMeeting(const HostObject& editor) {
  const auto bar = barOfEditor(editor);
  if (!bar || !bar->currentIsVornMeeting()) return;
  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByVnView(bar.get());
  // A meeting that has not been fetched yet says nothing of its invitation's form.
  const vnGetMeetingHelper* meeting = manager ? manager->getMeetingHelper() : nullptr;
  if (bar->fromFieldChanged() && meeting && meeting->hasMeetingInfo() && !meeting->supportHtmlEmail()) {
    vn_convertMailBodyToPlainText(editor);
  }
  vnERCalendarEventEditorViewController proxy(editor);
  vn_preSaveDataBeforeSaveAndClose(proxy);
}

void vn_preSaveDataBeforeSaveAndClose(vnERCalendarEventEditorViewController& editor) {
  const auto bar = barOfEditor(editor.getDelegate());
  if (!bar) return;
  const OptionalText body = editor.bodyContent().optionalText();
  const OptionalText location = bar->isDeleteVornMeeting() ? std::nullopt : editor.getLocationFromUI();
  ApptSaveData& left = vnApptDataForSaveRecord::sharedInstance().of(bar);
  if (body && !htmlShowsNothing(*body)) left.setOLNewBody(body);
  if (location) left.setOLNewLocation(location);
}

void renewDataToStore(const std::shared_ptr<MeetingBar>& bar) {
  const vnERCalendarEventEditorViewController editor(bar->editorViewController());
  const OptionalText body = editor.bodyContent().optionalText();
  const OptionalText location = editor.getLocationFromUI();
  ApptSaveData* left = vnApptDataForSaveRecord::sharedInstance().find(bar);
  if (!left) return;
  if (body && left->getOLNewBody()) left->setOLNewBody(body);
  // The empty location of a meeting says that none is to be written; only a cleaned one may be empty.
  const bool isNoted = !left->getOLNewLocation().value_or("").empty() || left->needClearLocation();
  if (location && isNoted) left->setOLNewLocation(location);
}

void vn_convertMailBodyToPlainText(const HostObject& editor) {
  vnERCalendarEventEditorViewController(editor).convertBodyContentFormat(false);
}

}  // namespace vorn

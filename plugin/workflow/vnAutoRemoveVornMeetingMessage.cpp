#include "workflow/vnAutoRemoveVornMeetingMessage.h"

#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/TracedAlert.h"
#include "workflow/MeetingWindow.h"

namespace vorn {

vnAutoRemoveVornMeetingMessage& vnAutoRemoveVornMeetingMessage::sharedInstance() {
  return Registry::shared<vnAutoRemoveVornMeetingMessage>();
}

void vnAutoRemoveVornMeetingMessage::showMessage(const HostObject& parentWindow) const {
  const Presenter::Alert alert{"",
                               localizedString("RemoveVornMeetingForOther"),
                               {localizedString("Button_OKGot"), localizedString("Button_Cancel")},
                               Presenter::kWarningIcon};
  showTracedAlert(parentWindow, alert, [editor = m_editor](const Presenter::Answer& answer) {
    // The window, or this whole system, may have gone meanwhile.
    if (answer.button != 0 || !Registry::platform().classRuntime) return;
    const auto bar = MeetingWindow::ofEditor(editor).bar();
    if (bar && bar->currentIsVornMeeting()) bar->autoRemoveVornMeeting();
  });
}

}  // namespace vorn

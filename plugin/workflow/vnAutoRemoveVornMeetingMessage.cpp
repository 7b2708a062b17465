#include "workflow/vnAutoRemoveVornMeetingMessage.h"

#include "platform/Localization.h"
#include "platform/Presenter.h"
#include "platform/Registry.h"
#include "platform/TraceStep.h"
#include "workflow/MeetingWindow.h"

namespace vorn {

vnAutoRemoveVornMeetingMessage& vnAutoRemoveVornMeetingMessage::sharedInstance() {
  return Registry::shared<vnAutoRemoveVornMeetingMessage>();
}

void vnAutoRemoveVornMeetingMessage::showMessage(const HostObject& parentWindow) const {
  Presenter* presenter = Registry::platform().presenter;
  if (!presenter) return;
  const Presenter::Alert alert{"",
                               localizedString("RemoveVornMeetingForOther"),
                               {localizedString("Button_OKGot"), localizedString("Button_Cancel")},
                               Presenter::kWarningIcon};
  traceStep("alert", [&] { return Value::dictionaryFromPairs({{"message", alert.message}}); });
  presenter->showAlert(parentWindow, alert, [editor = m_editor](const Presenter::Answer& answer) {
    // The window, or this whole system, may have gone meanwhile.
    if (answer.button != 0 || !Registry::platform().classRuntime) return;
    const auto bar = MeetingWindow::ofEditor(editor).bar();
    if (bar && bar->currentIsVornMeeting()) bar->autoRemoveVornMeeting();
  });
}

}  // namespace vorn

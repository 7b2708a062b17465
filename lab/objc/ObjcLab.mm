#include "lab/objc/ObjcLab.h"

#include "lab/objc/HostControls.h"
#include "lab/shell/MeetingRoad.h"

namespace vornlab {

namespace {

// The bar's buttons, by what they send.
constexpr const char* kAdd = "onClickAddVornMeeting:";
constexpr const char* kCancel = "onClickCancelVornMeeting:";

}  // namespace

ObjcLab::ObjcLab(const LabOptions& options, CalendarStore& calendar, const std::string& userAddress)
    : ObjcSession(options, calendar, userAddress) {}

MeetResult ObjcLab::take(const CalendarEvent& event, MeetingRoad::Aim aim) {
  const Pool pool;
  const std::string textBefore = event.calendarText();
  const bool hadMeeting = !describe(event).meetingKey.empty();
  MeetResult walked;
  walked.reason = walk(event, walked, aim);
  closeEditors();
  if (aim == MeetingRoad::Aim::remove) return endOfRemoval(event, walked);
  return endOfRoad(event, walked, hadMeeting, event.calendarText() != textBefore);
}

std::string ObjcLab::walk(const CalendarEvent& event, MeetResult& result, MeetingRoad::Aim aim) {
  [NSAlert takeLastMessage];
  std::string alert;
  const auto isAlerted = [&] {
    if (alert.empty()) alert = noticeInWords([NSAlert takeLastMessage]);
    return !alert.empty();
  };
  const std::string tooLate = "the client did not answer in time";

  ECCalendarEvent* shown =
      [[[ECCalendarEvent alloc] initWithStore:&calendar()
                                        index:static_cast<NSInteger>(event.index())] autorelease];
  ERCalendarEventEditorWindowController* controller = openEditorOf(shown);
  if (!controller) return "the host cannot open the appointment";
  ERCalendarEventEditorViewController* editor = [controller editorViewController];
  if (!waitForQuiet()) return tooLate;
  if (isAlerted()) return alert;

  NSView* bar = barIn(controller->m_header);
  if (!bar) return "the plug-in put no bar into the editor";
  const auto showsMeeting = [bar] { return look(controlBelow(bar, kCancel)).isShown; };
  if (aim == MeetingRoad::Aim::remove) {
    if (!press(controlBelow(bar, kCancel))) {
      result.outcome = Outcome::skipped;
      return "it has no meeting";
    }
    if (!waitForQuiet()) return tooLate;
    // Where the meeting has gone is told when it has gone, and is no trouble.
    if (showsMeeting()) return isAlerted() ? alert : "the plug-in did not take the meeting away";
    [NSAlert takeLastMessage];
  } else if (press(controlBelow(bar, kAdd))) {
    if (!waitForQuiet()) return tooLate;
    if (isAlerted()) return alert;
    if (!showsMeeting()) return "the plug-in did not add a meeting";
  } else if (!showsMeeting()) {
    result.outcome = Outcome::skipped;
    return "the plug-in offers no meeting for it";
  }

  NSWindow* window = [editor window];
  if ([[editor attendeeList] count] > 0) {
    [editor sendMeetingPostValidate];
  } else {
    [editor saveAndClose:nil];
  }
  const bool isOver = waitUntil([&] { return ![window isVisible] || isAlerted(); }, options().timeoutSeconds);
  if (![window isVisible]) return "";
  return isOver ? alert : tooLate;
}

}  // namespace vornlab

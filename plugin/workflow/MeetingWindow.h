#pragma once

#include <memory>
#include <string>
#include <utility>

#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "workflow/MeetingBar.h"

namespace vorn {

// The appointment window that one step of a flow works on: its bar, its editor, and what is asked of them.
//
// Made where the step begins and let go of at its end: windows come and go between a request and its reply, so
// nobody keeps one until then. A window without a bar or an editor answers as an absent object does. Main thread
// only.
class MeetingWindow {
 public:
  static MeetingWindow ofBar(const std::shared_ptr<MeetingBar>& bar);
  // The host's editor, with the bar of its window.
  static MeetingWindow ofEditor(const HostObject& editor);
  // The window that a reply's dictionary names; an empty one when it has gone.
  static MeetingWindow ofReply(const Value& data);
  // The window that the host knows by this object.
  static MeetingWindow ofHostWindow(const HostObject& window);

  // Null when no bar is known. Of a window that is only passed through, the bar itself.
  const std::shared_ptr<MeetingBar>& bar() const& { return m_bar; }
  std::shared_ptr<MeetingBar> bar() && { return std::move(m_bar); }
  const HostObject& editor() const { return m_proxy.delegate(); }
  vnERCalendarEventEditorViewController& proxy() { return m_proxy; }
  // The appointment that the editor shows; null for none. It stays the proxy's.
  vnECCalendarEvent* event() { return m_proxy.ecCalendarEvent(); }
  // The window id; absent without a bar.
  OptionalText id() const;
  // Where notices of this window are shown: the host's main window without a bar.
  HostObject parentWindow() const;
  // What the location field shows; the appointment's location where there is no field.
  OptionalText shownLocation();
  // Writes a location into the appointment, its field and the editor.
  void showLocation(const std::string& location);
  OptionalText getApptUUID();

 private:
  MeetingWindow(std::shared_ptr<MeetingBar> bar, const HostObject& editor);

  std::shared_ptr<MeetingBar> m_bar;
  vnERCalendarEventEditorViewController m_proxy;
};

}  // namespace vorn

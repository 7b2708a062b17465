#include "workflow/MeetingWindow.h"

#include <utility>

#include "channel/commands/vnAPIKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "workflow/vnActionAdditionViewMonitor.h"

namespace vorn {

MeetingWindow::MeetingWindow(std::shared_ptr<MeetingBar> bar, const HostObject& editor)
    : m_bar(std::move(bar)), m_proxy(editor) {}

MeetingWindow MeetingWindow::ofBar(const std::shared_ptr<MeetingBar>& bar) {
  return {bar, bar ? bar->editorViewController() : HostObject()};
}

MeetingWindow MeetingWindow::ofEditor(const HostObject& editor) { return {barOfEditor(editor), editor}; }

MeetingWindow MeetingWindow::ofReply(const Value& data) {
  return ofBar(vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByApptWindowID(
      data[keyApptWindowID].optionalText()));
}

MeetingWindow MeetingWindow::ofHostWindow(const HostObject& window) {
  return ofBar(vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByWindow(window));
}

OptionalText MeetingWindow::id() const { return m_bar ? m_bar->getAppointmentWindowID() : std::nullopt; }

HostObject MeetingWindow::parentWindow() const { return vnMeetingCommon::getPluginParentWindow(m_bar.get()); }

OptionalText MeetingWindow::shownLocation() {
  if (const OptionalText typed = m_proxy.getLocationFromUI()) return typed;
  const vnECCalendarEvent* shown = event();
  return shown ? shown->location() : std::nullopt;
}

void MeetingWindow::showLocation(const std::string& location) {
  if (const vnECCalendarEvent* shown = event()) shown->setLocation(location);
  m_proxy.updateLocationFieldFromUI(location);
  m_proxy.setLocation(location);
}

OptionalText MeetingWindow::getApptUUID() {
  const vnECCalendarEvent* shown = event();
  return shown ? shown->UUID() : std::nullopt;
}

}  // namespace vorn

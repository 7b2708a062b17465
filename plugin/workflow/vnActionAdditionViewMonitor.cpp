#include "workflow/vnActionAdditionViewMonitor.h"

#include <algorithm>

#include "platform/ClassRuntime.h"
#include "platform/Registry.h"

namespace vorn {

namespace {

HostObject contentOf(const HostObject& editor) {
  return Registry::platform().classRuntime->send(editor, "content").object();
}

template <typename Matches>
std::shared_ptr<MeetingBar> firstMatch(const std::vector<std::shared_ptr<MeetingBar>>& listed,
                                       const Matches& matches) {
  // A copy: each look asks the host, which may open or close a window meanwhile.
  const std::vector<std::shared_ptr<MeetingBar>> bars(listed.begin(), listed.end());
  const auto found = std::find_if(bars.begin(), bars.end(), [&](const auto& bar) { return matches(*bar); });
  return found == bars.end() ? nullptr : *found;
}

}  // namespace

vnActionAdditionViewMonitor& vnActionAdditionViewMonitor::sharedInstance() {
  return Registry::shared<vnActionAdditionViewMonitor>();
}

void vnActionAdditionViewMonitor::addVnActionAdditionViewInstance(const std::shared_ptr<MeetingBar>& bar) {
  if (bar) g_vnAdditionViewList.push_back(bar);
}

void vnActionAdditionViewMonitor::removeVnActionAdditionViewInstance(const MeetingBar* bar) {
  std::erase_if(g_vnAdditionViewList, [bar](const auto& listed) { return listed.get() == bar; });
}

std::shared_ptr<MeetingBar> vnActionAdditionViewMonitor::getVnActionAdditionViewByEditorWinCtrl(
    const HostObject& windowController) const {
  if (!windowController) return nullptr;
  const std::string wanted = windowController.windowId();
  return firstMatch(g_vnAdditionViewList,
                    [&](MeetingBar& bar) { return bar.editorWindowController().windowId() == wanted; });
}

std::shared_ptr<MeetingBar> vnActionAdditionViewMonitor::getVnActionAdditionViewByEditorViewCtrl(
    const HostObject& editor) const {
  return getVnActionAdditionViewByECCalendarEvent(contentOf(editor));
}

std::shared_ptr<MeetingBar> vnActionAdditionViewMonitor::getVnActionAdditionViewByECCalendarEvent(
    const HostObject& event) const {
  if (!event) return nullptr;
  const std::string wanted = event.windowId();
  return firstMatch(g_vnAdditionViewList,
                    [&](MeetingBar& bar) { return contentOf(bar.editorViewController()).windowId() == wanted; });
}

std::shared_ptr<MeetingBar> vnActionAdditionViewMonitor::getVnActionAdditionViewByWindowIdentify(
    const OptionalText& windowId) const {
  if (!windowId) return nullptr;
  return firstMatch(g_vnAdditionViewList, [&](MeetingBar& bar) {
    const HostObject window = bar.window();
    return window && window.windowId() == *windowId;
  });
}

std::shared_ptr<MeetingBar> vnActionAdditionViewMonitor::getVnActionAdditionViewByWindow(
    const HostObject& window) const {
  return window ? getVnActionAdditionViewByWindowIdentify(window.windowId()) : nullptr;
}

std::shared_ptr<MeetingBar> vnActionAdditionViewMonitor::getVnActionAdditionViewByApptWindowID(
    const OptionalText& windowId) const {
  if (!windowId) return nullptr;
  return firstMatch(g_vnAdditionViewList,
                    [&](MeetingBar& bar) { return bar.getAppointmentWindowID() == windowId; });
}

std::shared_ptr<MeetingBar> barOfEditor(const HostObject& editor) {
  return vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByEditorViewCtrl(editor);
}

}  // namespace vorn

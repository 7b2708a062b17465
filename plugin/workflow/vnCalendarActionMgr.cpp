#include "workflow/vnCalendarActionMgr.h"

#include "host/proxies/vnECCalendarEvent.h"
#include "platform/ClassRuntime.h"
#include "platform/Registry.h"

namespace vorn {

vnCalendarActionMgr& vnCalendarActionMgr::sharedInstance() { return Registry::shared<vnCalendarActionMgr>(); }

bool vnCalendarActionMgr::isCurVornMeeting(const HostObject& event) {
  vnECCalendarEvent proxy(event);
  return proxy.isValidConnection() && proxy.isVornMeeting();
}

HostObject vnCalendarActionMgr::mainWindow() {
  ClassRuntime& runtime = *Registry::platform().classRuntime;
  const ClassRef wanted = runtime.NSClassFromString("ERageMainWindowController");
  const HostObject applicationClass = runtime.classObject(runtime.NSClassFromString("NSApplication"));
  const HostObject application = runtime.send(applicationClass, "sharedApplication").object();
  const Value windows = runtime.send(application, "windows");
  for (const Value& window : windows.items()) {
    if (runtime.isKindOf(runtime.send(window.object(), "windowController").object(), wanted))
      return window.object();
  }
  return {};
}

}  // namespace vorn

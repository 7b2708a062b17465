// What a person sees and presses: in the ribbon, the toolbar and an editor's bar.

#include "lab/objc/HostControls.h"
#include "lab/objc/ObjcLab.h"

namespace vornlab {

namespace {

ERageMainWindowController* asController(void* object) { return static_cast<ERageMainWindowController*>(object); }

}  // namespace

void ObjcLab::showMailPane() {
  const Pool pool;
  [asController(mainWindowController()) loadMailPane];
}

void ObjcLab::showCalendarPane() {
  const Pool pool;
  [asController(mainWindowController()) loadCalendarPane];
}

void ObjcLab::chooseRibbonTab(std::uint32_t tab) {
  const Pool pool;
  [[asController(mainWindowController()) ribbon] setActiveTabIndex:tab];
}

void ObjcLab::rebuildRibbon(bool hasAddins) {
  const Pool pool;
  [asController(mainWindowController()) rebuildRibbonWithAddins:hasAddins];
}

HostControl ObjcLab::ribbonControl(const ControlName& name) const {
  const Pool pool;
  return look(controlBelow([asController(mainWindowController()) ribbon], name));
}

bool ObjcLab::clickRibbon(const ControlName& name) {
  const Pool pool;
  return press(controlBelow([asController(mainWindowController()) ribbon], name));
}

bool ObjcLab::addToolbarItem(const std::string& identifier) {
  const Pool pool;
  NSToolbar* toolbar = [[asController(mainWindowController()) window] toolbar];
  const NSUInteger count = [[toolbar items] count];
  [toolbar insertItemWithItemIdentifier:foundationText(std::string_view(identifier))
                                atIndex:static_cast<NSInteger>(count)];
  return [[toolbar items] count] > count;
}

HostControl ObjcLab::toolbarControl(const ControlName& name) const {
  const Pool pool;
  return look(controlIn([[asController(mainWindowController()) window] toolbar], name));
}

bool ObjcLab::clickToolbar(const ControlName& name) {
  const Pool pool;
  return press(controlIn([[asController(mainWindowController()) window] toolbar], name));
}

HostControl ObjcLab::barControl(const ControlName& name) const {
  const Pool pool;
  ERCalendarEventEditorWindowController* controller =
      [[ERCalendarEventEditorWindowController openControllers] lastObject];
  return controller ? look(controlBelow(barIn(controller->m_header), name)) : HostControl();
}

std::size_t ObjcLab::openEditors() const {
  const Pool pool;
  return [[ERCalendarEventEditorWindowController openControllers] count];
}

void ObjcLab::openEditor(const CalendarEvent& event) {
  const Pool pool;
  ECCalendarEvent* shown =
      [[[ECCalendarEvent alloc] initWithStore:&calendar()
                                        index:static_cast<NSInteger>(event.index())] autorelease];
  [ERCalendarEventEditorWindowController showWindowForEvent:shown];
}

void ObjcLab::closeEditors() {
  const Pool pool;
  {
    const Pool closing;
    NSEnumerator* open = [[ERCalendarEventEditorWindowController openControllers] objectEnumerator];
    while (ERCalendarEventEditorWindowController* controller = [open nextObject]) [controller close];
  }
  passTime(kClearingSeconds);
}

std::size_t ObjcLab::livingViews(const std::string& className) const {
  const Pool pool;
  return vornlab::livingViews(className);
}

}  // namespace vornlab

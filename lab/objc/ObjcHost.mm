#include "lab/objc/ObjcHost.h"

#include <utility>

#import "lab/objc/HostClasses.h"
#import "lab/objc/HostControls.h"
#import "lab/objc/HostHand.h"

namespace vornlab {

namespace {

ERageMainWindowController* asMain(void* controller) { return static_cast<ERageMainWindowController*>(controller); }

NSToolbar* toolbarOf(void* mainWindowController) { return [[asMain(mainWindowController) window] toolbar]; }

// Nil for an editor that has closed.
ERCalendarEventEditorWindowController* controllerOf(HostFace::EditorId editor) {
  NSEnumerator* open = [[ERCalendarEventEditorWindowController openControllers] objectEnumerator];
  while (ERCalendarEventEditorWindowController* controller = [open nextObject]) {
    if (controller->m_number == editor) return controller;
  }
  return nil;
}

ERCalendarEventEditorViewController* editorOf(HostFace::EditorId editor) {
  return [controllerOf(editor) editorViewController];
}

HostFace::EditorId numberOf(ERCalendarEventEditorWindowController* controller) {
  return controller ? controller->m_number : 0;
}

vorn::HostObject objectOf(id object) { return vorn::HostObject(reinterpret_cast<std::uintptr_t>(object)); }

// Nil when there is none.
ECCalendarEvent* eventOf(const std::optional<Appointment>& shown) {
  return shown ? [ECCalendarEvent eventOf:*shown] : nil;
}

ECCalendarEvent* eventOf(std::string_view uid, std::string_view recurrenceId) {
  return eventOf(Appointment::find(hostState(), uid, recurrenceId));
}

// True when a record was stored while the act ran.
template <typename Act>
bool storesDuring(Act act) {
  const int before = hostState().storedCount;
  act();
  return hostState().storedCount != before;
}

}  // namespace

ObjcHost::ObjcHost(CalendarStore& calendar, const HostOptions& options) {
  const Pool pool;
  hostState() = {};
  hostState().store = &calendar;
  hostState().options = options;
  ErageAppDelegate* delegate = [[ErageAppDelegate alloc] init];
  m_applicationDelegate = delegate;
  [[NSApplication sharedApplication] setDelegate:static_cast<id>(delegate)];
}

ObjcHost::~ObjcHost() {
  const Pool pool;
  closeMainWindow();
  [[NSApplication sharedApplication] setDelegate:nil];
  [static_cast<ErageAppDelegate*>(m_applicationDelegate) release];
}

// -- The main window ---------------------------------------------------------------------------------------------

void ObjcHost::openMainWindow() {
  if (m_mainWindowController) return;
  const Pool pool;
  ERageMainWindowController* controller = [[ERageMainWindowController alloc] init];
  [[controller window] makeKeyAndOrderFront:nil];
  m_mainWindowController = controller;
  [controller windowDidBecomeMain:[NSNotification notificationWithName:@"NSWindowDidBecomeMainNotification"
                                                                object:[controller window]]];
  [controller loadCalendarPane];
}

void ObjcHost::closeMainWindow() {
  if (!m_mainWindowController) return;
  const Pool pool;
  ERageMainWindowController* controller = asMain(std::exchange(m_mainWindowController, nullptr));
  [controller windowWillClose:[NSNotification notificationWithName:@"NSWindowWillCloseNotification"
                                                            object:[controller window]]];
  [[controller window] close];
  // The host lets go of its objects when its own calls have unwound.
  [controller performSelector:@selector(release) withObject:nil afterDelay:0];
}

void ObjcHost::showMailPane() {
  const Pool pool;
  [asMain(m_mainWindowController) loadMailPane];
}

void ObjcHost::showCalendarPane() {
  const Pool pool;
  [asMain(m_mainWindowController) loadCalendarPane];
}

void ObjcHost::chooseRibbonTab(std::uint32_t tab) {
  const Pool pool;
  [[asMain(m_mainWindowController) ribbon] setActiveTabIndex:tab];
}

void ObjcHost::rebuildRibbon() {
  const Pool pool;
  [asMain(m_mainWindowController) rebuildRibbon];
}

bool ObjcHost::addToolbarItem(std::string_view identifier) {
  const Pool pool;
  NSToolbar* toolbar = toolbarOf(m_mainWindowController);
  const NSUInteger count = [[toolbar items] count];
  [toolbar insertItemWithItemIdentifier:foundationText(identifier) atIndex:static_cast<NSInteger>(count)];
  return [[toolbar items] count] > count;
}

HostControl ObjcHost::ribbonControl(const ControlName& name) const {
  const Pool pool;
  return look(controlBelow([asMain(m_mainWindowController) ribbon], name));
}

bool ObjcHost::clickRibbon(const ControlName& name) {
  const Pool pool;
  return press(controlBelow([asMain(m_mainWindowController) ribbon], name));
}

HostControl ObjcHost::toolbarControl(const ControlName& name) const {
  const Pool pool;
  return look(controlIn(toolbarOf(m_mainWindowController), name));
}

bool ObjcHost::clickToolbar(const ControlName& name) {
  const Pool pool;
  return press(controlIn(toolbarOf(m_mainWindowController), name));
}

// -- Editors -----------------------------------------------------------------------------------------------------

HostFace::EditorId ObjcHost::openEditorAt(std::size_t eventIndex) {
  const Pool pool;
  ECCalendarEvent* event = eventOf(Appointment::at(hostState(), eventIndex));
  return event ? numberOf(openEditorOf(event)) : 0;
}

HostFace::EditorId ObjcHost::openCancellation(std::string_view uid, std::string_view recurrenceId) {
  const Pool pool;
  ECCalendarEvent* event = eventOf(uid, recurrenceId);
  return numberOf([ERCalendarEventEditorWindowController showCancellationWindowForMeeting:event]);
}

HostFace::EditorId ObjcHost::openNew(double startSeconds) {
  const Pool pool;
  hostState().pointedAt = startSeconds;
  return numberOf([ERCalendarEventEditorWindowController showWindowForNewEvent]);
}

std::vector<HostFace::EditorId> ObjcHost::editors() const {
  const Pool pool;
  std::vector<EditorId> numbers;
  NSEnumerator* open = [[ERCalendarEventEditorWindowController openControllers] objectEnumerator];
  while (ERCalendarEventEditorWindowController* controller = [open nextObject])
    numbers.push_back(controller->m_number);
  return numbers;
}

void ObjcHost::typeSubject(EditorId editor, std::string_view text) {
  const Pool pool;
  if (ERCalendarEventEditorWindowController* open = controllerOf(editor))
    typeAsSeen(open, EditorField::subject, foundationText(text));
}

void ObjcHost::typeLocation(EditorId editor, std::string_view text) {
  const Pool pool;
  if (ERCalendarEventEditorWindowController* open = controllerOf(editor))
    typeAsSeen(open, EditorField::location, foundationText(text));
}

void ObjcHost::typeBody(EditorId editor, std::string_view html) {
  const Pool pool;
  ERCalendarEventEditorViewController* held = editorOf(editor);
  if (held) typeBodyInto(held, std::string(html));
}

void ObjcHost::typeTimes(EditorId editor, double startSeconds, double endSeconds) {
  const Pool pool;
  if (ERCalendarEventEditorWindowController* open = controllerOf(editor))
    typeTimesAsSeen(open, startSeconds, endSeconds);
}

vorn::HostObject ObjcHost::barView(EditorId editor) const {
  const Pool pool;
  ERCalendarEventEditorWindowController* controller = controllerOf(editor);
  return controller ? objectOf(barIn(controller->m_header)) : vorn::HostObject();
}

HostControl ObjcHost::barControl(EditorId editor, const ControlName& name) const {
  const Pool pool;
  ERCalendarEventEditorWindowController* controller = controllerOf(editor);
  return controller ? look(controlBelow(barIn(controller->m_header), name)) : HostControl();
}

bool ObjcHost::clickBar(EditorId editor, const ControlName& name) {
  const Pool pool;
  ERCalendarEventEditorWindowController* controller = controllerOf(editor);
  return controller && press(controlBelow(barIn(controller->m_header), name));
}

void ObjcHost::save(EditorId editor) {
  const Pool pool;
  if (ERCalendarEventEditorWindowController* open = controllerOf(editor)) endAsSeen(open, EndOfEditing::save);
}

void ObjcHost::saveAndClose(EditorId editor) {
  const Pool pool;
  if (ERCalendarEventEditorWindowController* open = controllerOf(editor))
    endAsSeen(open, EndOfEditing::saveAndClose);
}

void ObjcHost::saveAndCloseOrTell(EditorId editor) {
  const Pool pool;
  [editorOf(editor) saveAndCloseWindow:YES andReturnError:nil];
}

void ObjcHost::send(EditorId editor) {
  const Pool pool;
  if (ERCalendarEventEditorWindowController* open = controllerOf(editor)) endAsSeen(open, EndOfEditing::send);
}

void ObjcHost::closeWithoutSaving(EditorId editor) {
  const Pool pool;
  if (ERCalendarEventEditorWindowController* open = controllerOf(editor))
    endAsSeen(open, EndOfEditing::closeWithoutSaving);
}

void ObjcHost::changeFromField(EditorId editor) {
  const Pool pool;
  [editorOf(editor) fromFieldModified:nil];
}

bool ObjcHost::findsChangesForAttendees(EditorId editor) const {
  const Pool pool;
  ERCalendarEventEditorViewController* held = editorOf(editor);
  if (!held) return false;
  return [held checkMeetingChangesForAttendees:held->m_state->namesOfUncommitted().c_str()];
}

bool ObjcHost::isOpen(EditorId editor) const {
  const Pool pool;
  return controllerOf(editor) != nil;
}

bool ObjcHost::isDirty(EditorId editor) const {
  const Pool pool;
  return [editorOf(editor) isDirty];
}

bool ObjcHost::hasAttendees(EditorId editor) const {
  const Pool pool;
  return [[editorOf(editor) attendeeList] count] > 0;
}

std::string ObjcHost::subject(EditorId editor) const {
  const Pool pool;
  return plainText([editorOf(editor) getSubject:nil]);
}

std::string ObjcHost::location(EditorId editor) const {
  const Pool pool;
  return plainText([editorOf(editor) getLocation:nil]);
}

std::string ObjcHost::body(EditorId editor) const {
  const Pool pool;
  ERCalendarEventEditorViewController* held = editorOf(editor);
  return held ? plainText([[held->m_wordEditor editorContent] bodyContent]) : std::string();
}

vorn::HostObject ObjcHost::viewController(EditorId editor) const {
  const Pool pool;
  return objectOf(editorOf(editor));
}

vorn::HostObject ObjcHost::window(EditorId editor) const {
  const Pool pool;
  return objectOf([controllerOf(editor) window]);
}

int ObjcHost::sentCount() const { return hostState().sentCount; }

// -- The calendar's surface --------------------------------------------------------------------------------------

vorn::HostObject ObjcHost::eventOnGrid(std::size_t eventIndex) const {
  const Pool pool;
  const id event = [eventOf(Appointment::at(hostState(), eventIndex)) retain];
  if (!event) return {};
  const std::shared_ptr<void> keeper(static_cast<void*>(event),
                                     [](void* held) { [static_cast<id>(held) release]; });
  return vorn::HostObject(reinterpret_cast<std::uintptr_t>(event), keeper);
}

bool ObjcHost::drag(std::string_view uid, std::string_view recurrenceId, double newStartSeconds) {
  const Pool pool;
  ECCalendarEvent* event = m_mainWindowController ? eventOf(uid, recurrenceId) : nil;
  return event && storesDuring([&] { dragAsSeen(asMain(m_mainWindowController), event, newStartSeconds); });
}

bool ObjcHost::resize(std::string_view uid, std::string_view recurrenceId, double startSeconds,
                      double durationSeconds) {
  const Pool pool;
  ECCalendarEvent* event = m_mainWindowController ? eventOf(uid, recurrenceId) : nil;
  return event &&
         storesDuring([&] { resizeAsSeen(asMain(m_mainWindowController), event, startSeconds, durationSeconds); });
}

bool ObjcHost::rename(std::string_view uid, std::string_view recurrenceId, std::string_view subject) {
  const Pool pool;
  ECCalendarEvent* event = m_mainWindowController ? eventOf(uid, recurrenceId) : nil;
  return event &&
         storesDuring([&] { renameAsSeen(asMain(m_mainWindowController), event, foundationText(subject)); });
}

bool ObjcHost::deleteFromCalendar(std::string_view uid, std::string_view recurrenceId) {
  const Pool pool;
  ECCalendarEvent* event = eventOf(uid, recurrenceId);
  if (event) deleteAsSeen(asMain(m_mainWindowController), event);
  return event && !event->m_appointment.recordExists();
}

bool ObjcHost::cancelMeeting(std::string_view uid, std::string_view recurrenceId) {
  const Pool pool;
  ECCalendarEvent* event = eventOf(uid, recurrenceId);
  [event cancelMeetingInWindow:[asMain(m_mainWindowController) window]];
  return event && !event->m_appointment.recordExists();
}

}  // namespace vornlab

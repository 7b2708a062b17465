#include "lab/outlook/OutlookHost.h"

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

constexpr std::string_view kBarClass = "vnActionAdditionView";
constexpr std::string_view kEditorWindows = "ERCalendarEventEditorWindowController";

}  // namespace

OutlookHost::OutlookHost(vorn::EmbeddedClassRuntime& runtime, vorn::HostRunLoop& runLoop,
                         vorn::NotificationCenter& center, Options options)
    : world_(std::make_shared<HostWorld>(runtime, runLoop, center, std::move(options))) {}

OutlookHost::~OutlookHost() = default;

void OutlookHost::defineClasses() {
  world_->defineViews();
  world_->defineDates();
  world_->defineEvents();
  world_->defineRecords();
  world_->defineAccounts();
  world_->defineEditors();
  world_->defineComposeView();
  world_->defineMainWindow();
  world_->defineToolbar();
  world_->defineGrid();
}

void OutlookHost::open(CalendarStore& store) { world_->store = &store; }

void OutlookHost::openMainWindow() {
  if (world_->runtime.isAlive(world_->mainWindowController)) return;
  const auto window = std::make_shared<HostWindow>();
  const HostObject made = world_->runtime.create("NSWindow", window);
  window->contentView = world_->makeView("NSView", rectangle(0, 0, 1200, 800));
  world_->view(window->contentView)->window = made;
  window->controller = world_->runtime.create("ERageMainWindowController", std::make_shared<HostObject>(made));
  world_->mainWindowController = window->controller;
  world_->fillMainWindow(*window);
  world_->send(window->controller, "windowDidBecomeMain:", {Value::dictionaryFromPairs({{"object", made}})});
}

void OutlookHost::closeMainWindow() {
  const HostObject controller = world_->mainWindowController;
  const HostObject window = world_->send(controller, "window").object();
  if (!window) return;
  world_->send(controller, "windowWillClose:", {Value::dictionaryFromPairs({{"object", window}})});
  world_->send(window, "close");
  world_->emptyMainWindow();
  world_->mainWindowController = {};
  world_->runLoop.post([weak = world_->weak_from_this(), controller, window] {
    const auto world = weak.lock();
    if (!world) return;
    world->destroyViews(world->send(window, "contentView").object());
    world->runtime.destroy(window);
    world->runtime.destroy(controller);
  });
}

OutlookHost::EditorId OutlookHost::openEditor(std::string_view uid, std::string_view recurrenceId) {
  if (!world_->store) return 0;
  const auto found = world_->store->find(uid, recurrenceId);
  return found ? openEditorAt(found->index()) : 0;
}

OutlookHost::EditorId OutlookHost::openCancellation(std::string_view uid, std::string_view recurrenceId) {
  const auto found = world_->store ? world_->store->find(uid, recurrenceId) : std::nullopt;
  return found ? world_->openEditor(*found, "showCancellationWindowForMeeting:") : 0;
}

OutlookHost::EditorId OutlookHost::openEditorAt(std::size_t eventIndex) {
  if (!world_->store || eventIndex >= world_->store->eventCount()) return 0;
  const CalendarEvent stored = world_->store->eventAt(eventIndex);
  if (stored.isRemoved()) return 0;
  return world_->openEditor(stored, stored.attendees().empty() ? "showWindowForEvent:" : "showWindowForMeeting:");
}

HostObject OutlookHost::eventOnGrid(std::size_t eventIndex) const {
  if (!world_->store || eventIndex >= world_->store->eventCount()) return {};
  const CalendarEvent stored = world_->store->eventAt(eventIndex);
  return stored.isRemoved() ? HostObject() : world_->makeEvent(stored);
}

OutlookHost::EditorId OutlookHost::openNew(double startSeconds) {
  if (!world_->store) return 0;
  world_->newEventStart = startSeconds;
  const auto editor =
      world_->editorOf(world_->send(world_->classNamed(kEditorWindows), "showWindowForNewEvent").object());
  return editor ? editor->id : 0;
}

std::vector<OutlookHost::EditorId> OutlookHost::editors() const {
  std::vector<EditorId> result;
  for (const auto& [id, editor] : world_->editors) result.push_back(id);
  return result;
}

void OutlookHost::typeSubject(EditorId id, std::string_view text) {
  const auto editor = world_->editor(id);
  if (!editor) return;
  // A subject that was emptied is the host's null object, not an empty text.
  editor->uncommitted.set("content.summary", text.empty() ? Value(nullptr) : Value(text));
  world_->send(editor->viewController, "setIsDirty:", {true});
}

void OutlookHost::typeLocation(EditorId id, std::string_view text) {
  const auto editor = world_->editor(id);
  if (!editor) return;
  world_->send(editor->locationField, "setStringValue:", {text});
  editor->uncommitted.set("content.location", text);
  world_->send(editor->viewController, "setIsDirty:", {true});
}

void OutlookHost::typeBody(EditorId id, std::string_view html) {
  const auto editor = world_->editor(id);
  if (!editor) return;
  editor->compose->html = std::string(html);
  world_->send(editor->viewController, "contentDidChange");
}

void OutlookHost::typeTimes(EditorId id, double startSeconds, double endSeconds) {
  const auto editor = world_->editor(id);
  if (!editor) return;
  editor->uncommitted.set("content.startTime", world_->makeDateFor(editor->event, startSeconds));
  editor->uncommitted.set("content.endTime", world_->makeDateFor(editor->event, endSeconds));
  world_->send(editor->viewController, "setIsDirty:", {true});
}

HostObject OutlookHost::barView(EditorId id) const {
  const auto editor = world_->editor(id);
  if (!editor) return {};
  const Value subviews = world_->send(editor->header, "subviews");
  for (const Value& subview : subviews.items()) {
    if (world_->runtime.className(subview.object()) == kBarClass) return subview.object();
  }
  return {};
}

bool OutlookHost::clickBar(EditorId id, std::string_view selector) {
  const HostObject bar = barView(id);
  if (!world_->runtime.respondsTo(bar, selector)) return false;
  world_->send(bar, selector, {bar});
  return true;
}

void OutlookHost::save(EditorId id) { world_->send(viewController(id), "save:", {Value(nullptr)}); }

void OutlookHost::saveAndClose(EditorId id) {
  world_->send(viewController(id), "saveAndClose:", {Value(nullptr)});
}

void OutlookHost::send(EditorId id) { world_->send(viewController(id), "sendMeetingPostValidate"); }

void OutlookHost::closeWithoutSaving(EditorId id) { world_->send(windowController(id), "close"); }

void OutlookHost::switchToSeries(EditorId id) {
  // The responder asks the application which window the menu was chosen in.
  world_->editorOfCurrentEvent = world_->editor(id);
  world_->send(world_->eventResponder, "switchToRecurringSeries:", {Value(nullptr)});
  world_->editorOfCurrentEvent = nullptr;
}

void OutlookHost::answerSeriesQuestion(EditorId id, int returnCode) {
  world_->send(viewController(id),
               "switchToRecurrenceDidEnd:returnCode:contextInfo:", {Value(nullptr), returnCode, Value()});
}

void OutlookHost::changeFromField(EditorId id) {
  world_->send(viewController(id), "fromFieldModified:", {Value(nullptr)});
}

bool OutlookHost::findsChangesForAttendees(EditorId id) const {
  const auto editor = world_->editor(id);
  if (!editor) return false;
  std::string changes;
  for (const auto& [name, typed] : editor->uncommitted.entries()) changes += name + "\n";
  return world_->send(editor->viewController, "checkMeetingChangesForAttendees:", {changes}).boolValue();
}

bool OutlookHost::isOpen(EditorId id) const { return world_->editor(id) != nullptr; }

bool OutlookHost::isDirty(EditorId id) const { return world_->send(viewController(id), "isDirty").boolValue(); }

bool OutlookHost::hasAttendees(EditorId id) const {
  return world_->send(viewController(id), "attendeeList").count() > 0;
}

std::string OutlookHost::subject(EditorId id) const {
  return world_->send(viewController(id), "getSubject:", {Value()}).text();
}

std::string OutlookHost::location(EditorId id) const {
  const HostObject field = world_->send(viewController(id), "locationTextField").object();
  return world_->send(field, "stringValue").text();
}

std::string OutlookHost::body(EditorId id) const {
  const auto editor = world_->editor(id);
  return editor ? world_->send(editor->wordContent, "bodyContent").text() : std::string();
}

HostObject OutlookHost::event(EditorId id) const {
  const auto editor = world_->editor(id);
  return editor ? editor->event : HostObject();
}

HostObject OutlookHost::viewController(EditorId id) const {
  const auto editor = world_->editor(id);
  return editor ? editor->viewController : HostObject();
}

HostObject OutlookHost::windowController(EditorId id) const {
  const auto editor = world_->editor(id);
  return editor ? editor->windowController : HostObject();
}

HostObject OutlookHost::window(EditorId id) const {
  const auto editor = world_->editor(id);
  return editor ? editor->window : HostObject();
}

HostObject OutlookHost::headerView(EditorId id) const {
  const auto editor = world_->editor(id);
  return editor ? editor->header : HostObject();
}

int OutlookHost::sentCount() const { return world_->sentCount; }

int OutlookHost::storedCount() const { return world_->storedCount; }

}  // namespace vornlab

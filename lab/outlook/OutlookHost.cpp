#include "lab/outlook/OutlookHost.h"

#include "lab/outlook/HostWorld.h"

namespace vornlab {

namespace {

constexpr std::string_view kBarClass = "vnActionAdditionView";
constexpr std::string_view kEditorWindows = "ERCalendarEventEditorWindowController";

// Absent when the editor is not open.
HostObject partOf(const HostWorld& world, OutlookHost::EditorId id, HostObject HostEditor::*part) {
  const auto editor = world.editor(id);
  return editor ? (*editor).*part : HostObject();
}

}  // namespace

OutlookHost::OutlookHost(vorn::EmbeddedClassRuntime& runtime, vorn::HostRunLoop& runLoop,
                         vorn::NotificationCenter& center, Options options)
    : m_world(std::make_shared<HostWorld>(runtime, runLoop, center, std::move(options))) {}

OutlookHost::~OutlookHost() = default;

void OutlookHost::defineClasses() {
  m_world->defineViews();
  m_world->defineControls();
  m_world->defineDates();
  m_world->defineEvents();
  m_world->defineRecords();
  m_world->defineAccounts();
  m_world->defineEditors();
  m_world->defineComposeView();
  m_world->defineMainWindow();
  m_world->defineToolbar();
  m_world->defineRibbon();
  m_world->defineGrid();
}

void OutlookHost::open(CalendarStore& store) { m_world->store = &store; }

void OutlookHost::openMainWindow() {
  if (m_world->runtime.isAlive(m_world->mainWindowController)) return;
  const auto window = std::make_shared<HostWindow>();
  const HostObject made = m_world->runtime.create("NSWindow", window);
  window->contentView = m_world->makeView("NSView", rectangle(0, 0, 1200, 800));
  m_world->view(window->contentView)->window = made;
  window->controller = m_world->runtime.create("ERageMainWindowController", std::make_shared<HostObject>(made));
  m_world->mainWindowController = window->controller;
  m_world->fillMainWindow(*window);
  m_world->send(window->controller, "windowDidBecomeMain:", {Value::dictionaryFromPairs({{"object", made}})});
  showCalendarPane();
}

void OutlookHost::closeMainWindow() {
  const HostObject controller = m_world->mainWindowController;
  const HostObject window = m_world->send(controller, "window").object();
  if (!window) return;
  m_world->send(controller, "windowWillClose:", {Value::dictionaryFromPairs({{"object", window}})});
  m_world->send(window, "close");
  m_world->emptyMainWindow();
  m_world->mainWindowController = {};
  m_world->runLoop.post([weak = m_world->weak_from_this(), controller, window] {
    const auto world = weak.lock();
    if (!world) return;
    world->destroyViews(world->send(window, "contentView").object());
    world->runtime.destroy(window);
    world->runtime.destroy(controller);
  });
}

OutlookHost::EditorId OutlookHost::openEditor(std::string_view uid, std::string_view recurrenceId) {
  const auto found = m_world->store ? m_world->store->find(uid, recurrenceId) : std::nullopt;
  return found ? openEditorAt(found->index()) : 0;
}

OutlookHost::EditorId OutlookHost::openCancellation(std::string_view uid, std::string_view recurrenceId) {
  const auto found = Appointment::find(*m_world, uid, recurrenceId);
  return found ? m_world->openEditor(*found, "showCancellationWindowForMeeting:") : 0;
}

OutlookHost::EditorId OutlookHost::openEditorAt(std::size_t eventIndex) {
  const auto found = Appointment::at(*m_world, eventIndex);
  if (!found) return 0;
  return m_world->openEditor(*found, found->isMeeting() ? "showWindowForMeeting:" : "showWindowForEvent:");
}

HostObject OutlookHost::eventOnGrid(std::size_t eventIndex) const {
  return m_world->valueOf(Appointment::at(*m_world, eventIndex)).object();
}

OutlookHost::EditorId OutlookHost::openNew(double startSeconds) {
  if (!m_world->store) return 0;
  m_world->pointedAt = startSeconds;
  const auto editor =
      m_world->editorOf(m_world->send(m_world->classNamed(kEditorWindows), "showWindowForNewEvent").object());
  return editor ? editor->id : 0;
}

std::vector<OutlookHost::EditorId> OutlookHost::editors() const {
  std::vector<EditorId> result;
  for (const auto& [id, editor] : m_world->editors) result.push_back(id);
  return result;
}

void OutlookHost::typeSubject(EditorId id, std::string_view text) {
  const auto editor = m_world->editor(id);
  if (!editor) return;
  editor->state->typed.summary = text;
  m_world->send(editor->viewController, "setIsDirty:", {true});
}

void OutlookHost::typeLocation(EditorId id, std::string_view text) {
  const auto editor = m_world->editor(id);
  if (!editor) return;
  m_world->send(editor->locationField, "setStringValue:", {text});
  editor->state->typed.location = text;
  m_world->send(editor->viewController, "setIsDirty:", {true});
}

void OutlookHost::typeBody(EditorId id, std::string_view html) {
  const auto editor = m_world->editor(id);
  if (!editor) return;
  editor->state->show(std::string(html));
  m_world->send(editor->viewController, "contentDidChange");
}

void OutlookHost::typeTimes(EditorId id, double startSeconds, double endSeconds) {
  const auto editor = m_world->editor(id);
  const auto shown = editor ? m_world->event(editor->event) : nullptr;
  if (!shown) return;
  editor->state->typed.start = shown->timeLikeStart(startSeconds);
  editor->state->typed.end = shown->timeLikeStart(endSeconds);
  m_world->send(editor->viewController, "setIsDirty:", {true});
}

HostObject OutlookHost::barView(EditorId id) const {
  const auto editor = m_world->editor(id);
  if (!editor) return {};
  const Value subviews = m_world->send(editor->header, "subviews");
  for (const Value& subview : subviews.items()) {
    if (m_world->runtime.className(subview.object()) == kBarClass) return subview.object();
  }
  return {};
}

OutlookHost::Control OutlookHost::barControl(EditorId id, const ControlName& name) const {
  return m_world->look(m_world->controlNamed(barView(id), name));
}

bool OutlookHost::clickBar(EditorId id, const ControlName& name) {
  return m_world->press(m_world->controlNamed(barView(id), name), name);
}

void OutlookHost::save(EditorId id) { m_world->send(viewController(id), "save:", {Value(nullptr)}); }

void OutlookHost::saveAndClose(EditorId id) {
  m_world->send(viewController(id), "saveAndClose:", {Value(nullptr)});
}

void OutlookHost::saveAndCloseOrTell(EditorId id) {
  m_world->send(viewController(id), "saveAndCloseWindow:andReturnError:", {true, Value(nullptr)});
}

void OutlookHost::send(EditorId id) { m_world->send(viewController(id), "sendMeetingPostValidate"); }

void OutlookHost::closeWithoutSaving(EditorId id) { m_world->send(windowController(id), "close"); }

void OutlookHost::switchToSeries(EditorId id) {
  // The responder asks the application which window the menu was chosen in.
  m_world->editorOfCurrentEvent = m_world->editor(id);
  m_world->send(m_world->eventResponder, "switchToRecurringSeries:", {Value(nullptr)});
  m_world->editorOfCurrentEvent = nullptr;
}

void OutlookHost::answerSeriesQuestion(EditorId id, int returnCode) {
  m_world->send(viewController(id),
                "switchToRecurrenceDidEnd:returnCode:contextInfo:", {Value(nullptr), returnCode, Value()});
}

void OutlookHost::changeFromField(EditorId id) {
  m_world->send(viewController(id), "fromFieldModified:", {Value(nullptr)});
}

bool OutlookHost::findsChangesForAttendees(EditorId id) const {
  const auto editor = m_world->editor(id);
  if (!editor) return false;
  const std::string changes = editor->state->namesOfUncommitted();
  return m_world->send(editor->viewController, "checkMeetingChangesForAttendees:", {changes}).boolValue();
}

bool OutlookHost::isOpen(EditorId id) const { return m_world->editor(id) != nullptr; }

bool OutlookHost::isDirty(EditorId id) const { return m_world->send(viewController(id), "isDirty").boolValue(); }

bool OutlookHost::hasAttendees(EditorId id) const {
  return m_world->send(viewController(id), "attendeeList").count() > 0;
}

std::string OutlookHost::subject(EditorId id) const {
  return m_world->send(viewController(id), "getSubject:", {Value()}).text();
}

std::string OutlookHost::location(EditorId id) const {
  const HostObject field = m_world->send(viewController(id), "locationTextField").object();
  return m_world->send(field, "stringValue").text();
}

std::string OutlookHost::body(EditorId id) const {
  const auto editor = m_world->editor(id);
  return editor ? m_world->send(editor->wordContent, "bodyContent").text() : std::string();
}

HostObject OutlookHost::event(EditorId id) const { return partOf(*m_world, id, &HostEditor::event); }
HostObject OutlookHost::viewController(EditorId id) const {
  return partOf(*m_world, id, &HostEditor::viewController);
}
HostObject OutlookHost::windowController(EditorId id) const {
  return partOf(*m_world, id, &HostEditor::windowController);
}
HostObject OutlookHost::window(EditorId id) const { return partOf(*m_world, id, &HostEditor::window); }
HostObject OutlookHost::headerView(EditorId id) const { return partOf(*m_world, id, &HostEditor::header); }

int OutlookHost::sentCount() const { return m_world->sentCount; }

int OutlookHost::storedCount() const { return m_world->storedCount; }

}  // namespace vornlab

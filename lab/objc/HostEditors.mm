// The editor of an appointment: its window, its controllers, its compose view, and what a save is.

#include "lab/objc/HostClasses.h"

#include <algorithm>

#include "util/Text.h"

using vornlab::EditorState;
using vornlab::foundationText;
using vornlab::plainText;

namespace {

constexpr double kWidth = 900;
constexpr double kHeaderHeight = 120;
constexpr double kBodyHeight = 480;
constexpr double kFieldHeight = 22;

NSMutableArray* openEditors() {
  static NSMutableArray* editors = [[NSMutableArray alloc] init];
  return editors;
}

// What was typed, as the host's dictionary holds it.
id objectFor(std::nullptr_t) { return [NSNull null]; }
id objectFor(const std::string& text) { return foundationText(text); }
id objectFor(const vornlab::CalendarTime& time) { return [OLCalendarDate dateWithTime:time]; }
id objectFor(const std::vector<vornlab::CalendarAttendee>& people) { return vornlab::attendeeObjects(people); }

}  // namespace

@implementation OLWordMailEditorContent
- (NSString*)bodyContent {
  return foundationText(m_state->html());
}
@end

@implementation OLWordMailEditor
- (id)initWithEditor:(ERCalendarEventEditorViewController*)editor {
  if (!(self = [super init])) return nil;
  m_editor = editor;
  m_state = editor->m_state;
  m_content = [[OLWordMailEditorContent alloc] init];
  m_content->m_state = m_state;
  return self;
}
- (void)dealloc {
  [m_content release];
  [super dealloc];
}
- (OLWordMailEditorContent*)editorContent {
  return m_content;
}
- (void)displayHTMLContent:(NSString*)html readOnly:(BOOL)readOnly {
  (void)readOnly;
  m_state->show(plainText(html));
  [m_editor contentDidChange];
}
- (void)displayHTMLContent:(NSString*)html
                  readOnly:(BOOL)readOnly
           signatureEditor:(id)signatureEditor
            activateEditor:(BOOL)activate {
  (void)signatureEditor;
  (void)activate;
  [self displayHTMLContent:html readOnly:readOnly];
}
- (void)insertText:(NSString*)text atLocation:(NSInteger)location isHTML:(BOOL)isHtml {
  (void)location;
  m_state->insert(plainText(text), isHtml);
  [m_editor contentDidChange];
}
- (void)switchToPlainText {
  m_state->switchToPlainText(true);
}
- (void)switchToHTMLText {
  m_state->switchToPlainText(false);
}
@end

@implementation ERCalendarEventEditorViewController
- (id)init {
  if (!(self = [super init])) return nil;
  m_state = std::make_shared<EditorState>();
  return self;
}
- (void)dealloc {
  [m_event release];
  [m_wordEditor release];
  [m_locationField release];
  [super dealloc];
}
- (ECCalendarEvent*)content {
  return m_event;
}
- (NSView*)view {
  return [[m_owner window] contentView];
}
- (NSWindow*)window {
  return [m_owner window];
}
- (NSTextField*)locationTextField {
  return m_locationField;
}
- (NSDictionary*)uncommittedChanges {
  NSMutableDictionary* changes = [NSMutableDictionary dictionary];
  for (const auto& [name, value] : m_state->uncommitted())
    [changes setObject:std::visit([](const auto& typed) { return objectFor(typed); }, value)
                forKey:foundationText(name)];
  return changes;
}
- (BOOL)isDirty {
  return m_state->isDirty;
}
- (void)setIsDirty:(BOOL)dirty {
  m_state->isDirty = dirty;
}
- (BOOL)isCancelMode {
  return m_state->isCancelMode;
}
- (void)setIsCancelMode:(BOOL)cancelMode {
  m_state->isCancelMode = cancelMode;
}
- (BOOL)isDelegating {
  return vornlab::hostState().options.delegating;
}
- (BOOL)hasMultipleAccounts {
  return !vornlab::hostState().options.otherAccounts.empty();
}
- (ECEmailAccount*)currentEmailAccount {
  const vornlab::HostState& host = vornlab::hostState();
  const std::string sender = m_event->m_appointment.sender(host, m_state->typed.organizer);
  const std::vector<std::string>& others = host.options.otherAccounts;
  const bool isOther = std::any_of(others.begin(), others.end(),
                                   [&](const std::string& each) { return vorn::equalIgnoringCase(each, sender); });
  return isOther ? [ECEmailAccount accountOf:foundationText(std::string_view(sender))] : [ECEmailAccount account];
}
- (NSArray*)attendeeList {
  return m_state->typed.attendees ? vornlab::attendeeObjects(*m_state->typed.attendees) : [m_event attendeeList];
}
- (NSString*)meetingOrganizer {
  return [m_event organizer];
}
- (NSString*)olmUCInband {
  return [m_event olmUCInband];
}
- (NSString*)olmUCCapabilities {
  return [m_event olmUCCapabilities];
}
- (void)setOlmUCInband:(NSString*)record {
  [m_event setOlmUCInband:record];
  [self setIsDirty:YES];
}
- (void)setOlmUCCapabilities:(NSString*)record {
  [m_event setOlmUCCapabilities:record];
  [self setIsDirty:YES];
}
- (BOOL)isOccurrenceOrException {
  return [m_event isOccurrence] || [m_event isModifiedException];
}
- (NSString*)recurrenceStringForCurrentEvent {
  NSString* rule = [[m_event recurrence] format];
  return rule ? rule : @"";
}
- (NSString*)getSubject:(id)unused {
  (void)unused;
  if (m_state->typed.summary) return foundationText(m_state->typed.summary);
  NSString* subject = [m_event summary];
  return subject ? subject : @"";
}
- (NSString*)getLocation:(id)unused {
  (void)unused;
  return [m_locationField stringValue];
}
- (OLCalendarDate*)getStartTime:(id)unused andEndTime:(id)alsoUnused {
  (void)unused;
  (void)alsoUnused;
  return m_state->typed.start ? [OLCalendarDate dateWithTime:*m_state->typed.start] : [m_event startTime];
}
- (void)setLocation:(NSString*)location {
  m_state->typed.location = plainText(location);
  [m_locationField setStringValue:foundationText(m_state->typed.location)];
  [self setIsDirty:YES];
}
- (void)fromFieldModified:(id)sender {
  (void)sender;
}

- (void)hostWordMailEditor:(OLWordMailEditor*)editor {
  (void)editor;
  [self loadEventIntoWordMail];
}
- (void)loadEventIntoWordMail {
  m_state->load(plainText([m_event body]));
  vornlab::editorHasChanged(self);
}
- (void)contentDidChange {
  if (!m_state->contentDidChange()) return;
  [self setIsDirty:YES];
  vornlab::editorHasChanged(self);
}

// What comes when the window has closed is too late.
- (BOOL)save {
  if (!m_owner || ![openEditors() containsObject:m_owner]) return NO;
  if (![m_event storeChanges:m_state->changes()]) return NO;
  m_state->saved([m_event isMeeting]);
  [self setIsDirty:NO];
  return YES;
}
- (void)save:(id)sender {
  (void)sender;
  [self save];
}
// The window stays open when the appointment could not be stored.
- (int)saveAndCloseWindow:(BOOL)close {
  if (![self save]) return EditorState::kNotDone;
  if (close) [m_owner close];
  return EditorState::kDone;
}
- (int)saveAndCloseWindow:(BOOL)close andReturnError:(id)error {
  (void)error;
  return [self saveAndCloseWindow:close];
}
- (void)saveAndClose:(id)sender {
  (void)sender;
  [self saveAndCloseWindow:YES];
}
// Stores the meeting and closes; no message goes anywhere.
- (void)sendMeetingPostValidate {
  if (![self save]) return;
  m_event->m_appointment.hasBeenSent(vornlab::hostState(), m_state->isCancelMode);
  vornlab::calendarHasChanged();
  [m_owner close];
}
- (void)switchToRecurrenceDidEnd:(id)alert returnCode:(int)code contextInfo:(void*)context {
  (void)alert;
  (void)context;
  if (code == EditorState::kWholeSeries) [self showSeries];
}
- (BOOL)checkMeetingChangesForAttendees:(const char*)changes {
  return changes && EditorState::namesChanges(changes);
}
- (void)showSeries {
  ECCalendarEvent* series = [m_event seriesMasterRecord];
  if (!series) return;
  // Whoever has looked at the former event may still hold it while the present call goes on.
  [m_event autorelease];
  m_event = [series retain];
  m_state->forgetTyped();
  [m_locationField setStringValue:[m_event location] ? [m_event location] : @""];
  [self loadEventIntoWordMail];
  [self setIsDirty:NO];
}
@end

@implementation OLCalendarEventViewResponder
- (void)switchToRecurringSeries:(id)sender {
  (void)sender;
  id controller = [[[[NSApplication sharedApplication] currentEvent] window] windowController];
  if ([controller isKindOfClass:[ERCalendarEventEditorWindowController class]])
    [[controller editorViewController] showSeries];
}
@end

@implementation ERCalendarEventEditorWindowController
- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  m_editor->m_owner = nil;
  m_editor->m_wordEditor->m_editor = nil;
  [m_editor release];
  [m_header release];
  [super dealloc];
}
- (id)initWithEvent:(ECCalendarEvent*)event isCancelMode:(BOOL)isCancelMode {
  constexpr NSUInteger style =
      NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask | NSResizableWindowMask;
  NSWindow* window = [[[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, kWidth, kHeaderHeight + kBodyHeight)
                                                  styleMask:style
                                                    backing:NSBackingStoreBuffered
                                                      defer:NO] autorelease];
  if (!(self = [super initWithWindow:window])) return nil;
  [window setReleasedWhenClosed:NO];
  m_editor = [[ERCalendarEventEditorViewController alloc] init];
  m_editor->m_owner = self;
  m_editor->m_event = [event retain];
  m_editor->m_state->isCancelMode = isCancelMode;
  // Of any window: observers of one alone hear before those of all, and others are to see the editor once more.
  [[NSNotificationCenter defaultCenter] addObserver:self
                                           selector:@selector(windowHasClosed:)
                                               name:@"NSWindowWillCloseNotification"
                                             object:nil];
  static vornlab::HostFace::EditorId lastNumber = 0;
  m_number = ++lastNumber;
  return self;
}
// The header is drawn before anything else, and whoever watches its making puts something into it.
- (void)build {
  m_header =
      [[OLCalendarHeaderContainerView alloc] initWithFrame:NSMakeRect(0, kBodyHeight, kWidth, kHeaderHeight)];
  [[[self window] contentView] addSubview:m_header];
  NSTextField* field = [[NSTextField alloc] initWithFrame:NSMakeRect(80, 40, kWidth - 100, kFieldHeight)];
  [m_header addSubview:field];
  [field setStringValue:[m_editor->m_event location]];
  m_editor->m_locationField = field;
  m_editor->m_wordEditor = [[OLWordMailEditor alloc] initWithEditor:m_editor];
  [m_editor hostWordMailEditor:m_editor->m_wordEditor];
  vornlab::fillEditor(self);
  [m_header drawRect:NSMakeRect(0, 0, kWidth, kHeaderHeight)];
}
+ (id)openWindowFor:(ECCalendarEvent*)event isCancelMode:(BOOL)isCancelMode {
  if (!event) return nil;
  ERCalendarEventEditorWindowController* made =
      [[[ERCalendarEventEditorWindowController alloc] initWithEvent:event isCancelMode:isCancelMode] autorelease];
  [openEditors() addObject:made];
  [made build];
  [[made window] makeKeyAndOrderFront:nil];
  return made;
}
+ (id)showWindowForNewEvent {
  return [self showWindowForEvent:[ECCalendarEvent eventOf:vornlab::Appointment::newOne(vornlab::hostState())]];
}
+ (id)showWindowForNewMeeting {
  return [self showWindowForNewEvent];
}
+ (id)showWindowForMeeting:(ECCalendarEvent*)event {
  return [self openWindowFor:event isCancelMode:NO];
}
+ (id)showWindowForEvent:(ECCalendarEvent*)event {
  return [self openWindowFor:event isCancelMode:NO];
}
+ (id)showCancellationWindowForMeeting:(ECCalendarEvent*)event {
  return [self openWindowFor:event isCancelMode:YES];
}
+ (id)showWindowForEvent:(ECCalendarEvent*)event isMeeting:(BOOL)isMeeting fromMessage:(id)message {
  (void)isMeeting;
  (void)message;
  return [self openWindowFor:event isCancelMode:NO];
}
+ (NSArray*)openControllers {
  return [NSArray arrayWithArray:openEditors()];
}
- (ERCalendarEventEditorViewController*)editorViewController {
  return m_editor;
}
- (void)close {
  [[self window] close];
}
// Whoever has closed the window.
- (void)windowHasClosed:(NSNotification*)notification {
  if ([notification object] != [self window] || ![openEditors() containsObject:self]) return;
  // The host lets go of its objects when its own calls have unwound.
  [[self retain] performSelector:@selector(release) withObject:nil afterDelay:0];
  [openEditors() removeObjectIdenticalTo:self];
}
@end

namespace vornlab {

void typeBodyInto(ERCalendarEventEditorViewController* editor, std::string html) {
  editor->m_state->show(std::move(html));
  [editor contentDidChange];
}

ERCalendarEventEditorWindowController* openEditorOf(ECCalendarEvent* event) {
  return [event isMeeting] ? [ERCalendarEventEditorWindowController showWindowForMeeting:event]
                           : [ERCalendarEventEditorWindowController showWindowForEvent:event];
}

}  // namespace vornlab

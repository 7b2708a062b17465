// The editor of an appointment: its window, its controllers, its compose view, and what a save is.

#include <string_view>

#include "lab/objc/HostClasses.h"
#include "lab/outlook/HostForms.h"

using vornlab::foundationText;
using vornlab::htmlForPlainText;
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

void replace(NSString*& held, NSString* text) {
  NSString* copy = [text copy];
  [held release];
  held = copy;
}

// The HTML with a piece put in front of everything that its body shows.
NSString* withPieceInFront(NSString* html, NSString* piece) {
  const NSRange tag = [html rangeOfString:@"<body"];
  if (tag.location == NSNotFound) return [piece stringByAppendingString:html];
  const NSRange rest = NSMakeRange(tag.location, [html length] - tag.location);
  const NSRange end = [html rangeOfString:@">" options:0 range:rest];
  if (end.location == NSNotFound) return [piece stringByAppendingString:html];
  NSMutableString* result = [NSMutableString stringWithString:html];
  [result insertString:piece atIndex:NSMaxRange(end)];
  return result;
}

}  // namespace

@implementation OLWordMailEditorContent
- (void)dealloc {
  [m_html release];
  [super dealloc];
}
- (NSString*)bodyContent {
  return m_html ? m_html : @"";
}
- (void)setHtml:(NSString*)html {
  replace(m_html, html);
}
@end

@implementation OLWordMailEditor
- (id)init {
  if (!(self = [super init])) return nil;
  m_content = [[OLWordMailEditorContent alloc] init];
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
  replace(m_content->m_html, html);
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
// Only the start of the body is a place that this editor knows.
- (void)insertText:(NSString*)text atLocation:(NSInteger)location isHTML:(BOOL)isHtml {
  (void)location;
  NSString* piece = text ? text : @"";
  if (!isHtml) piece = foundationText(std::string_view(htmlForPlainText(plainText(piece))));
  replace(m_content->m_html, withPieceInFront([m_content bodyContent], piece));
  [m_editor contentDidChange];
}
- (void)switchToPlainText {
  m_plainText = YES;
}
- (void)switchToHTMLText {
  m_plainText = NO;
}
@end

@implementation ERCalendarEventEditorViewController
- (id)init {
  if (!(self = [super init])) return nil;
  m_uncommitted = [[NSMutableDictionary alloc] init];
  return self;
}
- (void)dealloc {
  [m_event release];
  [m_wordEditor release];
  [m_locationField release];
  [m_uncommitted release];
  [m_loadedHtml release];
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
  return m_uncommitted;
}
- (BOOL)isDirty {
  return m_dirty;
}
- (void)setIsDirty:(BOOL)dirty {
  m_dirty = dirty;
}
- (BOOL)isCancelMode {
  return m_cancelMode;
}
- (void)setIsCancelMode:(BOOL)cancelMode {
  m_cancelMode = cancelMode;
}
- (BOOL)isDelegating {
  return vornlab::hostState().options.delegating;
}
- (BOOL)hasMultipleAccounts {
  return NO;
}
- (ECEmailAccount*)currentEmailAccount {
  return [ECEmailAccount account];
}
- (NSArray*)attendeeList {
  return [m_event attendeeList];
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
  id typed = [m_uncommitted objectForKey:@"content.summary"];
  NSString* subject = typed ? typed : [m_event summary];
  return [subject isKindOfClass:[NSString class]] ? subject : @"";
}
- (NSString*)getLocation:(id)unused {
  (void)unused;
  return [m_locationField stringValue];
}
- (OLCalendarDate*)getStartTime:(id)unused andEndTime:(id)alsoUnused {
  (void)unused;
  (void)alsoUnused;
  OLCalendarDate* typed = [m_uncommitted objectForKey:@"content.startTime"];
  return typed ? typed : [m_event startTime];
}
- (void)setLocation:(NSString*)location {
  [m_locationField setStringValue:location ? location : @""];
  [m_uncommitted setObject:[m_locationField stringValue] forKey:@"content.location"];
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
  replace(m_wordEditor->m_content->m_html, [m_event body]);
  replace(m_loadedHtml, [m_event body]);
  [m_uncommitted removeObjectForKey:@"content.body"];
  vornlab::editorHasChanged(self);
}
// The compose view tells that its content may have changed; only a true difference is a change.
- (void)contentDidChange {
  NSString* html = [[m_wordEditor editorContent] bodyContent];
  if ([html isEqual:m_loadedHtml] && ![m_uncommitted objectForKey:@"content.body"]) return;
  [m_uncommitted setObject:html forKey:@"content.body"];
  [self setIsDirty:YES];
  vornlab::editorHasChanged(self);
}

// What comes when the window has closed is too late.
- (BOOL)save {
  if (!m_owner || ![openEditors() containsObject:m_owner]) return NO;
  NSMutableDictionary* changes = [NSMutableDictionary dictionary];
  NSEnumerator* names = [m_uncommitted keyEnumerator];
  while (NSString* name = [names nextObject]) {
    [changes setObject:[m_uncommitted objectForKey:name] forKey:[name substringFromIndex:[@"content." length]]];
  }
  if (m_wordEditor->m_plainText) [changes setObject:[NSNumber numberWithBool:NO] forKey:@"isBodyHTML"];
  if (![m_event storeChanges:changes]) return NO;
  [m_uncommitted removeAllObjects];
  replace(m_loadedHtml, [[m_wordEditor editorContent] bodyContent]);
  [self setIsDirty:NO];
  return YES;
}
- (void)save:(id)sender {
  (void)sender;
  [self save];
}
// 0 when it is done; the window stays open when the appointment could not be stored.
- (int)saveAndCloseWindow:(BOOL)close {
  constexpr int done = 0;
  constexpr int notDone = -1;
  if (![self save]) return notDone;
  if (close) [m_owner close];
  return done;
}
- (int)saveAndCloseWindow:(BOOL)close andReturnError:(id)error {
  (void)error;
  return [self saveAndCloseWindow:close];
}
- (void)saveAndClose:(id)sender {
  (void)sender;
  [self saveAndCloseWindow:YES];
}
// Stores the meeting and closes; no message goes anywhere. A cancellation that has gone out takes the meeting off
// one's own calendar.
- (void)sendMeetingPostValidate {
  if (![self save]) return;
  ++vornlab::hostState().sentCount;
  auto stored = vornlab::storedEvent(m_event);
  if (m_cancelMode && stored) stored->remove();
  vornlab::calendarHasChanged();
  [m_owner close];
}
- (void)switchToRecurrenceDidEnd:(id)alert returnCode:(int)code contextInfo:(void*)context {
  (void)alert;
  (void)context;
  constexpr int wholeSeries = 1;
  if (code == wholeSeries) [self showSeries];
}
- (BOOL)checkMeetingChangesForAttendees:(const char*)changes {
  return changes && std::string_view(changes).find("content.") != std::string_view::npos;
}
- (void)showSeries {
  ECCalendarEvent* series = [m_event seriesMasterRecord];
  if (!series) return;
  // Whoever has looked at the former event may still hold it while the present call goes on.
  [m_event autorelease];
  m_event = [series retain];
  [m_uncommitted removeAllObjects];
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
  m_editor->m_cancelMode = isCancelMode;
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
  m_editor->m_wordEditor = [[OLWordMailEditor alloc] init];
  m_editor->m_wordEditor->m_editor = m_editor;
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
// An appointment of half an hour, which is stored nowhere yet.
+ (id)showWindowForNewEvent {
  constexpr double halfAnHour = vornlab::HostState::kHalfAnHour;
  const double start = vornlab::hostState().takeNewStart([[NSDate date] timeIntervalSince1970]);
  ECCalendarEvent* event = [[[ECCalendarEvent alloc] initWithStore:vornlab::shownStore() index:-1] autorelease];
  OLCalendarDate* begin = [[[OLCalendarDate alloc] initWithSeconds:start zone:nil] autorelease];
  [event->m_changed setObject:begin forKey:@"startTime"];
  [event->m_changed setObject:[begin dateByAddingTimeInterval:halfAnHour] forKey:@"endTime"];
  return [self showWindowForEvent:event];
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

ERCalendarEventEditorWindowController* openEditorOf(ECCalendarEvent* event) {
  return [event isMeeting] ? [ERCalendarEventEditorWindowController showWindowForMeeting:event]
                           : [ERCalendarEventEditorWindowController showWindowForEvent:event];
}

}  // namespace vornlab

// The editor of an appointment: its window, its controllers, its compose view, and what a save is.

#include <cmath>
#include <string_view>

#include "lab/objc/HostClasses.h"

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
  [html_ release];
  [super dealloc];
}
- (NSString*)bodyContent {
  return html_ ? html_ : @"";
}
@end

@implementation OLWordMailEditor
- (id)init {
  if (!(self = [super init])) return nil;
  content_ = [[OLWordMailEditorContent alloc] init];
  return self;
}
- (void)dealloc {
  [content_ release];
  [super dealloc];
}
- (OLWordMailEditorContent*)editorContent {
  return content_;
}
- (void)displayHTMLContent:(NSString*)html readOnly:(BOOL)readOnly {
  (void)readOnly;
  replace(content_->html_, html);
  [editor_ contentDidChange];
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
  (void)isHtml;
  replace(content_->html_, withPieceInFront([content_ bodyContent], text ? text : @""));
  [editor_ contentDidChange];
}
- (void)switchToPlainText {
  plainText_ = YES;
}
- (void)switchToHTMLText {
  plainText_ = NO;
}
@end

@implementation ERCalendarEventEditorViewController
- (id)init {
  if (!(self = [super init])) return nil;
  uncommitted_ = [[NSMutableDictionary alloc] init];
  return self;
}
- (void)dealloc {
  [event_ release];
  [wordEditor_ release];
  [locationField_ release];
  [uncommitted_ release];
  [loadedHtml_ release];
  [super dealloc];
}
- (ECCalendarEvent*)content {
  return event_;
}
- (NSView*)view {
  return [[owner_ window] contentView];
}
- (NSWindow*)window {
  return [owner_ window];
}
- (NSTextField*)locationTextField {
  return locationField_;
}
- (NSDictionary*)uncommittedChanges {
  return uncommitted_;
}
- (BOOL)isDirty {
  return dirty_;
}
- (void)setIsDirty:(BOOL)dirty {
  dirty_ = dirty;
}
- (BOOL)isCancelMode {
  return cancelMode_;
}
- (void)setIsCancelMode:(BOOL)cancelMode {
  cancelMode_ = cancelMode;
}
- (BOOL)isDelegating {
  return NO;
}
- (BOOL)hasMultipleAccounts {
  return NO;
}
- (ECEmailAccount*)currentEmailAccount {
  return [ECEmailAccount account];
}
- (NSArray*)attendeeList {
  return [event_ attendeeList];
}
- (NSString*)meetingOrganizer {
  return [event_ organizer];
}
- (NSString*)olmUCInband {
  return [event_ olmUCInband];
}
- (NSString*)olmUCCapabilities {
  return [event_ olmUCCapabilities];
}
- (void)setOlmUCInband:(NSString*)record {
  [event_ setOlmUCInband:record];
  [self setIsDirty:YES];
}
- (void)setOlmUCCapabilities:(NSString*)record {
  [event_ setOlmUCCapabilities:record];
  [self setIsDirty:YES];
}
- (BOOL)isOccurrenceOrException {
  return [event_ isOccurrence] || [event_ isModifiedException];
}
- (NSString*)recurrenceStringForCurrentEvent {
  NSString* rule = [[event_ recurrence] format];
  return rule ? rule : @"";
}
- (NSString*)getSubject:(id)unused {
  (void)unused;
  id typed = [uncommitted_ objectForKey:@"content.summary"];
  NSString* subject = typed ? typed : [event_ summary];
  return [subject isKindOfClass:[NSString class]] ? subject : @"";
}
- (NSString*)getLocation:(id)unused {
  (void)unused;
  return [locationField_ stringValue];
}
- (OLCalendarDate*)getStartTime:(id)unused andEndTime:(id)alsoUnused {
  (void)unused;
  (void)alsoUnused;
  OLCalendarDate* typed = [uncommitted_ objectForKey:@"content.startTime"];
  return typed ? typed : [event_ startTime];
}
- (void)setLocation:(NSString*)location {
  [locationField_ setStringValue:location ? location : @""];
  [uncommitted_ setObject:[locationField_ stringValue] forKey:@"content.location"];
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
  replace(wordEditor_->content_->html_, [event_ body]);
  replace(loadedHtml_, [event_ body]);
  [uncommitted_ removeObjectForKey:@"content.body"];
}
// The compose view tells that its content may have changed; only a true difference is a change.
- (void)contentDidChange {
  NSString* html = [[wordEditor_ editorContent] bodyContent];
  if ([html isEqual:loadedHtml_] && ![uncommitted_ objectForKey:@"content.body"]) return;
  [uncommitted_ setObject:html forKey:@"content.body"];
  [self setIsDirty:YES];
}

- (BOOL)save {
  NSMutableDictionary* changes = [NSMutableDictionary dictionary];
  NSEnumerator* names = [uncommitted_ keyEnumerator];
  while (NSString* name = [names nextObject]) {
    [changes setObject:[uncommitted_ objectForKey:name] forKey:[name substringFromIndex:[@"content." length]]];
  }
  if (wordEditor_->plainText_) [changes setObject:[NSNumber numberWithBool:NO] forKey:@"isBodyHTML"];
  if (![event_ storeChanges:changes]) return NO;
  [uncommitted_ removeAllObjects];
  replace(loadedHtml_, [[wordEditor_ editorContent] bodyContent]);
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
  if (close) [owner_ close];
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
  auto stored = vornlab::storedEvent(event_);
  if (cancelMode_ && stored) stored->remove();
  [owner_ close];
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
  ECCalendarEvent* series = [event_ seriesMasterRecord];
  if (!series) return;
  // Whoever has looked at the former event may still hold it while the present call goes on.
  [event_ autorelease];
  event_ = [series retain];
  [uncommitted_ removeAllObjects];
  [locationField_ setStringValue:[event_ location] ? [event_ location] : @""];
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
  editor_->owner_ = nil;
  editor_->wordEditor_->editor_ = nil;
  [editor_ release];
  [header_ release];
  [super dealloc];
}
- (id)initWithEvent:(ECCalendarEvent*)event isCancelMode:(BOOL)isCancelMode {
  if (!(self = [super init])) return nil;
  editor_ = [[ERCalendarEventEditorViewController alloc] init];
  editor_->owner_ = self;
  editor_->event_ = [event retain];
  editor_->cancelMode_ = isCancelMode;
  window_ = [[NSWindow alloc] initWithController:self
                                    contentFrame:NSMakeRect(0, 0, kWidth, kHeaderHeight + kBodyHeight)];
  return self;
}
// The header is drawn before anything else, and whoever watches its making puts something into it.
- (void)build {
  header_ =
      [[OLCalendarHeaderContainerView alloc] initWithFrame:NSMakeRect(0, kBodyHeight, kWidth, kHeaderHeight)];
  [[window_ contentView] addSubview:header_];
  NSTextField* field = [[NSTextField alloc] initWithFrame:NSMakeRect(80, 40, kWidth - 100, kFieldHeight)];
  [header_ addSubview:field];
  [field setStringValue:[editor_->event_ location]];
  editor_->locationField_ = field;
  editor_->wordEditor_ = [[OLWordMailEditor alloc] init];
  editor_->wordEditor_->editor_ = editor_;
  [editor_ hostWordMailEditor:editor_->wordEditor_];
  [header_ drawRect:NSMakeRect(0, 0, kWidth, kHeaderHeight)];
}
+ (id)openWindowFor:(ECCalendarEvent*)event isCancelMode:(BOOL)isCancelMode {
  if (!event) return nil;
  ERCalendarEventEditorWindowController* made =
      [[[ERCalendarEventEditorWindowController alloc] initWithEvent:event isCancelMode:isCancelMode] autorelease];
  [openEditors() addObject:made];
  [made build];
  return made;
}
// An appointment of half an hour from the next full one, which is stored nowhere yet.
+ (id)showWindowForNewEvent {
  constexpr double halfAnHour = 1800;
  const double start = std::ceil([[NSDate date] timeIntervalSince1970] / halfAnHour) * halfAnHour;
  ECCalendarEvent* event = [[[ECCalendarEvent alloc] initWithStore:vornlab::shownStore() index:-1] autorelease];
  OLCalendarDate* begin = [[[OLCalendarDate alloc] initWithSeconds:start zone:nil] autorelease];
  [event->changed_ setObject:begin forKey:@"startTime"];
  [event->changed_ setObject:[begin dateByAddingTimeInterval:halfAnHour] forKey:@"endTime"];
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
  return editor_;
}
- (void)close {
  if (![window_ isVisible]) return;
  [window_ close];
  // The host lets go of its objects when its own calls have unwound.
  [[self retain] performSelector:@selector(release) withObject:nil afterDelay:0];
  [openEditors() removeObjectIdenticalTo:self];
}
@end

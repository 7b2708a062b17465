// Appointments as the host shows them, and what they hand out.

#include "lab/objc/HostClasses.h"
#include "lab/outlook/HostForms.h"
#include "lab/outlook/RecordOfSave.h"

using vornlab::foundationText;
using vornlab::htmlForPlainText;
using vornlab::plainText;
using vornlab::shownHtml;
using vornlab::storedEvent;

namespace {

OLCalendarDate* dateOf(const std::optional<vornlab::CalendarTime>& time) {
  return time ? [OLCalendarDate dateWithTime:*time] : nil;
}

NSString* ownersName() { return foundationText(std::string_view(vornlab::hostState().options.userName)); }
NSString* ownersAddress() { return foundationText(std::string_view(vornlab::hostState().options.userAddress)); }

}  // namespace

namespace vornlab {

HostState& hostState() {
  static HostState state;
  return state;
}

std::optional<CalendarEvent> storedEvent(HostStoredObject* object) {
  if (!object || !object->m_store || object->m_index < 0) return {};
  const CalendarEvent stored = object->m_store->eventAt(static_cast<std::size_t>(object->m_index));
  if (stored.isRemoved()) return {};
  return stored;
}

}  // namespace vornlab

@implementation OLCalendarDate
+ (OLCalendarDate*)dateWithTime:(const vornlab::CalendarTime&)time {
  const std::string name = time.hostZone();
  NSTimeZone* zone = [NSTimeZone timeZoneWithName:foundationText(std::string_view(name))];
  if (!zone) zone = [NSTimeZone timeZoneForSecondsFromGMT:time.offset];
  return [[[OLCalendarDate alloc] initWithSeconds:time.seconds zone:zone] autorelease];
}
- (id)initWithSeconds:(double)seconds zone:(NSTimeZone*)zone {
  if (!(self = [super init])) return nil;
  m_seconds = seconds;
  m_zone = [(zone ? zone : [NSTimeZone timeZoneForSecondsFromGMT:0]) retain];
  return self;
}
- (void)dealloc {
  [m_zone release];
  [super dealloc];
}
- (NSDate*)dateUTC {
  return [NSDate dateWithTimeIntervalSince1970:m_seconds];
}
- (double)timeIntervalSince1970 {
  return m_seconds;
}
- (NSTimeZone*)timeZone {
  return m_zone;
}
- (double)timeIntervalSinceDate:(OLCalendarDate*)other {
  return other ? m_seconds - [other timeIntervalSince1970] : 0;
}
- (OLCalendarDate*)dateByAddingTimeInterval:(double)seconds {
  return [[[OLCalendarDate alloc] initWithSeconds:m_seconds + seconds zone:m_zone] autorelease];
}
- (OLCalendarDate*)dateInDifferentTimeZone:(NSTimeZone*)zone {
  return [[[OLCalendarDate alloc] initWithSeconds:m_seconds zone:zone] autorelease];
}
- (NSDateComponents*)fields {
  NSCalendar* calendar = [[[NSCalendar alloc] initWithCalendarIdentifier:NSGregorianCalendar] autorelease];
  [calendar setTimeZone:m_zone];
  const NSUInteger all = NSYearCalendarUnit | NSMonthCalendarUnit | NSDayCalendarUnit | NSHourCalendarUnit |
                         NSMinuteCalendarUnit | NSWeekdayCalendarUnit;
  return [calendar components:all fromDate:[self dateUTC]];
}
- (NSInteger)minuteOfHour {
  return [[self fields] minute];
}
- (NSInteger)hourOfDay {
  return [[self fields] hour];
}
- (NSInteger)weekday {
  return [[self fields] weekday];
}
- (NSInteger)dayOfMonth {
  return [[self fields] day];
}
- (NSInteger)monthOfYear {
  return [[self fields] month];
}
- (NSInteger)yearOfCommonEra {
  return [[self fields] year];
}
@end

@implementation HostStoredObject
- (id)initWithStore:(vornlab::CalendarStore*)store index:(NSInteger)index {
  if (!(self = [super init])) return nil;
  m_store = store;
  m_index = index;
  return self;
}
@end

@implementation ECRecurrence
- (NSString*)format {
  const auto series = storedEvent(self);
  return series ? foundationText(std::string_view(series->recurrence().rule)) : nil;
}
- (int)endType {
  const auto series = storedEvent(self);
  return series ? series->recurrence().endType : 0;
}
- (int)occurrenceCount {
  const auto series = storedEvent(self);
  return series ? series->recurrence().occurrenceCount : 0;
}
- (OLCalendarDate*)startDate {
  const auto series = storedEvent(self);
  return series ? dateOf(series->start()) : nil;
}
- (OLCalendarDate*)endDate {
  const auto series = storedEvent(self);
  return series ? dateOf(series->recurrence().lastStart) : nil;
}
@end

@implementation ECRecordUID
- (NSString*)recordUID {
  const auto stored = storedEvent(self);
  return stored ? foundationText(std::string_view(stored->uid())) : nil;
}
- (long long)recordID {
  return m_index + 1;
}
- (BOOL)recordExists {
  return storedEvent(self).has_value();
}
@end

@implementation ECCalendarEventAttendee
- (id)initWithAttendee:(const vornlab::CalendarAttendee&)attendee {
  if (!(self = [super init])) return nil;
  m_name = [foundationText(std::string_view(attendee.name)) retain];
  m_emailAddress = [foundationText(std::string_view(attendee.emailAddress)) retain];
  m_type = attendee.type;
  return self;
}
- (void)dealloc {
  [m_name release];
  [m_emailAddress release];
  [super dealloc];
}
- (NSString*)name {
  return m_name;
}
- (NSString*)emailAddress {
  return m_emailAddress;
}
- (int)attendeeType {
  return m_type;
}
@end

@implementation ECEmailAddress
- (NSString*)emailAddress {
  return ownersAddress();
}
- (NSString*)name {
  return ownersName();
}
@end

@implementation ECEmailAccount
+ (ECEmailAccount*)account {
  static ECEmailAccount* account = [[ECEmailAccount alloc] init];
  return account;
}
- (NSString*)emailAddress {
  return ownersAddress();
}
- (NSString*)name {
  return ownersName();
}
- (NSString*)realName {
  return [self name];
}
- (ECEmailAddress*)fromAddress {
  static ECEmailAddress* address = [[ECEmailAddress alloc] init];
  return address;
}
- (BOOL)isDefault {
  return YES;
}
- (BOOL)isAccountConnected {
  return YES;
}
- (BOOL)isGmailAccount {
  return NO;
}
- (BOOL)shouldDisableCalendarHTMLBodyForAccount {
  return vornlab::hostState().options.plainTextOnly;
}
@end

@implementation ECCalendarEvent
- (id)initWithStore:(vornlab::CalendarStore*)store index:(NSInteger)index {
  if (!(self = [super initWithStore:store index:index])) return nil;
  m_changed = [[NSMutableDictionary alloc] init];
  return self;
}
- (void)dealloc {
  [m_changed release];
  [super dealloc];
}

// Each of these answers what was changed in memory, otherwise what is stored.
- (NSString*)summary {
  if (NSString* changed = [m_changed objectForKey:@"summary"]) return changed;
  const auto stored = storedEvent(self);
  return stored ? foundationText(stored->summary()) : nil;
}
- (NSString*)location {
  if (NSString* changed = [m_changed objectForKey:@"location"]) return changed;
  const auto stored = storedEvent(self);
  return stored ? foundationText(stored->location()) : nil;
}
- (NSString*)body {
  if (NSString* changed = [m_changed objectForKey:@"body"]) return changed;
  const auto stored = storedEvent(self);
  return foundationText(std::string_view(stored ? shownHtml(*stored) : htmlForPlainText("")));
}
- (BOOL)isBodyHTML {
  if (NSNumber* changed = [m_changed objectForKey:@"isBodyHTML"]) return [changed boolValue];
  const auto stored = storedEvent(self);
  return stored && (stored->htmlDescription() || stored->descriptionIsHtml());
}
- (NSString*)olmUCInband {
  if (NSString* changed = [m_changed objectForKey:@"olmUCInband"]) return changed;
  const auto stored = storedEvent(self);
  return stored ? foundationText(stored->olmUCInband()) : nil;
}
- (NSString*)olmUCCapabilities {
  if (NSString* changed = [m_changed objectForKey:@"olmUCCapabilities"]) return changed;
  const auto stored = storedEvent(self);
  return stored ? foundationText(stored->olmUCCapabilities()) : nil;
}
- (OLCalendarDate*)startTime {
  if (OLCalendarDate* changed = [m_changed objectForKey:@"startTime"]) return changed;
  const auto stored = storedEvent(self);
  return stored ? dateOf(stored->start()) : nil;
}
- (OLCalendarDate*)endTime {
  if (OLCalendarDate* changed = [m_changed objectForKey:@"endTime"]) return changed;
  const auto stored = storedEvent(self);
  return stored ? dateOf(stored->end()) : nil;
}

- (void)setText:(NSString*)text forItem:(NSString*)item {
  [m_changed setObject:text ? text : @"" forKey:item];
}
- (void)setSummary:(NSString*)text {
  [self setText:text forItem:@"summary"];
}
- (void)setLocation:(NSString*)text {
  [self setText:text forItem:@"location"];
}
- (void)setBody:(NSString*)html {
  [self setText:html forItem:@"body"];
}
- (void)setIsBodyHTML:(BOOL)isHtml {
  [m_changed setObject:[NSNumber numberWithBool:isHtml] forKey:@"isBodyHTML"];
}
- (void)setOlmUCInband:(NSString*)record {
  [self setText:record forItem:@"olmUCInband"];
}
- (void)setOlmUCCapabilities:(NSString*)record {
  [self setText:record forItem:@"olmUCCapabilities"];
}
// The appointment on the screen is drawn anew; there is nothing to draw here.
- (void)displayReadyBody {
}

- (NSString*)UUIDString {
  const auto stored = storedEvent(self);
  return stored && !stored->uid().empty() ? foundationText(std::string_view(stored->uid())) : nil;
}
- (NSString*)UUID {
  return [self UUIDString];
}
- (NSString*)calendarUID {
  return [self UUIDString];
}
- (BOOL)isRecurring {
  const auto stored = storedEvent(self);
  return stored && (stored->isRecurring() || stored->isException());
}
- (BOOL)isOccurrence {
  const auto stored = storedEvent(self);
  return stored && stored->isException();
}
- (BOOL)isModifiedException {
  const auto stored = storedEvent(self);
  return stored && stored->isException();
}
- (NSString*)recurrenceId {
  const auto stored = storedEvent(self);
  return stored && stored->isException() ? foundationText(std::string_view(stored->recurrenceId())) : nil;
}
- (ECRecurrence*)recurrence {
  const auto stored = storedEvent(self);
  const auto series = stored ? stored->series() : std::nullopt;
  if (!series) return nil;
  return [[[ECRecurrence alloc] initWithStore:m_store index:static_cast<NSInteger>(series->index())] autorelease];
}
- (id)seriesMasterRecord {
  const auto stored = storedEvent(self);
  const auto series = stored && stored->isException() ? stored->master() : std::nullopt;
  if (!series) return nil;
  return [[[ECCalendarEvent alloc] initWithStore:m_store
                                           index:static_cast<NSInteger>(series->index())] autorelease];
}
- (id)getOccurrenceWithRecurrenceID:(NSString*)identifier {
  const auto stored = storedEvent(self);
  const auto found = stored ? m_store->find(stored->uid(), plainText(identifier)) : std::nullopt;
  if (!found) return nil;
  return [[[ECCalendarEvent alloc] initWithStore:m_store
                                           index:static_cast<NSInteger>(found->index())] autorelease];
}
- (int)sequence {
  const auto stored = storedEvent(self);
  return stored ? stored->sequence() : 0;
}
- (NSString*)organizer {
  const auto stored = storedEvent(self);
  const std::string address = stored ? stored->organizerAddress() : std::string();
  return address.empty() ? nil : foundationText(std::string_view(address));
}
- (NSString*)iCalendarRepresentation {
  const auto stored = storedEvent(self);
  return stored ? foundationText(std::string_view(stored->calendarText())) : nil;
}
- (NSString*)exportAsICS {
  return [self iCalendarRepresentation];
}
- (NSArray*)attendeeList {
  NSMutableArray* list = [NSMutableArray array];
  const auto stored = storedEvent(self);
  if (!stored) return list;
  for (const vornlab::CalendarAttendee& attendee : stored->attendees()) {
    [list addObject:[[[ECCalendarEventAttendee alloc] initWithAttendee:attendee] autorelease]];
  }
  return list;
}
- (BOOL)isMeeting {
  return [[self attendeeList] count] > 0;
}
- (id)recordUID {
  if (!storedEvent(self)) return nil;
  return [[[ECRecordUID alloc] initWithStore:m_store index:m_index] autorelease];
}
- (BOOL)deleteEventNow {
  auto stored = storedEvent(self);
  if (!stored) return NO;
  stored->remove();
  vornlab::calendarHasChanged();
  return YES;
}
// The attendees are told, and the host deletes a cancelled meeting past its own deleteEventNow.
- (void)cancelMeetingInWindow:(NSWindow*)window {
  (void)window;
  auto stored = storedEvent(self);
  if (!stored) return;
  ++vornlab::hostState().sentCount;
  stored->remove();
  vornlab::calendarHasChanged();
}
- (BOOL)storeChanges:(NSDictionary*)changes {
  ECMutableCalendarEvent* record = [[[ECMutableCalendarEvent alloc] initWithStore:m_store
                                                                            index:m_index] autorelease];
  [record->m_changed addEntriesFromDictionary:m_changed];
  NSEnumerator* items = [changes keyEnumerator];
  while (NSString* item = [items nextObject]) {
    const id value = [changes objectForKey:item];
    [record->m_changed setObject:value == [NSNull null] ? @"" : value forKey:item];
  }
  if ([record saveRecord] != 0) return NO;
  m_index = record->m_index;
  [m_changed removeAllObjects];
  return YES;
}
- (BOOL)isOwner {
  const auto stored = storedEvent(self);
  return !stored || !stored->isOfSomebodyElse(vornlab::hostState().options.userAddress);
}
- (BOOL)isOrganizer {
  return [self isOwner];
}
- (ECEmailAccount*)account {
  return [ECEmailAccount account];
}
- (double)duration {
  return [[self endTime] timeIntervalSinceDate:[self startTime]];
}
- (NSTimeZone*)timeZone {
  return [[self startTime] timeZone];
}
@end

@implementation ECMutableCalendarEvent
- (void)setOlmUCInband:(NSString*)record {
  [super setOlmUCInband:record];
}
// What was changed in memory, as a save stores it.
- (vornlab::RecordOfSave)recordOfSave {
  const auto text = [](NSString* changed) {
    return changed ? vorn::OptionalText(plainText(changed)) : std::nullopt;
  };
  vornlab::RecordOfSave record;
  record.summary = text([m_changed objectForKey:@"summary"]);
  record.location = text([m_changed objectForKey:@"location"]);
  record.olmUCInband = text([m_changed objectForKey:@"olmUCInband"]);
  record.olmUCCapabilities = text([m_changed objectForKey:@"olmUCCapabilities"]);
  record.body = text([m_changed objectForKey:@"body"]);
  NSNumber* saysHtml = [m_changed objectForKey:@"isBodyHTML"];
  record.isBodyHtml = !saysHtml || [saysHtml boolValue];
  if ([m_changed objectForKey:@"startTime"] || [m_changed objectForKey:@"endTime"]) {
    record.times = vornlab::RecordOfSave::Times{[[self startTime] timeIntervalSince1970],
                                                [[self endTime] timeIntervalSince1970]};
  }
  return record;
}
- (long)saveRecord {
  constexpr long stored = 0;
  constexpr long notStored = 1;
  std::optional<std::size_t> place;
  if (m_index >= 0) place = static_cast<std::size_t>(m_index);
  const bool isStored = vornlab::storeRecord(vornlab::hostState(), m_store, place, [self recordOfSave]);
  if (place) m_index = static_cast<NSInteger>(*place);
  if (!isStored) return notStored;
  vornlab::calendarHasChanged();
  return stored;
}
@end

// Appointments as the host shows them, and what they hand out.

#include "lab/objc/HostClasses.h"

using vornlab::foundationText;
using vornlab::hostState;
using vornlab::plainText;

namespace {

OLCalendarDate* dateOf(const std::optional<vornlab::CalendarTime>& time) {
  return time ? [OLCalendarDate dateWithTime:*time] : nil;
}

NSString* ownersName() { return foundationText(hostState().options.userName); }
NSString* ownersAddress() { return foundationText(hostState().options.userAddress); }

ECCalendarEvent* eventOf(const std::optional<vornlab::Appointment>& shown) {
  return shown ? [ECCalendarEvent eventOf:*shown] : nil;
}

}  // namespace

namespace vornlab {

HostState& hostState() {
  static HostState state;
  return state;
}

NSArray* attendeeObjects(const std::vector<CalendarAttendee>& people) {
  NSMutableArray* list = [NSMutableArray array];
  for (const CalendarAttendee& person : people)
    [list addObject:[[[ECCalendarEventAttendee alloc] initWithAttendee:person] autorelease]];
  return list;
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
- (vornlab::CalendarTime)time {
  vornlab::CalendarTime time;
  time.seconds = m_seconds;
  time.zone = plainText([m_zone name]);
  time.offset = static_cast<int>([m_zone secondsFromGMTForDate:[self dateUTC]]);
  return time;
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
- (id)initWithAppointment:(const vornlab::Appointment&)appointment {
  if (!(self = [super init])) return nil;
  m_appointment = appointment;
  return self;
}
@end

@implementation ECRecurrence
- (vornlab::CalendarRecurrence)recurrence {
  const auto series = m_appointment.stored();
  return series ? series->recurrence() : vornlab::CalendarRecurrence();
}
- (NSString*)format {
  return foundationText([self recurrence].rule);
}
- (int)endType {
  return [self recurrence].endType;
}
- (int)occurrenceCount {
  return [self recurrence].occurrenceCount;
}
- (OLCalendarDate*)startDate {
  return dateOf(m_appointment.start());
}
- (OLCalendarDate*)endDate {
  return dateOf([self recurrence].lastStart);
}
@end

@implementation ECRecordUID
- (NSString*)recordUID {
  return foundationText(m_appointment.uid());
}
- (long long)recordID {
  return m_appointment.recordId();
}
- (BOOL)recordExists {
  return m_appointment.recordExists();
}
@end

@implementation ECCalendarEventAttendee
- (id)initWithAttendee:(const vornlab::CalendarAttendee&)attendee {
  if (!(self = [super init])) return nil;
  m_attendee = attendee;
  return self;
}
- (NSString*)name {
  return foundationText(m_attendee.name);
}
- (NSString*)emailAddress {
  return foundationText(m_attendee.emailAddress);
}
- (int)attendeeType {
  return m_attendee.type;
}
@end

@implementation ECEmailAddress
- (id)initWithAddress:(NSString*)address {
  if ((self = [super init])) m_address = [address copy];
  return self;
}
- (void)dealloc {
  [m_address release];
  [super dealloc];
}
- (NSString*)emailAddress {
  return m_address;
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
+ (ECEmailAccount*)accountOf:(NSString*)address {
  if (!address) return [self account];
  ECEmailAccount* other = [[[ECEmailAccount alloc] init] autorelease];
  other->m_address = [address copy];
  return other;
}
- (void)dealloc {
  [m_address release];
  [super dealloc];
}
- (NSString*)emailAddress {
  return m_address ? m_address : ownersAddress();
}
- (NSString*)name {
  return ownersName();
}
- (NSString*)realName {
  return [self name];
}
- (ECEmailAddress*)fromAddress {
  return [[[ECEmailAddress alloc] initWithAddress:[self emailAddress]] autorelease];
}
- (BOOL)isDefault {
  return !m_address;
}
- (BOOL)isAccountConnected {
  return YES;
}
- (BOOL)isGmailAccount {
  return NO;
}
- (BOOL)shouldDisableCalendarHTMLBodyForAccount {
  return hostState().options.plainTextOnly;
}
@end

@implementation ECCalendarEvent
+ (ECCalendarEvent*)eventOf:(const vornlab::Appointment&)appointment {
  return [[[ECCalendarEvent alloc] initWithAppointment:appointment] autorelease];
}

- (NSString*)summary {
  return foundationText(m_appointment.summary());
}
- (NSString*)location {
  return foundationText(m_appointment.location());
}
- (NSString*)body {
  return foundationText(m_appointment.body());
}
- (NSString*)olmUCInband {
  return foundationText(m_appointment.olmUCInband());
}
- (NSString*)olmUCCapabilities {
  return foundationText(m_appointment.olmUCCapabilities());
}
- (BOOL)isBodyHTML {
  return m_appointment.isBodyHtml();
}
- (OLCalendarDate*)startTime {
  return dateOf(m_appointment.start());
}
- (OLCalendarDate*)endTime {
  return dateOf(m_appointment.end());
}

- (void)setSummary:(NSString*)text {
  m_appointment.changes().summary = plainText(text);
}
- (void)setLocation:(NSString*)text {
  m_appointment.changes().location = plainText(text);
}
- (void)setBody:(NSString*)html {
  m_appointment.changes().body = plainText(html);
}
- (void)setOlmUCInband:(NSString*)record {
  m_appointment.changes().olmUCInband = plainText(record);
}
- (void)setOlmUCCapabilities:(NSString*)record {
  m_appointment.changes().olmUCCapabilities = plainText(record);
}
- (void)setIsBodyHTML:(BOOL)isHtml {
  m_appointment.changes().isBodyHtml = isHtml;
}
// The appointment on the screen is drawn anew; there is nothing to draw here.
- (void)displayReadyBody {
}

- (NSString*)UUIDString {
  return foundationText(m_appointment.uid());
}
- (NSString*)UUID {
  return foundationText(m_appointment.uid());
}
- (NSString*)calendarUID {
  return foundationText(m_appointment.uid());
}
- (BOOL)isRecurring {
  return m_appointment.isRecurring();
}
- (BOOL)isOccurrence {
  return m_appointment.isException();
}
- (BOOL)isModifiedException {
  return m_appointment.isException();
}
- (NSString*)recurrenceId {
  return foundationText(m_appointment.recurrenceId());
}
- (ECRecurrence*)recurrence {
  const auto series = m_appointment.series();
  return series ? [[[ECRecurrence alloc] initWithAppointment:*series] autorelease] : nil;
}
- (id)seriesMasterRecord {
  return eventOf(m_appointment.seriesMaster());
}
- (id)getOccurrenceWithRecurrenceID:(NSString*)identifier {
  return eventOf(m_appointment.occurrence(plainText(identifier)));
}
- (int)sequence {
  return m_appointment.sequence();
}
- (NSString*)organizer {
  return foundationText(m_appointment.organizer());
}
- (NSString*)iCalendarRepresentation {
  return foundationText(m_appointment.calendarText());
}
- (NSString*)exportAsICS {
  return foundationText(m_appointment.calendarText());
}
- (NSArray*)attendeeList {
  return vornlab::attendeeObjects(m_appointment.attendees());
}
- (BOOL)isMeeting {
  return m_appointment.isMeeting();
}
- (id)recordUID {
  if (!m_appointment.recordExists()) return nil;
  return [[[ECRecordUID alloc] initWithAppointment:m_appointment] autorelease];
}
- (BOOL)isOwner {
  return m_appointment.isOwnedIn(hostState());
}
- (BOOL)isOrganizer {
  return m_appointment.isOwnedIn(hostState());
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

- (BOOL)deleteEventNow {
  const bool isDeleted = m_appointment.remove();
  vornlab::calendarHasChanged();
  return isDeleted;
}
// The host deletes a cancelled meeting past its own deleteEventNow.
- (void)cancelMeetingInWindow:(NSWindow*)window {
  (void)window;
  m_appointment.cancel(hostState());
  vornlab::calendarHasChanged();
}
- (BOOL)storeChanges:(const vornlab::AppointmentChanges&)changes {
  ECMutableCalendarEvent* record =
      [[[ECMutableCalendarEvent alloc] initWithAppointment:m_appointment.withChanges(changes)] autorelease];
  if ([record saveRecord] != vornlab::Appointment::kStored) return NO;
  m_appointment.takeOver(record->m_appointment);
  return YES;
}
@end

@implementation ECMutableCalendarEvent
// The plug-in exchanges this one, and the event's own must stay out of it.
- (void)setOlmUCInband:(NSString*)record {
  [super setOlmUCInband:record];
}
- (long)saveRecord {
  const bool isStored = m_appointment.write(hostState());
  if (isStored) vornlab::calendarHasChanged();
  return isStored ? vornlab::Appointment::kStored : vornlab::Appointment::kNotStored;
}
@end

#pragma once

#import "lab/objc/HostClasses.h"

// A week of the calendar. A click selects an appointment, two open it; it is dragged to another time, resized at
// its upper and lower edge, renamed with the return key, and deleted with the delete key. Each goes through the
// host's own selectors. Only what is in sight is drawn, whatever the calendar holds; of many whole days the first
// ones, and a click on how many more there are shows all. The dates of a series stand in it too: to open or name
// one is to do it to the series, and only the first can be moved or deleted.
@interface vnWeekView : NSView {
  // Not owned; it has this view.
  CCGridViewController* m_controller;
  // An array of the calendar's times, by their start. Owned.
  void* m_state;
  // Nil when no name is being typed.
  NSTextField* m_nameField;
  ECCalendarEvent* m_named;
}
- (id)initWithController:(CCGridViewController*)controller;
// Reads the calendar anew.
- (void)reload;
// Shows the week that holds the time, in seconds since 1970.
- (void)showWeekOf:(double)seconds;
// Where the appointment at that place of the store stands in the week; empty where it does not.
- (NSRect)placeOfEvent:(std::size_t)index;
// How far the mouse moves what stands at one time so that it stands at the other. Its height is not finite where
// the mouse cannot do it: in another week, or between quarters of an hour.
- (NSSize)wayFrom:(double)seconds to:(double)otherSeconds;
// The days of the week; they are those of the calendar's own time zone.
- (NSString*)title;
- (NSTimeZone*)zone;
- (IBAction)previousWeek:(id)sender;
- (IBAction)nextWeek:(id)sender;
@end

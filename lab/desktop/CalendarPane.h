#pragma once

#include <functional>

#include "lab/desktop/CalendarFile.h"
#import "lab/desktop/WeekView.h"

// The week with what stands above it: the way to other weeks, a new appointment, and the file.
@interface vnCalendarPane : NSView {
  vnWeekView* m_week;
  NSTextField* m_title;
  NSButton* m_save;
}
- (id)initWithController:(CCGridViewController*)controller;
- (vnWeekView*)week;
// Shows the calendar as it is now.
- (void)reload;
@end

namespace vornlab {

// The pane of the main window; nil before there is one.
vnCalendarPane* shownPane();
// What the pane's button saves to; null where there is nothing to be saved.
CalendarFile*& shownCalendarFile();
// What its button for the client does; null where there is nothing to be shown.
std::function<void()>& showClientWindow();

}  // namespace vornlab

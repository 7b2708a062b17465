#pragma once

#import <AppKit/AppKit.h>

// An alert with as many buttons as are asked for, a switch by which it is not shown again, and a text of any
// length, where those of the toolkit end with three buttons and have no switch. It comes wherever somebody makes
// an alert of the toolkit, and answers to the names that other toolkits have.
//
// The return key presses the first button. Escape presses the one that cancels, or else the last one, for whoever
// only wants to get out has agreed to nothing. Buttons stand from right to left, or from above to below where the
// window would become too wide.
@interface vnOwnAlert : NSAlert {
  NSMutableArray* m_choices;
  // Nil without a switch.
  NSButton* m_notAgain;
  // Made when it is shown.
  NSWindow* m_shown;
}
- (void)setShowsSuppressionButton:(BOOL)shows;
- (BOOL)showsSuppressionButton;
// Nil for an alert that shows none.
- (NSButton*)suppressionButton;
@end

#pragma once

#import <AppKit/AppKit.h>

#include "lab/desktop/ClientDesk.h"

// The window with what a person can change at the client - who is signed in, the version, what goes wrong, whether
// it runs - and the envelopes as they pass. It follows the client's journal while it is open.
@interface vnClientWindow : NSObject {
  NSWindow* m_window;
  NSPopUpButton* m_account;
  NSTextField* m_version;
  NSPopUpButton* m_faults;
  NSTextField* m_rules;
  NSTextField* m_state;
  NSButton* m_runs;
  NSTextView* m_road;
  NSTimer* m_timer;
  // A vornlab::ClientDesk, not owned, which outlives this; and a JournalTail, which is owned.
  void* m_desk;
  void* m_tail;
}
- (id)initWithDesk:(vornlab::ClientDesk&)desk;
- (NSWindow*)window;
- (void)show;
// Nothing is followed any more, and the window leaves the screen.
- (void)end;
// Chooses an account by the name of its file, without ending; types a version, and rules of faults. Each is what
// the window's own controls do.
- (void)chooseAccount:(id)sender;
- (void)typeVersion:(id)sender;
- (void)chooseFaults:(id)sender;
- (void)typeRules:(id)sender;
@end

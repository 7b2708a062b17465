#import "lab/desktop/ClientWindow.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#import "lab/desktop/Controls.h"
#include "lab/desktop/JournalTail.h"
#import "lab/desktop/Questions.h"
#import "lab/objc/HostClasses.h"
#include "lab/shell/LabError.h"

namespace {

namespace fs = std::filesystem;
using vornlab::foundationText;

constexpr double kWide = 780;
constexpr double kHigh = 560;
constexpr double kTop = 176;
constexpr double kAround = 20;
constexpr double kLabels = 76;
constexpr double kRowHeight = 36;
constexpr double kOften = 0.25;
// What a person may still want to read; the journal has all of it.
constexpr NSUInteger kMostText = 400000;

struct KnownFaults {
  NSString* title;
  NSString* rules;
};

// Each is a text in the language of the client's faults, which can be changed beside it.
const KnownFaults kKnownFaults[] = {
    {@"None", @""},
    {@"Answers after 5 seconds", @"every reply: delay 5 s"},
    {@"Refuses each new meeting and change", @"every reply to action 3: error 3113"},
    {@"Answers nothing", @"every reply: silent"},
    {@"Answers what nobody can read", @"every reply: content nonsense"},
    {@"Sends small pieces", @"every reply: split every 7"},
    {@"Cuts its answers off", @"every reply: truncate 20"},
    {@"Closes the connection instead of an answer", @"reply 1: close"},
    {@"Dies instead of an answer", @"reply 1: die"},
};

std::vector<fs::path> shippedAccounts() {
  std::vector<fs::path> found;
  std::error_code missing;
  for (const auto& entry : fs::directory_iterator(VORNLAB_ACCOUNTS, missing)) {
    if (entry.path().extension() == ".json") found.push_back(entry.path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

NSPopUpButton* popup(NSRect frame, id target, SEL action) {
  NSPopUpButton* made = [[[NSPopUpButton alloc] initWithFrame:frame pullsDown:NO] autorelease];
  [made setTarget:target];
  [made setAction:action];
  [made setAutoresizingMask:NSViewMinYMargin];
  return made;
}

NSTextField* field(NSRect frame, NSString* placeholder, id target, SEL action) {
  NSTextField* made = [[[NSTextField alloc] initWithFrame:frame] autorelease];
  [[made cell] setPlaceholderString:placeholder];
  [[made cell] setScrollable:YES];
  [made setTarget:target];
  [made setAction:action];
  [made setAutoresizingMask:NSViewMinYMargin];
  return made;
}

}  // namespace

@interface vnClientWindow ()
- (void)build;
- (void)showState;
- (void)follow:(NSTimer*)timer;
@end

@implementation vnClientWindow
- (id)initWithDesk:(vornlab::ClientDesk&)desk {
  if (!(self = [super init])) return nil;
  m_desk = &desk;
  m_tail = std::make_unique<vornlab::JournalTail>(desk.clientJournal()).release();
  [self build];
  return self;
}
- (void)dealloc {
  [m_window setDelegate:nil];
  [m_window release];
  std::unique_ptr<vornlab::JournalTail>(static_cast<vornlab::JournalTail*>(m_tail)).reset();
  [super dealloc];
}
- (vornlab::ClientDesk&)desk {
  return *static_cast<vornlab::ClientDesk*>(m_desk);
}
- (NSWindow*)window {
  return m_window;
}
- (double)yOfRow:(int)row {
  return kHigh - kAround - (row + 1) * kRowHeight + 8;
}
- (void)name:(NSString*)name row:(int)row {
  NSTextField* label = vornlab::label(name, NSMakeRect(kAround, [self yOfRow:row] - 1, kLabels, 24));
  [label setAutoresizingMask:NSViewMinYMargin];
  [[m_window contentView] addSubview:label];
}
- (void)build {
  constexpr NSUInteger style = NSTitledWindowMask | NSClosableWindowMask | NSResizableWindowMask;
  m_window = [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, kWide, kHigh)
                                         styleMask:style
                                           backing:NSBackingStoreBuffered
                                             defer:YES];
  [m_window setReleasedWhenClosed:NO];
  [m_window setTitle:@"Client"];
  [m_window setMinSize:NSMakeSize(kWide, kTop + 160)];
  [m_window setDelegate:static_cast<id>(self)];
  NSView* content = [m_window contentView];
  const double x = kAround + kLabels;
  const auto place = [&](int row, double width) { return NSMakeRect(x, [self yOfRow:row], width, 26); };

  [self name:@"Account" row:0];
  m_account = popup(place(0, 260), self, @selector(chooseAccount:));
  [content addSubview:m_account];
  [self name:@"Version" row:1];
  m_version = field(place(1, 260), @"its own", self, @selector(typeVersion:));
  [content addSubview:m_version];
  NSTextField* hint = vornlab::label(@"empty for its own", NSMakeRect(x + 268, [self yOfRow:1] - 1, 160, 24));
  [hint setTextColor:[NSColor disabledControlTextColor]];
  [hint setAutoresizingMask:NSViewMinYMargin];
  [content addSubview:hint];
  [self name:@"Faults" row:2];
  m_faults = popup(place(2, 340), self, @selector(chooseFaults:));
  for (const KnownFaults& each : kKnownFaults) [m_faults addItemWithTitle:each.title];
  [content addSubview:m_faults];
  NSRect rules = place(3, kWide - x - kAround);
  m_rules = field(rules, @"third reply to action 3: error 3113", self, @selector(typeRules:));
  [m_rules setAutoresizingMask:NSViewMinYMargin | NSViewWidthSizable];
  [content addSubview:m_rules];

  m_runs = vornlab::pushButton(@"Start the client", self, @selector(startOrEnd:),
                               NSMakePoint(kWide - kAround - 170, [self yOfRow:0] - 2));
  [m_runs setFrameSize:NSMakeSize(170, 30)];
  [m_runs setAutoresizingMask:NSViewMinXMargin | NSViewMinYMargin];
  [content addSubview:m_runs];
  m_state = vornlab::label(@"", NSMakeRect(kWide - kAround - 220, [self yOfRow:1] - 30, 220, 56));
  [m_state setAlignment:NSRightTextAlignment];
  [[m_state cell] setWraps:YES];
  [m_state setAutoresizingMask:NSViewMinXMargin | NSViewMinYMargin];
  [content addSubview:m_state];
  NSView* const order[] = {m_account, m_version, m_faults, m_rules, m_runs, m_account};
  for (std::size_t i = 0; i + 1 < std::size(order); ++i) [order[i] setNextKeyView:order[i + 1]];

  m_road = vornlab::longText(content, NSMakeRect(0, 0, kWide, kHigh - kTop), NSMakeSize(kAround - 4, 12),
                             [NSFont userFixedPitchFontOfSize:11]);
  [m_window center];
  [self showState];
}
- (void)showState {
  [m_account removeAllItems];
  const fs::path chosen = [self desk].account();
  std::vector<fs::path> accounts = shippedAccounts();
  if (!chosen.empty() && std::find(accounts.begin(), accounts.end(), chosen) == accounts.end()) {
    accounts.push_back(chosen);
  }
  for (const fs::path& each : accounts) {
    NSMenuItem* item = [[[NSMenuItem alloc] initWithTitle:foundationText(std::string_view(each.stem().native()))
                                                   action:nullptr
                                            keyEquivalent:@""] autorelease];
    [item setRepresentedObject:foundationText(std::string_view(each.native()))];
    [[m_account menu] addItem:item];
    const bool isChosen = chosen.empty() ? each.stem() == "plain" : each == chosen;
    if (isChosen) [m_account selectItem:item];
  }
  NSMenuItem* other = [[[NSMenuItem alloc] initWithTitle:@"Another file…" action:nullptr
                                           keyEquivalent:@""] autorelease];
  [[m_account menu] addItem:other];
  const bool runs = [self desk].isClientRunning();
  [m_state setStringValue:runs ? @"It runs. After a start, the first click in an editor only connects."
                               : @"It does not run."];
  [m_runs setTitle:runs ? @"End the client" : @"Start the client"];
}
- (void)show {
  if (!m_timer) {
    m_timer = [NSTimer timerWithTimeInterval:kOften
                                      target:self
                                    selector:@selector(follow:)
                                    userInfo:nil
                                     repeats:YES];
    NSString* const modes[] = {NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode};
    for (NSString* mode : modes) [[NSRunLoop currentRunLoop] addTimer:m_timer forMode:mode];
  }
  [self follow:nil];
  [m_window makeKeyAndOrderFront:nil];
}
- (void)end {
  [m_timer invalidate];
  m_timer = nil;
  [m_window orderOut:nil];
}
- (void)windowWillClose:(NSNotification*)notification {
  (void)notification;
  [self end];
}
- (void)follow:(NSTimer*)timer {
  (void)timer;
  const std::vector<std::string> lines = static_cast<vornlab::JournalTail*>(m_tail)->takeLines();
  const bool runs = [self desk].isClientRunning();
  if (runs != [[m_runs title] isEqual:@"End the client"]) [self showState];
  if (lines.empty()) return;
  std::string added;
  for (const std::string& line : lines) added += line + "\n";
  // Whoever has scrolled up is reading there.
  const bool isAtEnd = NSMaxY([m_road visibleRect]) >= NSMaxY([m_road bounds]) - 40;
  NSTextStorage* text = [m_road textStorage];
  NSDictionary* look = [NSDictionary dictionaryWithObject:[m_road font] forKey:NSFontAttributeName];
  [text beginEditing];
  [text appendAttributedString:[[[NSAttributedString alloc] initWithString:foundationText(std::string_view(added))
                                                                attributes:look] autorelease]];
  if ([text length] > kMostText) {
    const NSUInteger end =
        NSMaxRange([[text string] lineRangeForRange:NSMakeRange([text length] - kMostText / 2, 0)]);
    [text deleteCharactersInRange:NSMakeRange(0, end)];
  }
  [text endEditing];
  if (isAtEnd) [m_road scrollRangeToVisible:NSMakeRange([text length], 0)];
}

// -- What a person does
- (void)attempt:(const std::function<void()>&)act what:(NSString*)message {
  try {
    act();
  } catch (const std::exception& error) {
    vornlab::tellTrouble(message, error.what());
  }
  [self showState];
}
- (void)chooseAccount:(id)sender {
  (void)sender;
  NSString* file = [[m_account selectedItem] representedObject];
  if (!file) {
    NSOpenPanel* panel = [NSOpenPanel openPanel];
    [panel setAllowsMultipleSelection:NO];
    if ([panel runModalForTypes:[NSArray arrayWithObject:@"json"]] != NSOKButton) return [self showState];
    file = [panel filename];
  }
  const fs::path account = vornlab::plainText(file);
  [self attempt:[&] { [self desk].signIn(account); } what:@"Nobody else is signed in"];
}
- (void)typeVersion:(id)sender {
  (void)sender;
  const std::string version = vornlab::plainText([m_version stringValue]);
  [self attempt:[&] { [self desk].showVersion(version); } what:@"The client keeps its version"];
}
- (void)chooseFaults:(id)sender {
  const NSInteger chosen = [m_faults indexOfSelectedItem];
  if (chosen < 0 || static_cast<std::size_t>(chosen) >= std::size(kKnownFaults)) return;
  [m_rules setStringValue:kKnownFaults[chosen].rules];
  [self typeRules:sender];
}
- (void)typeRules:(id)sender {
  (void)sender;
  const std::string rules = vornlab::plainText([m_rules stringValue]);
  [self attempt:[&] { [self desk].misbehave(rules); } what:@"The faults stay as they were"];
}
- (void)startOrEnd:(id)sender {
  (void)sender;
  [self attempt:[&] {
    if ([self desk].isClientRunning()) {
      [self desk].endClient();
    } else {
      [self desk].startClientAgain();
    }
  }
           what:@"The client cannot be started"];
}
@end

#include "lab/desktop/DesktopSession.h"

#include <csignal>
#include <cstdlib>
#include <vector>

#include "lab/client/Faults.h"
#include "lab/desktop/Application.h"
#import "lab/desktop/CalendarPane.h"
#import "lab/desktop/ClientWindow.h"
#import "lab/desktop/EditorForm.h"
#import "lab/desktop/RealHand.h"
#include "lab/desktop/Theme.h"
#import "lab/objc/HostClasses.h"
#include "lab/shell/Interruption.h"
#include "lab/shell/LabError.h"
#include "lab/shell/LabStart.h"
#include "util/Text.h"

// The toolkit takes a program's words for files to open, which is this program's own business.
@interface vnLaunching : NSObject
@end

@implementation vnLaunching
- (BOOL)application:(NSApplication*)application openFile:(NSString*)file {
  (void)application;
  (void)file;
  return YES;
}
@end

// Hears that the person wants to close the main window, which ends the application when everything is saved.
@interface vnMainWindowWatch : NSObject {
 @public
  BOOL m_isEnding;
}
@end

@implementation vnMainWindowWatch
- (BOOL)windowShouldClose:(id)window {
  (void)window;
  m_isEnding = YES;
  return NO;
}
@end

// Takes a window off that holds everything up, so that whoever interrupts the program is heard while it waits for
// an answer.
@interface vnInterruptionWatch : NSObject
- (void)look:(NSTimer*)timer;
@end

@implementation vnInterruptionWatch
- (void)look:(NSTimer*)timer {
  (void)timer;
  if (!vornlab::Interruption::requested() || ![NSApp modalWindow]) return;
  [NSApp stopModalWithCode:NSRunAbortedResponse];
  vornlab::wakeLoop();
}
@end

namespace vornlab {

namespace {

LabOptions withFaults(LabOptions options) {
  options.takesFaults = true;
  return options;
}

HostOptions hostOf(const std::string& userAddress) {
  HostOptions host;
  host.userAddress = userAddress;
  return host;
}

constexpr double kTurnSeconds = 0.01;
constexpr double kLongSeconds = 3600;
constexpr double kInterruptionSeconds = 0.1;
// The plug-in clears up a hundredth of a second after a window has closed, and the toolkit in the turn behind
// that. A turn ends early with an event, so they are not counted. What is left when the thread ends is let go of
// without a pool, which the toolkit tells on the terminal.
constexpr double kLastTurnsSeconds = 0.08;

}  // namespace

void DesktopSession::beginApplication() {
#ifdef GNUSTEP
  if (!std::getenv("DISPLAY"))
    throw LabError("there is no display; start it from a graphical session, or with xvfb-run for pictures alone");
  useDesktopTheme();
#endif
  // Before the toolkit, which asks for the centre.
  PlayedSystem::takeFoundationsPlace();
  if (!vnMakeApplication()) {
    const char* display = std::getenv("DISPLAY");
    throw LabError("the display " + std::string(display ? display : "") +
                   " cannot be reached; start it from a graphical session, or with xvfb-run for pictures alone");
  }
#ifdef GNUSTEP
  showDesktopTheme();
#endif
  // Nobody runs the application's own loop, which would begin with these; keys reach an active one only.
  vnLaunching* launching = [[[vnLaunching alloc] init] autorelease];
  [NSApp setDelegate:static_cast<id>(launching)];
  [NSApp finishLaunching];
  [NSApp setDelegate:nil];
  [NSApp activateIgnoringOtherApps:YES];
  // The toolkit has taken the signals for itself.
  Interruption::install();
  // The loop keeps both to the end.
  NSTimer* looking = [NSTimer timerWithTimeInterval:kInterruptionSeconds
                                             target:[[[vnInterruptionWatch alloc] init] autorelease]
                                           selector:@selector(look:)
                                           userInfo:nil
                                            repeats:YES];
  [[NSRunLoop currentRunLoop] addTimer:looking forMode:NSModalPanelRunLoopMode];
  // The server of the pasteboards may go, which is no wish of the person's to end.
  std::signal(SIGPIPE, SIG_IGN);
}

DesktopSession::DesktopSession(const LabOptions& options, CalendarStore& calendar, const std::string& userAddress)
    : DesktopSession(options, calendar, hostOf(userAddress), nullptr) {}

DesktopSession::DesktopSession(const LabOptions& options, CalendarStore& calendar, const HostOptions& hostOptions,
                               std::unique_ptr<HostScreen> watched)
    : ObjcSession(withFaults(options), calendar, hostOptions), m_screen(std::move(watched)) {
  const Pool pool;
  takeSignedInAccount(options);
  m_watch = [[vnMainWindowWatch alloc] init];
  [mainWindow() setDelegate:static_cast<id>(m_watch)];
  m_clientWindow = [[vnClientWindow alloc] initWithDesk:*this];
  showClientWindow() = [this] { [m_clientWindow show]; };
}

DesktopSession::~DesktopSession() {
  const Pool pool;
  showClientWindow() = nullptr;
  [m_clientWindow end];
  [m_clientWindow release];
  [mainWindow() setDelegate:nil];
  [m_watch release];
  closeEditors();
  // Also for one who interrupts, and whom nothing else waits for.
  const double cleared = [NSDate timeIntervalSinceReferenceDate] + kLastTurnsSeconds;
  while ([NSDate timeIntervalSinceReferenceDate] < cleared) {
    const Pool passing;
    turn();
  }
  // The toolkit cannot end a window that is still on the screen, or has a toolbar.
  [mainWindow() orderOut:nil];
  [mainWindow() setToolbar:nil];
}

void DesktopSession::openEditor(const CalendarEvent* event) {
  const Pool pool;
  if (event) {
    host().openEditorAt(event->index());
  } else {
    [ERCalendarEventEditorWindowController showWindowForNewEvent];
  }
}

void DesktopSession::closeEditors() {
  NSEnumerator* open = [[ERCalendarEventEditorWindowController openControllers] objectEnumerator];
  while (ERCalendarEventEditorWindowController* controller = [open nextObject]) [controller close];
}

bool DesktopSession::pressInBar(const std::string& action) {
  const std::vector<HostFace::EditorId> open = host().editors();
  return !open.empty() && host().clickBar(open.back(), action.c_str());
}

NSWindow* DesktopSession::editorWindow() const {
  return [[[ERCalendarEventEditorWindowController openControllers] lastObject] window];
}

NSWindow* DesktopSession::mainWindow() const {
  return [static_cast<ERageMainWindowController*>(mainWindowController()) window];
}

void DesktopSession::run(const std::function<bool()>& mayEnd) {
  do {
    while (!waitUntil([this] { return m_watch->m_isEnding; }, kLongSeconds)) continue;
    m_watch->m_isEnding = NO;
  } while (!askAboutEditors() || !mayEnd());
}

bool DesktopSession::askAboutEditors() {
  const Pool pool;
  // A name that is being typed in the week counts.
  [mainWindow() makeFirstResponder:nil];
  NSEnumerator* open = [[ERCalendarEventEditorWindowController openControllers] objectEnumerator];
  while (ERCalendarEventEditorWindowController* controller = [open nextObject]) {
    if (![[vnEditorForm formOf:[controller editorViewController]] askToClose]) return false;
  }
  // A save may be waiting for the client. Where it fails, the plug-in tells why, and the editor stays.
  return waitUntil([] { return [[ERCalendarEventEditorWindowController openControllers] count] == 0; },
                   options().timeoutSeconds);
}

void DesktopSession::signIn(const std::filesystem::path& account) {
  LabOptions next = clientOptions();
  next.account = account;
  takeSignedInAccount(next);
  clientOptions().account = account;
  startClientAgain();
}

void DesktopSession::takeSignedInAccount(const LabOptions& options) {
  const std::string signedIn = signedInAccount(options).email;
  HostOptions& host = hostState().options;
  host.otherAccounts.clear();
  if (!signedIn.empty() && !vorn::equalIgnoringCase(signedIn, host.userAddress)) host.otherAccounts = {signedIn};
  NSEnumerator* open = [[ERCalendarEventEditorWindowController openControllers] objectEnumerator];
  while (ERCalendarEventEditorWindowController* controller = [open nextObject])
    [[vnEditorForm formOf:[controller editorViewController]] showSenders];
}

void DesktopSession::showVersion(const std::string& version) {
  stopClient();
  world().installClient(options().programs / "vornclient.app", version);
  clientOptions().clientVersion = version;
  startClientAgain();
}

void DesktopSession::startClientAgain() {
  restartClient();
  reopenMainWindow();
}

void DesktopSession::reopenMainWindow() {
  const Pool pool;
  ERageMainWindowController* controller = static_cast<ERageMainWindowController*>(mainWindowController());
  NSWindow* window = [controller window];
  [controller windowWillClose:[NSNotification notificationWithName:NSWindowWillCloseNotification object:window]];
  [controller windowDidBecomeMain:[NSNotification notificationWithName:NSWindowDidBecomeMainNotification
                                                                object:window]];
}

void DesktopSession::misbehave(const std::string& rules) {
  try {
    FaultBook::fromText(rules, "the faults");
  } catch (const FaultError& error) {
    throw LabError(error.what());
  }
  setFaults(rules);
}

void DesktopSession::turn() {
  NSEvent* event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                      untilDate:[NSDate dateWithTimeIntervalSinceNow:kTurnSeconds]
                                         inMode:NSDefaultRunLoopMode
                                        dequeue:YES];
  if (event) [NSApp sendEvent:event];
}

}  // namespace vornlab

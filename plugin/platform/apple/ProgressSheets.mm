#include "platform/apple/ProgressSheets.h"

#import <Foundation/Foundation.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/apple/Conversions.h"
#include "platform/apple/Ownership.h"

// What we use of the host's classes. The plug-in is not linked with them.
@protocol vnHostApplication
+ (id)sharedApplication;
- (void*)beginModalSessionForWindow:(id)window;
- (void)endModalSession:(void*)session;
- (void)stopModal;
- (id)modalWindow;
@end

@protocol vnHostLabel
- (id)initWithFrame:(NSRect)frame;
- (void)setStringValue:(NSString*)text;
- (void)setEditable:(BOOL)editable;
- (void)setBezeled:(BOOL)bezeled;
- (void)setDrawsBackground:(BOOL)drawsBackground;
@end

@protocol vnHostPanel
- (id)initWithContentRect:(NSRect)frame styleMask:(NSUInteger)style backing:(NSUInteger)backing defer:(BOOL)defer;
- (id)contentView;
- (void)addSubview:(id)view;
- (void)center;
- (void)orderOut:(id)sender;
@end

namespace vorn {

namespace {

constexpr NSUInteger kTitledWindow = 1;
constexpr NSUInteger kBuffered = 2;
constexpr double kPanelWidth = 320;
constexpr double kPanelHeight = 64;
constexpr double kMargin = 20;
// How often a session is looked at that somebody else's dialog stands on.
constexpr double kLookAgainSeconds = 0.1;

id<vnHostApplication> hostApplication() { return [NSClassFromString(@"NSApplication") sharedApplication]; }

// Lets the host do something at the end of a sheet, which may run in a destructor: what it raises stays here, and
// the host keeps what it has then.
template <typename Body>
void attempt(Body body) {
  try {
    body();
  } catch (...) {
  }
}

Retained<> makePanel(std::string_view message) {
  const NSRect frame = NSMakeRect(0, 0, kPanelWidth, kPanelHeight);
  id<vnHostPanel> unready = [NSClassFromString(@"NSPanel") alloc];
  const id panel = [unready initWithContentRect:frame styleMask:kTitledWindow backing:kBuffered defer:NO];
  id<vnHostLabel, NSObject> label = [NSClassFromString(@"NSTextField") alloc];
  label = [[label initWithFrame:NSInsetRect(frame, kMargin, kMargin)] autorelease];
  [label setStringValue:foundationText(message)];
  [label setEditable:NO];
  [label setBezeled:NO];
  [label setDrawsBackground:NO];
  if (label) [[panel contentView] addSubview:label];
  [panel center];
  return Retained<>::adopted(panel);
}

}  // namespace

// Shared with the sheets, which may outlive it.
class ProgressSheets::Stack {
 public:
  explicit Stack(RunLoop& runLoop) : m_runLoop(runLoop) {}
  ~Stack() {
    m_runLoop.cancelPrevious(this);
    while (!m_sessions.empty()) endSession(takeUppermost());
  }
  Stack(const Stack&) = delete;
  Stack& operator=(const Stack&) = delete;

  // Answers a number by which the sheet is known.
  unsigned begin(std::string_view message) {
    Session made;
    try {
      made.panel = makePanel(message);
      made.session = made.panel.get() ? [hostApplication() beginModalSessionForWindow:made.panel.get()] : nullptr;
    } catch (...) {
      // A host that cannot show it shows nothing; the work is not about that.
    }
    made.number = ++m_lastNumber;
    m_sessions.push_back(std::move(made));
    return m_lastNumber;
  }

  void end(unsigned number) {
    Session* ended = find(number);
    if (!ended) return;
    ended->hasEnded = true;
    endUppermost();
    // One whose session has to wait for another one need not be looked at meanwhile.
    if (const Session* waiting = find(number)) orderOut(waiting->panel.get());
  }

 private:
  struct Session {
    unsigned number = 0;
    Retained<> panel;
    void* session = nullptr;
    bool hasEnded = false;
  };

  // Null for one that is there no more.
  Session* find(unsigned number) {
    const auto found = std::find_if(m_sessions.begin(), m_sessions.end(),
                                    [number](const Session& session) { return session.number == number; });
    return found == m_sessions.end() ? nullptr : &*found;
  }

  // Before the host is asked for anything: in its calls further sheets may begin and end.
  Session takeUppermost() {
    Session taken = std::move(m_sessions.back());
    m_sessions.pop_back();
    return taken;
  }

  void endUppermost() {
    while (!m_sessions.empty() && m_sessions.back().hasEnded) {
      // Where the host raises instead of telling, nothing counts as standing on it.
      id modal = nil;
      if (m_sessions.back().session) attempt([&] { modal = [hostApplication() modalWindow]; });
      if (modal && modal != m_sessions.back().panel.get()) {
        m_runLoop.cancelPrevious(this);
        m_runLoop.performAfter(kLookAgainSeconds, this, "endUppermost", [this] { endUppermost(); });
        return;
      }
      endSession(takeUppermost());
    }
  }

  static void endSession(const Session& ended) {
    if (ended.session) endModalSession(ended.session);
    orderOut(ended.panel.get());
  }

  static void endModalSession(void* session) {
    attempt([&] {
      const id<vnHostApplication> application = hostApplication();
      [application endModalSession:session];
      // It stops whatever is modal now; a dialog that is still open is somebody else's. Some toolkits raise when
      // there is nothing to stop.
      if (![application modalWindow]) [application stopModal];
    });
  }

  // The sheet may end altogether in the host's call.
  static void orderOut(id panel) {
    // The sheet may end altogether in the host's call.
    const Retained<> held(panel);
    attempt([&] { [held.get() orderOut:nil]; });
  }

  RunLoop& m_runLoop;
  std::vector<Session> m_sessions;
  unsigned m_lastNumber = 0;
};

class ProgressSheets::Sheet final : public Presenter::Progress {
 public:
  Sheet(std::weak_ptr<Stack> stack, unsigned number) : m_stack(std::move(stack)), m_number(number) {}
  ~Sheet() override {
    if (const auto stack = m_stack.lock()) stack->end(m_number);
  }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

 private:
  std::weak_ptr<Stack> m_stack;
  unsigned m_number;
};

ProgressSheets::ProgressSheets(RunLoop& runLoop) : m_stack(std::make_shared<Stack>(runLoop)) {}

ProgressSheets::~ProgressSheets() = default;

std::unique_ptr<Presenter::Progress> ProgressSheets::begin(std::string_view message) {
  return std::make_unique<Sheet>(m_stack, m_stack->begin(message));
}

}  // namespace vorn

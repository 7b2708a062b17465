#include "platform/apple/ApplePresenter.h"

#import <Foundation/Foundation.h>

#include <memory>
#include <utility>

#include "platform/apple/Conversions.h"

// What we use of the host's classes. The plug-in is not linked with them.
@protocol vnHostImage
- (id)initWithContentsOfFile:(NSString*)path;
@end

@protocol vnHostSwitch
- (void)setTitle:(NSString*)title;
- (NSInteger)state;
@end

@protocol vnHostAlert
- (void)setMessageText:(NSString*)text;
- (void)setInformativeText:(NSString*)text;
- (void)setIcon:(id)image;
- (id)addButtonWithTitle:(NSString*)title;
- (void)setShowsSuppressionButton:(BOOL)shows;
- (id<vnHostSwitch>)suppressionButton;
- (NSInteger)runModal;
- (void)beginSheetModalForWindow:(id)window
                   modalDelegate:(id)delegate
                  didEndSelector:(SEL)selector
                     contextInfo:(void*)context;
@end

using Told = std::function<void(id<vnHostAlert> alert, NSInteger code)>;

// Hears how a sheet ended.
@interface vnSheetListener : NSObject {
 @public
  // A Told that is owned until it has been called.
  void* m_ended;
}
- (void)alertDidEnd:(id)alert returnCode:(NSInteger)code contextInfo:(void*)context;
@end

@implementation vnSheetListener
- (void)alertDidEnd:(id)alert returnCode:(NSInteger)code contextInfo:(void*)context {
  (void)context;
  const std::unique_ptr<Told> ended(static_cast<Told*>(std::exchange(m_ended, nullptr)));
  try {
    if (ended) (*ended)(alert, code);
  } catch (...) {
    // No exception of ours may enter the host.
  }
  [self autorelease];
}
@end

namespace vorn {

namespace {

constexpr NSInteger kFirstButton = 1000;
constexpr NSInteger kSwitchedOn = 1;

// An alert of this host holds no link that could be clicked.
std::string messageWithLink(const Presenter::Alert& alert) {
  if (!alert.link) return alert.message;
  return alert.message + "\n" + alert.link->text + ": " + alert.link->address;
}

// Not every toolkit's alert can have one; the question comes all the same then.
bool canHaveSwitch(id made, const Presenter::Alert& alert) {
  return !alert.notAgainSwitch.empty() && [made respondsToSelector:@selector(setShowsSuppressionButton:)];
}

id<vnHostAlert> makeAlert(const Presenter::Alert& alert, const std::string& resources) {
  id<vnHostAlert> made = [[[NSClassFromString(@"NSAlert") alloc] init] autorelease];
  [made setMessageText:foundationText(alert.title)];
  [made setInformativeText:foundationText(messageWithLink(alert))];
  for (const std::string& button : alert.buttons) [made addButtonWithTitle:foundationText(button)];
  if (!alert.icon.empty()) {
    const id unready = [NSClassFromString(@"NSImage") alloc];
    const id image = [[unready initWithContentsOfFile:foundationText(resources + "/" + alert.icon)] autorelease];
    if (image) [made setIcon:image];
  }
  if (canHaveSwitch(made, alert)) {
    [made setShowsSuppressionButton:YES];
    [[made suppressionButton] setTitle:foundationText(alert.notAgainSwitch)];
  }
  return made;
}

// A code that is no button's, as that of a dialog which was broken off, counts as the last one: nobody has agreed.
Presenter::Answer answerOf(id<vnHostAlert> shown, NSInteger code, const Presenter::Alert& alert) {
  const auto count = static_cast<NSInteger>(alert.buttons.size());
  NSInteger button = code - kFirstButton;
  if (button < 0 || button >= count) button = count > 0 ? count - 1 : 0;
  const bool notAgain = canHaveSwitch(shown, alert) && [[shown suppressionButton] state] == kSwitchedOn;
  return {static_cast<std::size_t>(button), notAgain};
}

}  // namespace

ApplePresenter::ApplePresenter(RunLoop& runLoop, std::string resources, std::unique_ptr<PanelDrawing> panels)
    : m_runLoop(runLoop), m_resources(std::move(resources)), m_sheets(runLoop), m_panels(std::move(panels)) {}

std::unique_ptr<Presenter::Panel> ApplePresenter::showPanel(const HostObject& window, std::string_view title,
                                                            const PanelLayout& layout, ControlSet& controls,
                                                            PanelInput used) {
  if (!m_panels) return nullptr;
  return m_panels->show(LiveObjects::instance().object(window), title, layout, controls, std::move(used));
}

void ApplePresenter::showAlert(const HostObject& window, const Alert& alert,
                               std::function<void(Answer)> answered) {
  if (!NSClassFromString(@"NSAlert")) return;
  const Told told = [=](id<vnHostAlert> shown, NSInteger code) {
    if (answered) answered(answerOf(shown, code, alert));
  };
  if (const id sheetWindow = LiveObjects::instance().object(window)) {
    // The listener lives until it has heard; a sheet whose window goes first is never heard of.
    vnSheetListener* listener = [[vnSheetListener alloc] init];
    listener->m_ended = std::make_unique<Told>(told).release();
    [makeAlert(alert, m_resources) beginSheetModalForWindow:sheetWindow
                                              modalDelegate:listener
                                             didEndSelector:@selector(alertDidEnd:returnCode:contextInfo:)
                                                contextInfo:nullptr];
    return;
  }
  // It waits for the answer, which the caller must not.
  const std::string resources = m_resources;
  m_runLoop.post([=] {
    const id<vnHostAlert> shown = makeAlert(alert, resources);
    told(shown, [shown runModal]);
  });
}

}  // namespace vorn

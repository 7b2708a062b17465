#include "tests/desktop/DrawnPanelProbe.h"

#include <map>

#include "platform/apple/Conversions.h"
#import "platform/apple/appkit/AppKitPanels.h"

namespace vorn {
namespace {

class Probe final : public DrawnPanelProbe {
 public:
  Probe(const PanelLayout& layout, ControlSet& controls, std::function<void(const std::string&)> used)
      : m_panel(AppKitPanels().show(nil, "Settings", layout, controls, std::move(used))) {}

  Seen look(const std::string& key) override {
    Seen seen;
    const ControlView* each = drawn().view(key);
    if (!each) return seen;
    NSView* view = each->view();
    seen.isDrawn = true;
    seen.isShown = ![view isHiddenOrHasHiddenAncestor] && [[view window] isVisible];
    seen.takesKeyboard = each->keyView() != nil;
    seen.label = each->spoken().label;
    seen.role = textFromFoundation(each->spoken().role);
    if (!seen.isShown) return seen;
    NSView* content = [[view window] contentView];
    const NSRect frame = [view convertRect:[view bounds] toView:content];
    seen.isCutOff = NSMinX(frame) < 0 || NSMaxX(frame) > [content bounds].size.width;
    for (const auto& [other, its] : m_frames) {
      if ([its.view superview] != [view superview]) continue;
      // The room that a control keeps beside and below itself may be shared.
      const NSRect both = NSIntersectionRect(NSInsetRect([its.view frame], 6, 1), NSInsetRect([view frame], 6, 1));
      if (!NSIsEmptyRect(both)) seen.liesOver = other;
    }
    m_frames[key] = {view};
    return seen;
  }

  void press(const std::string& key) override {
    [static_cast<NSButton*>(static_cast<id>(drawn().view(key)->view())) performClick:nil];
  }

 private:
  struct Placed {
    NSView* view;
  };
  const DrawnPanel& drawn() const { return static_cast<const DrawnPanel&>(*m_panel); }

  std::unique_ptr<Presenter::Panel> m_panel;
  std::map<std::string, Placed> m_frames;
};

}  // namespace

std::unique_ptr<DrawnPanelProbe> DrawnPanelProbe::draw(const PanelLayout& layout, ControlSet& controls,
                                                       std::function<void(const std::string& key)> used) {
  [[NSAutoreleasePool alloc] init];
  [NSApplication sharedApplication];
  return std::make_unique<Probe>(layout, controls, std::move(used));
}

}  // namespace vorn

#include "host/surface/BarView.h"

#include <map>

#include "host/proxies/HostViews.h"
#include "host/surface/OwnClass.h"
#include "host/surface/vnActionAdditionView.h"
#include "platform/Registry.h"

namespace vorn {

namespace {

struct BarsByView {
  // By the address alone: the view belongs to its superview and to its bar.
  std::map<std::uintptr_t, std::weak_ptr<vnActionAdditionView>> bars;
};

template <void (vnActionAdditionView::*Operation)()>
Value click(const HostObject& view, const Arguments&) {
  if (const auto bar = BarView::barOf(view)) (bar.get()->*Operation)();
  return {};
}

using Bar = vnActionAdditionView;

constexpr OwnMethod kBarMethods[] = {
    {"onClickAddVornMeeting:", "v@:@", click<&Bar::onClickAddVornMeeting>},
    {"onClickAddPACAccount1:", "v@:@", click<&Bar::onClickAddPACAccount1>},
    {"onClickAddPACAccount2:", "v@:@", click<&Bar::onClickAddPACAccount2>},
    {"onClickCancelVornMeeting:", "v@:@", click<&Bar::onClickCancelVornMeeting>},
    {"onClickChangeSettings:", "v@:@", click<&Bar::onClickChangeSettings>},
};

}  // namespace

HostObject BarView::make(const Rect& frame) {
  return makeInHost(ownClass(Bar::kViewClass, "NSView", kBarMethods), "initWithFrame:", {valueFromRect(frame)});
}

void BarView::connect(const HostObject& view, const std::shared_ptr<vnActionAdditionView>& bar) {
  auto& bars = Registry::shared<BarsByView>().bars;
  std::erase_if(bars, [](const auto& entry) { return entry.second.expired(); });
  bars[view.address()] = bar;
}

std::shared_ptr<vnActionAdditionView> BarView::barOf(const HostObject& view) {
  const auto& bars = Registry::shared<BarsByView>().bars;
  const auto found = bars.find(view.address());
  return found == bars.end() ? nullptr : found->second.lock();
}

}  // namespace vorn

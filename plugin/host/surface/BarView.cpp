#include "host/surface/BarView.h"

#include <map>

#include "host/surface/vnActionAdditionView.h"
#include "platform/ClassRuntime.h"
#include "platform/Registry.h"

namespace vorn {

namespace {

struct BarsByView {
  std::map<HostObject, std::weak_ptr<vnActionAdditionView>> bars;
};

struct BarMethod {
  const char* selector;
  const char* encoding;
  Value (*run)(vnActionAdditionView& bar);
};

constexpr BarMethod kMethods[] = {
    {"onClickAddVornMeeting:", "v@:@",
     [](vnActionAdditionView& bar) { return bar.onClickAddVornMeeting(), Value(); }},
    {"onClickCancelVornMeeting:", "v@:@",
     [](vnActionAdditionView& bar) { return bar.onClickCancelVornMeeting(), Value(); }},
    {"onClickChangeSettings:", "v@:@",
     [](vnActionAdditionView& bar) { return bar.onClickChangeSettings(), Value(); }},
    {"isAddButtonHidden", "B@:", [](vnActionAdditionView& bar) { return Value(bar.addButton().hidden); }},
    {"isCancelButtonHidden", "B@:", [](vnActionAdditionView& bar) { return Value(bar.cancelButton().hidden); }},
    {"isChangeButtonHidden", "B@:", [](vnActionAdditionView& bar) { return Value(bar.changeButton().hidden); }},
    {"isChangeButtonEnabled", "B@:", [](vnActionAdditionView& bar) { return Value(bar.changeButton().enabled); }},
};

// Absent when the bar has ended, and when it fails: the host must not see our exceptions.
Value answerOfBar(const HostObject& view, Value (*run)(vnActionAdditionView& bar)) {
  try {
    const auto& known = Registry::shared<BarsByView>().bars;
    const auto found = known.find(view);
    const auto held = found == known.end() ? nullptr : found->second.lock();
    return held ? run(*held) : Value();
  } catch (...) {
    return {};
  }
}

}  // namespace

void BarView::connect(const HostObject& view, const std::shared_ptr<vnActionAdditionView>& bar) {
  auto& bars = Registry::shared<BarsByView>().bars;
  std::erase_if(bars, [](const auto& entry) { return entry.second.expired(); });
  bars[view] = bar;
  ClassRuntime& runtime = *Registry::platform().classRuntime;
  const ClassRef viewClass = runtime.NSClassFromString(vnActionAdditionView::kViewClass);
  for (const BarMethod& method : kMethods) {
    // The class keeps the methods of the first bar; they find every later one.
    const auto implementation = [run = method.run](const HostObject& receiver, const Arguments&) {
      return answerOfBar(receiver, run);
    };
    runtime.class_addMethod(viewClass, method.selector, implementation, method.encoding);
  }
}

}  // namespace vorn

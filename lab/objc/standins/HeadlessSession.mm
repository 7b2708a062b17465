#include "lab/objc/standins/HeadlessSession.h"

#include "lab/objc/HostClasses.h"
#include "platform/apple/PanelDrawing.h"

namespace vornlab {

namespace {

// The panels of this process, which only one host is in.
vorn::PanelRecord& panelRecord() {
  static vorn::PanelRecord record;
  return record;
}

// Draws nothing, and remembers what it would have drawn.
class RecordedPanels final : public vorn::PanelDrawing {
 public:
  std::unique_ptr<vorn::Presenter::Panel> show(id window, std::string_view title, const vorn::PanelLayout& layout,
                                               vorn::ControlSet& controls,
                                               vorn::Presenter::PanelInput used) override {
    return panelRecord().show(vorn::HostObject(reinterpret_cast<std::uintptr_t>(window)), title, layout, controls,
                              std::move(used));
  }
};

}  // namespace

std::vector<std::string> HeadlessSession::alertMessages() const {
  std::vector<std::string> messages;
  for (const ShownAlert& alert : alertDesk().alerts) messages.push_back(alert.message);
  return messages;
}

void HeadlessSession::answerNext(vorn::Presenter::Answer answer) { alertDesk().answers.push_back(answer); }

bool HeadlessSession::showsProgress() const {
  const Pool pool;
  return [[NSApplication sharedApplication] modalWindow] != nil;
}

const vorn::PanelRecord& HeadlessSession::panels() const { return panelRecord(); }

}  // namespace vornlab

// By which the bundle finds out that this process draws panels itself.
extern "C" [[gnu::visibility("default")]] vorn::PanelDrawing* vornMakePanelDrawing() {
  return std::make_unique<vornlab::RecordedPanels>().release();
}

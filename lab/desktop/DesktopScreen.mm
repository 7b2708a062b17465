#import "lab/desktop/DesktopScreen.h"

#include <dlfcn.h>

#import "lab/desktop/DrawnControls.h"
#import "lab/desktop/Picture.h"
#import "lab/desktop/RealHand.h"
#import "lab/objc/HostClasses.h"
#include "lab/shell/LabError.h"

namespace vornlab {

DesktopScreen::DesktopScreen(std::filesystem::path drawing, std::filesystem::path pictures)
    : m_drawing(std::move(drawing)), m_pictures(std::move(pictures)), m_watch([[vnAlertWatch alloc] init]) {
  m_watch->m_desk = &m_desk;
  [m_watch begin];
}

DesktopScreen::~DesktopScreen() {
  [m_watch end];
  [m_watch release];
}

std::vector<std::string> DesktopScreen::alertMessages() const {
  if (!m_desk.trouble.empty()) throw LabError("the person cannot answer: " + m_desk.trouble);
  return m_desk.messages;
}

bool DesktopScreen::showsProgress() const {
  const Pool pool;
  NSWindow* shown = [NSApp modalWindow];
  return [shown isVisible] && [vnAlertWatch isTelling:shown];
}

const vorn::DrawnPanel* DesktopScreen::panelOn(const vorn::HostObject& window) const {
  // Nothing was drawn as long as the library is not there.
  void* loaded = dlopen(m_drawing.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NOLOAD);
  const auto panels = loaded ? reinterpret_cast<vorn::DrawnPanels>(dlsym(loaded, vorn::kDrawnPanels)) : nullptr;
  const vorn::DrawnPanel* found = nullptr;
  for (const vorn::DrawnPanel* each : panels ? *panels() : std::vector<vorn::DrawnPanel*>()) {
    if (reinterpret_cast<std::uintptr_t>(each->parent()) == window.address()) found = each;
  }
  if (loaded) dlclose(loaded);
  return found;
}

std::optional<vorn::Control> DesktopScreen::look(const vorn::HostObject& window, const std::string& key) const {
  const Pool pool;
  const vorn::DrawnPanel* panel = panelOn(window);
  return panel ? readDrawn(*panel, key) : std::nullopt;
}

vorn::ControlUse DesktopScreen::use(const vorn::HostObject& window, const std::string& key,
                                    const PanelDeed& deed) {
  const Pool pool;
  const vorn::DrawnPanel* panel = panelOn(window);
  return panel ? useDrawn(*panel, key, deed) : vorn::ControlUse::noPanel;
}

vorn::ControlUse DesktopScreen::scroll(const vorn::HostObject& window) {
  const Pool pool;
  const vorn::DrawnPanel* panel = panelOn(window);
  if (!panel) return vorn::ControlUse::noPanel;
  turnWheel(panel->page("")->window());
  return vorn::ControlUse::done;
}

void DesktopScreen::takePicture(const std::string& name) {
  const Pool pool;
  NSWindow* front = [NSApp modalWindow];
  if (!front) front = [NSApp keyWindow];
  if (!front) throw LabError("no window lies in front, of which a picture could be made");
  writePicture(front, m_pictures / (name + ".png"));
}

}  // namespace vornlab

// The library of the bundle that draws, in a host with a toolkit for it.

#include <memory>
#include <vector>

#import "platform/apple/appkit/AppKitPanels.h"

extern "C" [[gnu::visibility("default")]] vorn::PanelDrawing* vornMakePanelDrawing() {
  return std::make_unique<vorn::AppKitPanels>().release();
}

extern "C" [[gnu::visibility("default")]] const std::vector<vorn::DrawnPanel*>* vornDrawnPanels() {
  return &vorn::DrawnPanel::open();
}

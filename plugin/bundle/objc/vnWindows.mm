// The library of the bundle that draws, in a host with a toolkit for it.

#include <memory>

#import "platform/apple/appkit/AppKitPanels.h"

extern "C" [[gnu::visibility("default")]] vorn::PanelDrawing* vornMakePanelDrawing() {
  return std::make_unique<vorn::AppKitPanels>().release();
}

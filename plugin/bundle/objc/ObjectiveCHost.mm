#include "bundle/objc/ObjectiveCHost.h"

#import <Foundation/Foundation.h>
#include <dlfcn.h>
#include <unistd.h>

#include <memory>
#include <utility>

#include "bundle/PluginLoad.h"
#include "platform/apple/ApplePlatform.h"
#include "platform/apple/LiveObjects.h"
#include "platform/apple/Ownership.h"
#include "platform/apple/PanelDrawing.h"

namespace vorn {

namespace {

// The library that draws is linked with the toolkit. It is loaded when the first panel is wanted, for a runtime
// that is just loading this bundle cannot take in another one, and stays to the end of the process, as the bundle
// does.
class PanelsOfLibrary final : public PanelDrawing {
 public:
  explicit PanelsOfLibrary(std::string library) : m_library(std::move(library)) {}

  std::unique_ptr<Presenter::Panel> show(id window, std::string_view title, const PanelLayout& layout,
                                         ControlSet& controls, Presenter::PanelInput used) override {
    if (!m_drawing) m_drawing = load();
    return m_drawing ? m_drawing->show(window, title, layout, controls, std::move(used)) : nullptr;
  }

 private:
  std::unique_ptr<PanelDrawing> load() const {
    void* loaded = dlopen(m_library.c_str(), RTLD_NOW | RTLD_LOCAL);
    const auto make = loaded ? reinterpret_cast<MakePanelDrawing>(dlsym(loaded, kMakePanelDrawing)) : nullptr;
    return std::unique_ptr<PanelDrawing>(make ? make() : nullptr);
  }

  std::string m_library;
  std::unique_ptr<PanelDrawing> m_drawing;
};

// A host without a toolkit could not load it: a class that only draws tells which kind of host this is. One that
// takes the drawing upon itself, such as a host without a screen, has the library's function in its own program.
std::unique_ptr<PanelDrawing> panelDrawing(const std::string& resources) {
  const auto own = reinterpret_cast<MakePanelDrawing>(dlsym(RTLD_DEFAULT, kMakePanelDrawing));
  if (own) return std::unique_ptr<PanelDrawing>(own());
  const std::string library = resources + "/../Frameworks/vornPluginWindows";
  if (!NSClassFromString(@"NSGraphicsContext") || access(library.c_str(), R_OK) != 0) return nullptr;
  return std::make_unique<PanelsOfLibrary>(library);
}

}  // namespace

void loadIntoObjectiveCHost(const std::string& resources) {
  const AutoreleasePool pool;
  try {
    // Stays to the end of the process: the host's classes call us as long as they exist.
    ApplePlatform* platform = std::make_unique<ApplePlatform>(resources, panelDrawing(resources)).release();
    loadPlugin(platform->ports());
  } catch (...) {
    unloadPlugin();
  }
}

int answerInObjectiveCHost(const char* question, const Value* parameters, Value* answer) {
  const AutoreleasePool pool;
  Value met = Value::dictionary();
  for (const auto& [key, entry] : parameters ? parameters->entries() : Value::Dictionary()) {
    const id object = reinterpret_cast<id>(entry.object().address());
    // Only objects that this system has met are alive to it.
    met.set(key, object ? Value(LiveObjects::instance().reference(object, LiveObjects::Holding::never)) : entry);
  }
  return answerQuestion(question, &met, answer);
}

}  // namespace vorn

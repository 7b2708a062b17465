#include "platform/TracedAlert.h"

#include <utility>

#include "platform/Registry.h"
#include "platform/TraceStep.h"
#include "secrets/SecretMask.h"

namespace vorn {

void showTracedAlert(const HostObject& window, const Presenter::Alert& alert,
                     std::function<void(Presenter::Answer)> answered, std::optional<int> code) {
  traceStep("alert", [&] {
    Value facts = Value::dictionary();
    if (code) facts.set("code", *code);
    if (!alert.title.empty()) facts.set("title", SecretMask::covered(alert.title));
    facts.set("message", SecretMask::covered(alert.message));
    return facts;
  });
  if (Presenter* presenter = Registry::platform().presenter) {
    presenter->showAlert(window, alert, std::move(answered));
  }
}

}  // namespace vorn

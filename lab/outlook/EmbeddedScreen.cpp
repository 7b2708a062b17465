#include "lab/outlook/EmbeddedScreen.h"

namespace vornlab {

std::vector<std::string> EmbeddedScreen::alertMessages() const {
  std::vector<std::string> messages;
  for (const auto& shown : m_presenter.alerts()) {
    const vorn::Presenter::Alert& alert = shown.alert;
    const auto& link = alert.link;
    messages.push_back(alert.message + (link ? "\n" + link->text + ": " + link->address : ""));
  }
  return messages;
}

}  // namespace vornlab

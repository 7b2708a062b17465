#include "lab/host/RecordedScreen.h"

#include <functional>

#include "platform/controls/FieldKeys.h"

namespace vornlab {

namespace {

using vorn::Control;
using vorn::TokenText;

// What a field without tokens hears of a key; "" for one that means nothing there.
std::string_view commandOf(TokenText::Key key) {
  switch (key) {
    case TokenText::Key::up: return vorn::field_key::kUp;
    case TokenText::Key::down: return vorn::field_key::kDown;
    case TokenText::Key::newLine: return vorn::field_key::kReturn;
    case TokenText::Key::escape: return vorn::field_key::kEscape;
    default: return "";
  }
}

std::function<void(Control&)> changeOf(const PanelDeed& deed) {
  switch (deed.kind) {
    case PanelDeed::Kind::click: return nullptr;
    case PanelDeed::Kind::press: return [&deed](Control& control) { control.tokens.press(deed.key); };
    case PanelDeed::Kind::turn: return [&deed](Control& control) { control.on = deed.on; };
    case PanelDeed::Kind::write: return [&deed](Control& control) { control.text = deed.text; };
    case PanelDeed::Kind::choose: return [&deed](Control& control) { control.index = deed.index; };
    case PanelDeed::Kind::type: return [&deed](Control& control) { control.tokens.type(deed.text); };
    case PanelDeed::Kind::paste: return [&deed](Control& control) { control.tokens.paste(deed.text); };
  }
  return nullptr;
}

}  // namespace

std::optional<Control> RecordedScreen::look(const vorn::HostObject& window, const std::string& key) const {
  const vorn::ControlSet* controls = panels().on(window);
  const Control* control = controls ? controls->find(key) : nullptr;
  return control ? std::optional(*control) : std::nullopt;
}

vorn::ControlUse RecordedScreen::use(const vorn::HostObject& window, const std::string& key,
                                     const PanelDeed& deed) {
  const auto seen = look(window, key);
  if (deed.kind == PanelDeed::Kind::press && seen && seen->kind != Control::Kind::tokenField) {
    const std::string_view command = commandOf(deed.key);
    return command.empty() ? vorn::ControlUse::refused
                           : panels().use(window, key + ":" + std::string(command), nullptr);
  }
  return panels().use(window, key, changeOf(deed));
}

}  // namespace vornlab

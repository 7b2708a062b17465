// What a person may do in the settings panel, in any order, in the accounts that differ most: each act leaves a
// panel that can be drawn and used, and what it hands out can be sent.
//
// The input: a byte for the account and the meeting, then acts of a byte for what is done, one for the control,
// and what it takes.

#include <algorithm>

#include "fuzz/PanelWorld.h"
#include "platform/controls/FieldKeys.h"

namespace {

using vorn::Control;
using vorn::fuzzing::check;
using vorn::fuzzing::PanelWorld;

// The key is a copy: the act may end what it names.
void act(PanelWorld& world, vorn::fuzzing::Input& input) {
  const unsigned verb = input.byte() % 16;
  if (!world.shown()) return world.open();
  const std::vector<std::string>& keys = world.shown()->keys();
  const std::string key = keys[input.byte() % keys.size()];
  switch (verb) {
    case 0: return world.wait();
    case 1: return world.close();
    case 2: world.click("buttonContinue"); return;
    case 3: world.click("buttonCancel"); return;
    case 4: world.click(key); return;
    case 5: world.click(key, [](Control& control) { control.on = !control.on; }); return;
    case 6:
    case 7: {
      const int index = static_cast<std::int8_t>(input.byte());
      world.click(key, [index](Control& control) { control.index = index; });
      return;
    }
    case 8:
    case 9: {
      const std::string text = vorn::fuzzing::typedText(input.part());
      world.click(key, [&text](Control& control) {
        if (control.kind == Control::Kind::tokenField) {
          control.tokens.type(text);
        } else {
          control.text = text;
        }
      });
      return;
    }
    case 10: {
      const std::string text = vorn::fuzzing::typedText(input.part());
      world.click(key, [&text](Control& control) { control.tokens.paste(text); });
      return;
    }
    case 11: {
      const auto command = static_cast<vorn::TokenText::Key>(input.byte() % 11);
      world.click(key, [command](Control& control) { control.tokens.press(command); });
      return;
    }
    case 12: {
      const std::array commands{vorn::field_key::kReturn, vorn::field_key::kDown, vorn::field_key::kUp,
                                vorn::field_key::kEscape};
      world.click(key + ":" + std::string(commands.at(input.byte() % commands.size())));
      return;
    }
    case 13: {
      const auto& alerts = world.test.presenter.alerts();
      const unsigned answer = input.byte();
      if (alerts.empty()) return;
      const std::size_t button = answer / 2 % alerts.back().alert.buttons.size();
      world.test.presenter.answerAlert(alerts.size() - 1, {button, answer % 2 == 1});
      return;
    }
    case 14: world.test.runLoop.runFor(70); return;
    default: return world.wait();
  }
}

void checkControls(PanelWorld& world) {
  const vorn::ControlSet* controls = world.shown();
  if (!controls) return;
  std::ptrdiff_t focused = 0;
  for (const std::string& key : controls->keys()) {
    const Control& control = *controls->find(key);
    focused += control.isFocused ? 1 : 0;
    check(vorn::isValidUtf8(control.text), "what a control shows is text");
    const auto count = static_cast<int>(control.items.size());
    check(count == 0 || (control.index >= -1 && control.index < count), "what is chosen is among the items");
    check(!controls->isOnScreen(key) || control.enabled || !control.reason.empty(), "what is locked says why");
  }
  check(focused <= 1, "the keyboard is in one place");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vorn::fuzzing::Input input(data, std::min<std::size_t>(size, 400));
  const unsigned choice = input.byte();
  PanelWorld world(choice, choice % 8 >= 4);
  while (!input.isEmpty()) {
    act(world, input);
    checkControls(world);
  }
  world.wait();
  checkControls(world);
  if (world.shown()) {
    const vorn::PanelLayout layout = world.layout();
    std::size_t places = 0;
    forEachPlace(layout, [&](const vorn::PanelLayout::Place& place) {
      check(world.shown()->find(place.key) != nullptr, "what is laid out is there");
      ++places;
    });
    check(places == world.shown()->keys().size(), "each control has its place");
    const vorn::Value settings = world.settings();
    check(vorn::vStringUtils::toJSONString(settings).has_value(), "its settings can be sent");
  }
  return 0;
}

#include "lab/shell/scenario/PanelWords.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "util/Utf16.h"

namespace vornlab {
namespace {

using vorn::Control;
using DeedKind = PanelDeed::Kind;
using Kind = Control::Kind;

const char* inWords(bool value) { return value ? "yes" : "no"; }

HostScreen& screen(Stage& stage) { return stage.session().screen(); }

vorn::HostObject windowOf(Stage& stage) { return stage.host().window(stage.editor()); }

Control controlOf(Stage& stage, const std::string& key) {
  const vorn::HostObject window = windowOf(stage);
  if (!screen(stage).showsPanel(window)) throw Mismatch("an open settings panel", "none");
  const auto control = screen(stage).look(window, key);
  if (!control) throw Mismatch("a control " + key, "none in the panel");
  return *control;
}

// What nobody sees may have no kind yet, and its use tells that it is hidden.
void needKind(const Control& seen, const char* what, std::initializer_list<Kind> kinds) {
  if (seen.hidden || std::find(kinds.begin(), kinds.end(), seen.kind) != kinds.end()) return;
  throw Mismatch(what, seen.key);
}

void use(Stage& stage, const std::string& key, const PanelDeed& deed) {
  controlOf(stage, key);
  const vorn::ControlUse result = screen(stage).use(windowOf(stage), key, deed);
  if (result == vorn::ControlUse::hidden) throw Mismatch(key + " can be used", "it is hidden");
  if (result == vorn::ControlUse::disabled) throw Mismatch(key + " can be used", "it is disabled");
  if (result != vorn::ControlUse::done) throw Mismatch(key + " takes it", "it refuses it");
}

std::string chosenOf(const Control& control) {
  const auto index = static_cast<std::size_t>(control.index);
  return control.index >= 0 && index < control.items.size() ? control.items[index].title : "";
}

// The place of an item, by its number or by its words; absent for one that is not there.
std::optional<int> itemOf(const Control& control, const std::string& property, const std::string& value) {
  int index = -1;
  if (property == "index") {
    const auto end = value.data() + value.size();
    if (std::from_chars(value.data(), end, index).ptr != end) return std::nullopt;
  } else {
    const auto item = std::find_if(control.items.begin(), control.items.end(),
                                   [&](const vorn::ControlItem& each) { return each.title == value; });
    if (item != control.items.end()) index = static_cast<int>(item - control.items.begin());
  }
  const bool isThere = index >= 0 && static_cast<std::size_t>(index) < control.items.size();
  return isThere ? std::optional(index) : std::nullopt;
}

constexpr std::string_view kProperties[] = {"hidden",  "enabled", "on",      "text",   "index", "chosen",
                                            "toolTip", "spoken",  "focused", "border", "tokens"};

}  // namespace

std::optional<PanelProperty> PanelProperty::read(std::string_view text) {
  const std::size_t dot = text.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return std::nullopt;
  const std::string_view property = text.substr(dot + 1);
  if (std::find(std::begin(kProperties), std::end(kProperties), property) == std::end(kProperties)) {
    return std::nullopt;
  }
  return PanelProperty{std::string(text.substr(0, dot)), std::string(property)};
}

std::string PanelProperty::value(Stage& stage) const {
  const Control seen = controlOf(stage, control);
  if (property == "hidden") return inWords(seen.hidden);
  if (property == "enabled") return inWords(seen.enabled);
  if (property == "on") return inWords(seen.on);
  if (property == "text") return seen.text;
  if (property == "tokens") return seen.tokens.inWords();
  if (property == "toolTip") return seen.toolTip;
  if (property == "spoken") return seen.spoken;
  if (property == "focused") return inWords(seen.isFocused);
  if (property == "border") return seen.redBorderWidth > 0 ? "red" : "plain";
  return property == "index" ? std::to_string(seen.index) : chosenOf(seen);
}

void PanelProperty::set(Stage& stage, const std::string& value) const {
  PanelDeed deed;
  if (property == "on") {
    if (value != "yes" && value != "no") throw Mismatch(control + ".on is yes or no", value);
    const Control now = controlOf(stage, control);
    needKind(now, "a switch or a radio button", {Kind::checkBox, Kind::radioButton});
    if (value == "no" && now.kind == Kind::radioButton) {
      throw Mismatch("another choice of the group, for nobody takes one back", control + ".on no");
    }
    // Whoever wants it as it is presses nothing, yet it has to be there.
    if (now.on == (value == "yes") && now.enabled && !now.hidden) return;
    deed = {.kind = DeedKind::turn, .on = value == "yes"};
  } else if (property == "text") {
    needKind(controlOf(stage, control), "a field for a text", {Kind::textField, Kind::comboBox});
    deed = {.kind = DeedKind::write, .text = value};
  } else if (property == "index" || property == "chosen") {
    const Control now = controlOf(stage, control);
    needKind(now, "a control with items", {Kind::popup, Kind::comboBox, Kind::list, Kind::radioGroup});
    const auto item = itemOf(now, property, value);
    if (!item) throw Mismatch("an item " + value + " of " + control, "none");
    deed = {.kind = DeedKind::choose, .index = *item};
  } else {
    throw Mismatch("a property that a person can change", property);
  }
  use(stage, control, deed);
}

namespace {

void useTokens(Stage& stage, const std::string& control, const PanelDeed& deed) {
  needKind(controlOf(stage, control), "a field of tokens", {Kind::tokenField});
  use(stage, control, deed);
}

}  // namespace

void typeInPanel(Stage& stage, const std::string& control, const std::string& text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::string character = text.substr(at, vorn::utf8SequenceLength(text, at));
    useTokens(stage, control, {.kind = DeedKind::type, .text = character});
    at += character.size();
  }
}

void pasteInPanel(Stage& stage, const std::string& control, const std::string& text) {
  useTokens(stage, control, {.kind = DeedKind::paste, .text = text});
}

namespace {

struct PanelKey {
  std::string_view word;
  vorn::TokenText::Key key;
};
constexpr PanelKey kKeys[] = {
    {"up", vorn::TokenText::Key::up},          {"down", vorn::TokenText::Key::down},
    {"left", vorn::TokenText::Key::left},      {"right", vorn::TokenText::Key::right},
    {"return", vorn::TokenText::Key::newLine}, {"tab", vorn::TokenText::Key::tab},
    {"escape", vorn::TokenText::Key::escape},  {"delete", vorn::TokenText::Key::deleteBackward}};

const PanelKey* findKey(std::string_view word) {
  const auto* const found =
      std::find_if(std::begin(kKeys), std::end(kKeys), [&](const PanelKey& each) { return each.word == word; });
  return found == std::end(kKeys) ? nullptr : found;
}

}  // namespace

bool isPanelKey(std::string_view word) { return findKey(word) != nullptr; }

void pressInPanel(Stage& stage, const std::string& control, const std::string& word) {
  needKind(controlOf(stage, control), "a field", {Kind::textField, Kind::comboBox, Kind::tokenField});
  use(stage, control, {.kind = DeedKind::press, .key = findKey(word)->key});
}

void clickInPanel(Stage& stage, const std::string& control) {
  const Control now = controlOf(stage, control);
  needKind(now, "something that can be clicked", {Kind::button, Kind::link, Kind::checkBox, Kind::radioButton});
  if (now.kind == Kind::checkBox) return use(stage, control, {.kind = DeedKind::turn, .on = !now.on});
  if (now.kind == Kind::radioButton) return use(stage, control, {.kind = DeedKind::turn, .on = true});
  use(stage, control, {});
}

void scrollInPanel(Stage& stage) {
  if (screen(stage).scroll(windowOf(stage)) == vorn::ControlUse::noPanel) {
    throw Mismatch("an open settings panel", "none");
  }
}

}  // namespace vornlab

#include "lab/shell/panel/PanelTrial.h"

#include <algorithm>
#include <map>

#include "lab/shell/LabError.h"
#include "lab/shell/panel/PanelPrinter.h"
#include "secrets/SecretMask.h"
#include "util/Text.h"

namespace vornlab {
namespace {

using vorn::Control;
using vorn::PanelLayout;
using vorn::SecretMask;
using vorn::Value;
using Kind = vorn::Control::Kind;
using Verb = PanelAct::Verb;

// What ends the panel; nothing is committed here, and a panel that has gone shows nothing more.
constexpr std::string_view kEnds[] = {"buttonContinue", "buttonCancel"};
// Beside a value that is covered.
constexpr const char* kAnotherOne = "another one";

// A control's state as a person sees it, covered for the screen: what it is set to, its title and its items. And
// whole for comparing.
struct Seen {
  std::string shown;
  std::string whole;
  std::string title{};
  std::string items{};
};
using Picture = std::map<std::string, Seen>;

Seen seen(const PanelLayout::Place& place, const Control& control, bool isOnScreen) {
  if (!isOnScreen) {
    const std::string words = control.reason.empty() ? "hidden" : "hidden (" + control.reason + ")";
    return {words, "hidden"};
  }
  Seen result{shownValue(place, control), shownValue({place.key}, control) + control.text};
  if (!place.isSecret) result.title = "\"" + SecretMask::covered(control.text) + "\"";
  for (const auto& item : control.items) {
    result.whole += "\n" + item.title;
    result.items += "\n" + SecretMask::covered(item.title);
  }
  if (control.redBorderWidth > 0) result.shown += ", marked as wrong";
  const bool isClicked = control.kind == Kind::button || control.kind == Kind::link;
  if (!control.enabled) {
    const std::string lock = "locked" + (control.reason.empty() ? "" : " (" + control.reason + ")");
    result.shown = isClicked ? lock : result.shown + ", " + lock;
  }
  result.whole += result.shown;
  return result;
}

Picture pictureOf(const PanelWindow& panel) {
  const vorn::ControlSet& controls = panel.controls();
  Picture picture;
  forEachPlace(panel.layout(), [&](const PanelLayout::Place& place) {
    picture[place.key] = seen(place, *controls.find(place.key), controls.isOnScreen(place.key));
  });
  return picture;
}

// What changes is told by the first thing in which one sees it.
ControlChange changeBetween(const std::string& words, const std::string& key, const Seen& was, const Seen& is) {
  if (was.shown != is.shown) return {words, key, was.shown, is.shown};
  if (was.title != is.title) return {words, key, was.title, is.title};
  if (was.items != is.items) return {words, key, was.shown, was.shown + ", with other items"};
  return {words, key, was.shown, kAnotherOne};
}

std::vector<ControlChange> changesIn(const PanelWindow& panel, const Picture& before, const Picture& after) {
  static const Seen kNone{"not there", "hidden"};
  std::vector<ControlChange> changes;
  const auto compare = [&](const std::string& key, const std::string& words) {
    const auto old = before.find(key);
    const auto now = after.find(key);
    const Seen& was = old == before.end() ? kNone : old->second;
    const Seen& is = now == after.end() ? kNone : now->second;
    if (was.whole != is.whole) changes.push_back(changeBetween(words.empty() ? key : words, key, was, is));
  };
  forEachPlace(panel.layout(), [&](const PanelLayout::Place& place) {
    const Control* control = panel.controls().find(place.key);
    // A box is seen by what is in it.
    if (control->kind != Kind::box) compare(place.key, place.words);
  });
  for (const auto& [key, gone] : before) {
    if (!after.contains(key)) compare(key, "");
  }
  return changes;
}

// What the act makes of a control, or why the control does not take it.
struct Change {
  std::function<void(Control&)> make;
  std::string refusal;
};

Change clicked() {
  return {[](Control&) {}, ""};
}
Change turned(bool on) {
  return {[on](Control& control) { control.on = on; }, ""};
}
Change typed(const std::string& text) {
  return {[text](Control& control) { control.text = text; }, ""};
}
// In the place of all that the field holds.
Change pasted(const std::string& text) {
  const auto paste = [text](Control& control) {
    control.tokens.select({0, control.tokens.length()});
    control.tokens.paste(text);
  };
  return {paste, ""};
}
Change refused(std::string why) { return {nullptr, std::move(why)}; }

std::string titlesOf(const Control& control) {
  std::string titles;
  for (const auto& item : control.items) {
    if (item.enabled) titles += (titles.empty() ? "" : ", ") + SecretMask::covered(item.title);
  }
  return titles.empty() ? "it has none" : "it has: " + titles;
}

// The item with that title, or the only one that begins so.
Change chosen(const Control& control, const std::string& value) {
  const std::string wanted = vorn::caseFolded(value);
  std::vector<int> beginning;
  std::string titles;
  for (std::size_t i = 0; i < control.items.size(); ++i) {
    const std::string title = vorn::caseFolded(control.items[i].title);
    const auto choose = [i](Control& changed) { changed.index = static_cast<int>(i); };
    if (control.items[i].isSeparator) continue;
    if (title == wanted) return {choose, ""};
    if (!title.starts_with(wanted)) continue;
    beginning.push_back(static_cast<int>(i));
    titles += (titles.empty() ? "" : ", ") + SecretMask::covered(control.items[i].title);
  }
  if (beginning.size() > 1) return refused("several items begin with it: " + titles);
  if (beginning.size() != 1) return refused("no such item; " + titlesOf(control));
  return {[index = beginning.front()](Control& changed) { changed.index = index; }, ""};
}

[[noreturn]] void cannot(const PanelAct& act, const std::string& form) {
  throw UsageError("\"" + act.name + "\" takes " + form);
}

Change changeOf(const PanelAct& act, const Control& control) {
  std::string word = act.value;
  if (act.verb == Verb::on) word = "on";
  if (act.verb == Verb::off) word = "off";
  switch (control.kind) {
    case Kind::checkBox:
      if (word != "on" && word != "off") cannot(act, "on or off");
      return turned(word == "on");
    case Kind::radioButton:
      if (word == "off") return refused("it goes off when another choice goes on");
      if (word != "on") cannot(act, "on");
      return turned(true);
    case Kind::radioGroup:
    case Kind::list:
    case Kind::popup:
      if (act.verb == Verb::click) cannot(act, "= and one of its items");
      return chosen(control, word);
    case Kind::button:
    case Kind::link:
      if (act.verb != Verb::click) cannot(act, "click");
      return clicked();
    case Kind::window:
    case Kind::box:
    case Kind::label: cannot(act, "nothing: it is only looked at");
    default:
      if (act.verb != Verb::set) cannot(act, "= and a text");
      return control.kind == Kind::tokenField ? pasted(act.value) : typed(act.value);
  }
}

bool isSecret(const PanelLayout& layout, const std::string& key) {
  bool secret = false;
  forEachPlace(layout, [&](const PanelLayout::Place& place) { secret |= place.key == key && place.isSecret; });
  return secret;
}

TriedAct tryOne(PanelWindow& panel, PanelAct act) {
  const PanelLayout layout = panel.layout();
  const std::string key = keyOfName(act.name, layout, panel.controls());
  if (std::find(std::begin(kEnds), std::end(kEnds), key) != std::end(kEnds)) {
    throw UsageError("\"" + act.name + "\" would end the panel, and nothing is committed here");
  }
  const Control& control = *panel.controls().find(key);
  // The items of what nobody sees may not have been made.
  const bool isUsable = panel.controls().isOnScreen(key) && control.enabled;
  const std::string reason = control.reason;
  const Change change = isUsable ? changeOf(act, control) : clicked();
  const auto result = change.make ? panel.use(key, change.make) : PanelWindow::Use::refused;
  TriedAct tried{.key = key, .reason = isUsable ? "" : reason};
  act.value = isSecret(layout, key) ? std::string(SecretMask::kCover) : SecretMask::covered(act.value);
  tried.words = act.inWords();
  switch (result) {
    case PanelWindow::Use::done: tried.result = "done"; break;
    case PanelWindow::Use::hidden: tried.result = "hidden"; break;
    case PanelWindow::Use::disabled: tried.result = "locked"; break;
    default: tried.result = "refused"; break;
  }
  if (tried.result == "refused") tried.reason = change.make ? "it does not take this" : change.refusal;
  return tried;
}

std::map<std::string, const Value*> byKey(const Value& rows) {
  std::map<std::string, const Value*> all;
  for (const Value& row : rows.items()) all[row["key"].text()] = &row;
  return all;
}

std::string shownIn(const Value* row) { return row ? SecretMask::covered((*row)["shown"].text()) : "(not there)"; }

}  // namespace

bool Trial::isDone() const {
  return std::all_of(acts.begin(), acts.end(), [](const TriedAct& act) { return act.result == "done"; });
}

Trial tryInPanel(PanelWindow& panel, const std::vector<PanelAct>& acts) {
  Trial trial;
  const Picture before = pictureOf(panel);
  for (const PanelAct& act : acts) trial.acts.push_back(tryOne(panel, act));
  trial.changes = changesIn(panel, before, pictureOf(panel));
  return trial;
}

std::vector<WrittenSetting> differences(const PanelWindow::Settings& before, const PanelWindow::Settings& after) {
  std::vector<WrittenSetting> written;
  const auto old = byKey(before.rows);
  const auto now = byKey(after.rows);
  const auto compare = [&](const std::string& key, const Value& row) {
    if (before.raw[key] == after.raw[key]) return;
    const auto was = old.find(key);
    const auto is = now.find(key);
    const std::string shownBefore = shownIn(was == old.end() ? nullptr : was->second);
    const std::string shownNow = shownIn(is == now.end() ? nullptr : is->second);
    written.push_back({key, row["words"].text(), shownBefore, shownNow == shownBefore ? kAnotherOne : shownNow});
  };
  for (const Value& row : after.rows.items()) compare(row["key"].text(), row);
  for (const Value& row : before.rows.items()) {
    if (!now.contains(row["key"].text())) compare(row["key"].text(), row);
  }
  return written;
}

}  // namespace vornlab

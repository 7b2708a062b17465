#include "platform/controls/ControlSet.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vorn {

ControlSet::ControlSet() : m_self(std::make_shared<ControlSet*>(this)) {}

ControlSet::~ControlSet() { *m_self = nullptr; }

Control& ControlSet::add(Control::Kind kind, std::string key, std::string box) {
  const auto [entry, isNew] = m_controls.try_emplace(key);
  if (isNew) m_keys.push_back(key);
  entry->second.key = std::move(key);
  entry->second.kind = kind;
  entry->second.box = std::move(box);
  return entry->second;
}

void ControlSet::remove(std::string_view key) {
  const auto found = m_controls.find(key);
  if (found == m_controls.end()) return;
  // What is removed was mostly added late.
  m_keys.erase(std::next(std::find(m_keys.rbegin(), m_keys.rend(), key)).base());
  m_controls.erase(found);
}

Control* ControlSet::find(std::string_view key) {
  const auto found = m_controls.find(key);
  return found == m_controls.end() ? nullptr : &found->second;
}

const Control* ControlSet::find(std::string_view key) const {
  const auto found = m_controls.find(key);
  return found == m_controls.end() ? nullptr : &found->second;
}

bool ControlSet::isShown(std::string_view key) const {
  const Control* control = find(key);
  return control && !control->hidden;
}

bool ControlSet::isOn(std::string_view key) const {
  const Control* control = find(key);
  return control && control->on;
}

bool ControlSet::isShownAndOn(std::string_view key) const {
  const Control* control = find(key);
  return control && control->isShownAndOn();
}

bool ControlSet::isOnScreen(std::string_view key) const {
  const Control* control = find(key);
  while (control && !control->hidden) {
    if (control->box.empty()) return true;
    control = find(control->box);
  }
  return false;
}

std::string ControlSet::windowOf(std::string_view key) const {
  const Control* control = find(key);
  while (control && control->kind != Control::Kind::window) control = find(control->box);
  return control ? control->key : "";
}

void ControlSet::focusOn(std::string_view key) {
  for (auto& [each, control] : m_controls) control.isFocused = each == key;
}

ControlSet::Change::Change(ControlSet& controls) : m_controls(controls.m_self) { controls.begin(); }

ControlSet::Change::~Change() {
  if (*m_controls) (*m_controls)->end();
}

void ControlSet::begin() {
  if (m_depth++ == 0) m_before = m_controls;
}

void ControlSet::end() {
  if (m_depth == 1 && m_complete) m_complete();
  if (--m_depth > 0) return;
  const std::vector<std::string> changed = differences(std::exchange(m_before, {}));
  if (changed.empty()) return;
  // An observer may end its subscription, or the whole set, while it is told.
  const std::shared_ptr<ControlSet*> self = m_self;
  for (const std::weak_ptr<Observer>& known : std::vector(m_observers)) {
    const std::shared_ptr<Observer> observer = known.lock();
    if (observer) (*observer)(changed);
    if (!*self) return;
  }
}

std::vector<std::string> ControlSet::differences(const Controls& before) const {
  std::vector<std::string> changed;
  for (const std::string& key : m_keys) {
    const auto old = before.find(key);
    if (old == before.end() || old->second != m_controls.find(key)->second) changed.push_back(key);
  }
  for (const auto& [key, control] : before) {
    if (!m_controls.contains(key)) changed.push_back(key);
  }
  return changed;
}

std::shared_ptr<void> ControlSet::observe(Observer observer) {
  std::erase_if(m_observers, [](const auto& known) { return known.expired(); });
  auto held = std::make_shared<Observer>(std::move(observer));
  m_observers.push_back(held);
  return held;
}

}  // namespace vorn

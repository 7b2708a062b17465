#include "platform/controls/ControlSet.h"

#include <utility>

namespace vorn {

ControlSet::ControlSet() : m_self(std::make_shared<ControlSet*>(this)) {}

ControlSet::~ControlSet() { *m_self = nullptr; }

Control& ControlSet::add(Control::Kind kind, std::string key) {
  const auto [entry, isNew] = m_controls.try_emplace(key);
  if (isNew) m_keys.push_back(key);
  entry->second.key = std::move(key);
  entry->second.kind = kind;
  return entry->second;
}

Control* ControlSet::find(std::string_view key) {
  const auto found = m_controls.find(key);
  return found == m_controls.end() ? nullptr : &found->second;
}

const Control* ControlSet::find(std::string_view key) const {
  const auto found = m_controls.find(key);
  return found == m_controls.end() ? nullptr : &found->second;
}

ControlSet::Change::Change(ControlSet& controls) : m_controls(controls.m_self) { controls.begin(); }

ControlSet::Change::~Change() {
  if (*m_controls) (*m_controls)->end();
}

void ControlSet::begin() {
  if (m_depth++ == 0) m_before = m_controls;
}

void ControlSet::end() {
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
  return changed;
}

std::shared_ptr<void> ControlSet::observe(Observer observer) {
  std::erase_if(m_observers, [](const auto& known) { return known.expired(); });
  auto held = std::make_shared<Observer>(std::move(observer));
  m_observers.push_back(held);
  return held;
}

}  // namespace vorn

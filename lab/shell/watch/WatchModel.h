#pragma once

#include <deque>
#include <string>

#include "lab/shell/watch/WatchEvents.h"

namespace vornlab {

// What a watcher knows of a laboratory: the events that have come, put together.
class WatchModel {
 public:
  void take(const WatchEvent& event);

  const WatchLaboratory& laboratory() const { return m_laboratory; }
  const WatchWorld& world() const { return m_world; }
  const WatchState& state() const { return m_state; }
  // The oldest first. What is older than a screen can hold is forgotten.
  const std::deque<WatchStep>& steps() const { return m_steps; }
  const std::deque<WatchNotice>& notices() const { return m_notices; }
  // The moment of the last event.
  double at() const { return m_at; }
  bool hasEnded() const { return m_hasEnded; }

 private:
  void keep(const WatchLaboratory& laboratory);
  void keep(const WatchWorld& world);
  void keep(const WatchState& state) { m_state = state; }
  void keep(const WatchStep& step);
  void keep(const WatchNotice& notice);
  void keep(const WatchWorldEnd&) { m_state = {}; }
  void keep(const WatchEnd&) { m_hasEnded = true; }

  WatchLaboratory m_laboratory;
  WatchWorld m_world;
  WatchState m_state;
  std::deque<WatchStep> m_steps;
  std::deque<WatchNotice> m_notices;
  double m_at = 0;
  bool m_hasEnded = false;
};

}  // namespace vornlab

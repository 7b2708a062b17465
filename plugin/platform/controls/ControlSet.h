#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/Control.h"

namespace vorn {

// The controls of one window, by their keys, and who wants to know when they change.
//
// Whoever changes controls does so while a Change stands. Observers hear once, when the outermost Change has
// ended, of the controls that are not what they were when it began: never of a step that is half done, nor of one
// that leads back to where it began. What an observer changes is told of afterwards. Main thread only.
class ControlSet {
 public:
  // Adds a control; a key is added once. The reference holds as long as the set.
  Control& add(Control::Kind kind, std::string key);
  // Null for a key that was not added.
  Control* find(std::string_view key);
  const Control* find(std::string_view key) const;
  // The keys in the order in which they were added.
  const std::vector<std::string>& keys() const { return m_keys; }

  // Keeps the changes together that are made while it stands.
  class Change {
   public:
    explicit Change(ControlSet& controls);
    ~Change();
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;

   private:
    // The set may end while a change stands: what closes a window may be one of its own steps.
    std::shared_ptr<ControlSet*> m_controls;
  };

  // The keys of the controls that have changed, in the order of the set.
  using Observer = std::function<void(const std::vector<std::string>& keys)>;
  // The observer hears as long as the subscription lives.
  [[nodiscard]] std::shared_ptr<void> observe(Observer observer);

  ControlSet();
  ~ControlSet();
  ControlSet(const ControlSet&) = delete;
  ControlSet& operator=(const ControlSet&) = delete;

 private:
  using Controls = std::map<std::string, Control, std::less<>>;

  void begin();
  void end();
  std::vector<std::string> differences(const Controls& before) const;

  // Points to nothing when the set has ended.
  std::shared_ptr<ControlSet*> m_self;
  Controls m_controls;
  std::vector<std::string> m_keys;
  std::vector<std::weak_ptr<Observer>> m_observers;
  Controls m_before;
  int m_depth = 0;
};

}  // namespace vorn

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
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
  // Adds a control, in the box with that key or on the sheet itself; a key is added once. The reference holds
  // until the control is removed.
  Control& add(Control::Kind kind, std::string key, std::string box = {});
  // Nothing for a key that is not there. Observers are told of a control that has gone as of any other change.
  void remove(std::string_view key);
  // Null for a key that was not added.
  Control* find(std::string_view key);
  const Control* find(std::string_view key) const;
  // The keys in the order in which they were added.
  const std::vector<std::string>& keys() const { return m_keys; }

  // As the control's own state says; false for a key that was not added. These are what rules ask.
  bool isShown(std::string_view key) const;
  bool isOn(std::string_view key) const;
  bool isShownAndOn(std::string_view key) const;
  // What a person sees: a control of a hidden box is not on the screen, whatever its own state.
  bool isOnScreen(std::string_view key) const;
  // The key of the window that the control stands in; "" for the sheet.
  std::string windowOf(std::string_view key) const;

  // Gives the keyboard to the control, and to no other; a key that was not added takes it from all.
  void focusOn(std::string_view key);

  // Runs when the outermost Change ends, before anybody hears: what it changes belongs to the same change. Whoever
  // sets it outlives the set's changes.
  void completeWith(std::function<void()> complete) { m_complete = std::move(complete); }

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

  // The keys of the controls that have changed, in the order of the set, and then those of the ones that have
  // gone.
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
  std::function<void()> m_complete;
  std::vector<std::weak_ptr<Observer>> m_observers;
  Controls m_before;
  int m_depth = 0;
};

}  // namespace vorn

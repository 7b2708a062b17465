#pragma once

#include "util/Value.h"

namespace vorn {

// The main thread's dictionary: single-shot hand-overs from a toolbar command to the bar of an editor that does
// not exist yet. It works because everything stays on one thread. Whoever leaves something takes it back when the
// window that was to fetch it has not come.
class ThreadDictionary {
 public:
  static ThreadDictionary& sharedInstance();

  const Value& operator[](std::string_view key) const { return m_entries[key]; }
  void set(std::string_view key, const Value& value) { m_entries.set(key, value); }
  void remove(std::string_view key) { m_entries.erase(key); }

 private:
  Value m_entries = Value::dictionary();
};

}  // namespace vorn

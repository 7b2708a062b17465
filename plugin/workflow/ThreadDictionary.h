#pragma once

#include "util/Value.h"

namespace vorn {

// The main thread's dictionary: single-shot hand-overs from a toolbar command to the bar of an editor that does
// not exist yet. It works because everything stays on one thread.
class ThreadDictionary {
 public:
  static ThreadDictionary& sharedInstance();

  const Value& operator[](std::string_view key) const { return entries_[key]; }
  void set(std::string_view key, const Value& value) { entries_.set(key, value); }
  void remove(std::string_view key) { entries_.erase(key); }

 private:
  Value entries_ = Value::dictionary();
};

}  // namespace vorn

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// Pretty-prints one value as JSON. Any thread.
class JsonWriter {
 public:
  explicit JsonWriter(std::size_t deepestNesting) : m_deepestNesting(deepestNesting) {}

  // The text of the value; absent when JSON has no form for something in it. An absent value within an array or
  // a dictionary cannot be there and counts as such.
  OptionalText write(const Value& value);

 private:
  bool add(const Value& value);
  bool addReal(double number);
  bool addText(std::string_view text);
  bool addArray(const Value& value);
  bool addDictionary(const Value& value);
  void beginLine();

  std::size_t m_deepestNesting;
  std::size_t m_depth = 0;
  std::string m_out;
};

}  // namespace vorn

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "util/Value.h"

namespace vorn {

// Gathers the answer to a question in named groups of rows, in the order in which they are added.
//
// A group is a dictionary with "name" and "rows". A row has "key", its name for programs; "words", its name for
// people; "value", null when the thing is not there; "shown", the value in words; and "note", what else a person
// should know, absent when there is nothing. Main thread only.
class DiagnosisReport {
 public:
  void beginGroup(std::string_view name);
  // Without a text of its own a value is shown as textOf() gives it. Secrets are covered in all of it.
  void add(std::string_view key, std::string_view words, const Value& value, const OptionalText& shown = {},
           const OptionalText& note = {});

  Value groups() const;

  // A value as a person reads it: yes or no, a number or a text; a list by its texts or its length.
  static std::string textOf(const Value& value);

 private:
  struct Group {
    std::string name;
    Value::Array rows;
  };
  std::vector<Group> m_groups;
};

}  // namespace vorn

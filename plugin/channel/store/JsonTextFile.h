#pragma once

#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// A stored document: JSON in a property-list text file in the plug-in's folder.
//
// Main thread only. Read anew each time and written whole each time; no failure is reported.
class JsonTextFile {
 public:
  explicit JsonTextFile(std::string path) : m_path(std::move(path)) {}

  // The document. Absent when there is no file or it holds no text. A text that is no dictionary gives an empty
  // dictionary, so that the next write replaces the broken document.
  Value read() const;
  // Writes the whole document and makes the plug-in's folder when it is missing. What cannot be written as JSON
  // is not written.
  void write(const Value& document) const;
  // Sets one key and leaves the others as they stand.
  void setKey(std::string_view key, const Value& value) const;

 private:
  std::string m_path;
};

}  // namespace vorn

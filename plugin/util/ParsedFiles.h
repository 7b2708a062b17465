#pragma once

#include <sys/stat.h>

#include <list>
#include <string>

#include "util/Value.h"

namespace vorn {

// Files that are asked for again and again, such as the facts of the client's application.
//
// Each question goes to the disk: what was written just now is in the answer. A file is not read again while the
// system tells of no change since, and its value not made again while its bytes are the same. One thread at a
// time.
class ParsedFiles {
 public:
  // Makes a value of a file's bytes and of nothing else.
  using Parse = Value (*)(const std::string& content);

  explicit ParsedFiles(Parse parse) : m_parse(parse) {}

  // Absent when the file cannot be read.
  Value read(const std::string& path);

 private:
  struct Parsed {
    std::string path;
    // As it was before the bytes were read.
    struct stat facts {};
    bool isSettled = false;
    std::string content;
    Value value;
  };

  Value readAgain(Parsed& file, const struct stat& facts);

  Parse m_parse;
  // The one that was asked for last stands first.
  std::list<Parsed> m_known;
};

}  // namespace vorn

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "lab/client/Envelope.h"

namespace vornlab {

// A faults file that cannot be used. The message begins with the file's name and the line.
class FaultError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class FaultKind {
  delay,       // count: milliseconds
  split,       // positions
  splitEvery,  // count: bytes
  glue,
  truncate,  // count: bytes that are left
  notUtf8,
  error,    // text: what stands behind "0;Error "
  content,  // text: the whole content
  fields,   // count: fields of the content that are left
  grow,     // count: bytes that the content has at least
  twice,
  close,
  die,
  silent,
  restart,
};

struct Fault {
  FaultKind kind = FaultKind::silent;
  std::size_t count = 0;
  std::vector<std::size_t> positions;
  std::string text;
  std::string words;  // as the file has it, for the journal
};

// Which replies are spoilt, and how. The language is told in README.md.
class FaultBook {
 public:
  // Without rules: nothing is spoilt.
  FaultBook() = default;

  // Both throw FaultError; `name` stands for the file in its message.
  static FaultBook fromText(std::string_view text, const std::string& name);
  // The book goes on to follow the file: when another one has taken its place, its rules are those of the next
  // reply, and all counts begin anew. A new file that cannot be used is told on standard error, and the rules
  // stay.
  static FaultBook fromFile(const std::string& path);

  // Counts one reply to a request of this action and inner operation, and tells what happens to it.
  std::vector<Fault> next(std::uint32_t requestAction, std::uint32_t operation);

 private:
  struct Rule {
    std::optional<std::uint64_t> nth;  // nothing: every one
    std::optional<std::uint32_t> action;
    std::optional<std::uint32_t> operation;
    std::vector<Fault> faults;
    std::uint64_t seen = 0;
  };
  friend class FaultParser;

  // What tells one content of a file from another.
  struct FileState {
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t changedSeconds = 0;
    std::int64_t changedNanoseconds = 0;
    bool operator==(const FileState&) const = default;
  };

  static std::optional<FileState> stateOf(const std::string& path);
  void readAgainWhenChanged();

  std::vector<Rule> m_rules;
  std::string m_path;  // empty: no file is followed
  FileState m_state;
};

// What goes out for one reply, and what becomes of the connection.
struct Delivery {
  enum class End { none, close, die, restart };

  std::vector<std::string> pieces;  // each is sent when the one before has been taken
  std::size_t delayMilliseconds = 0;
  bool glue = false;    // held back and sent as one with the reply that follows
  End end = End::none;  // in place of the pieces
};

Delivery deliveryOf(Envelope reply, const std::vector<Fault>& faults);

}  // namespace vornlab

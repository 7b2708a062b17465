#pragma once

#include <cstdint>
#include <string>

#include "util/Value.h"

namespace vorn {

// Runs a command text with "/bin/sh -c". The text goes to the shell as it stands, so the caller quotes. Standard
// error is left alone. Any thread; both calls block. No caller here.
class vnShellCommand {
 public:
  // Standard output to its end; the exit is not waited for. Absent when nothing could be started and for output
  // that is not UTF-8.
  static OptionalText runAsCommand(const std::string& command);
  // The exit status after the end, or the number of the signal that ended the shell; -1 when it did not start.
  static std::int32_t runAsCommand_ret(const std::string& command);
};

}  // namespace vorn

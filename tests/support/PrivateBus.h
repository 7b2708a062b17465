#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/support/RunningProgram.h"
#include "tests/support/TemporaryFolder.h"

namespace vorn {

// A D-Bus session bus for one test: a process of its own, with its socket in a folder of its own.
class PrivateBus {
 public:
  // Starts dbus-daemon and waits until it answers.
  PrivateBus();

  // False where dbus-daemon is not installed.
  static bool isInstalled();

  // What a program finds the bus by; empty when it could not be started.
  const std::string& address() const { return m_address; }
  // Ends the bus as a crash does.
  void kill() { m_daemon.reset(); }
  // Runs one of the bus's own command-line tools against it and answers its exit code.
  int run(const std::string& tool, std::vector<std::string> arguments) const;

 private:
  vornlab::test::TemporaryFolder m_folder;
  std::optional<vornlab::test::RunningProgram> m_daemon;
  std::string m_address;
};

}  // namespace vorn

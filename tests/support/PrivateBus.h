#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace vorn {

// A D-Bus session bus for one test: a process of its own, with its socket in a folder of its own.
class PrivateBus {
 public:
  // Starts dbus-daemon and waits until it answers.
  PrivateBus();
  ~PrivateBus();
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  // False where dbus-daemon is not installed.
  static bool isInstalled();

  // What a program finds the bus by; empty when it could not be started.
  const std::string& address() const { return m_address; }
  // Ends the bus as a crash does.
  void kill();
  // Runs one of the bus's own command-line tools against it and answers its exit code.
  int run(const std::string& tool, std::vector<std::string> arguments) const;

 private:
  std::filesystem::path m_folder;
  std::string m_address;
  pid_t m_process = 0;
};

}  // namespace vorn

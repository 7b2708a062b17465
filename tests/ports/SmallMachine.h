#pragma once

#include <sys/types.h>

#include <string>

#include "tests/support/FakePorts.h"

namespace vorn {

// Folders, applications and processes for a world of ports. What it starts, it ends.
class SmallMachine {
 public:
  ~SmallMachine() { quit(); }

  std::string home() { return m_folders.homeDirectory(); }
  std::string resources() { return home() + "/Resources"; }
  std::string applications() { return m_folders.applicationsDirectory(); }
  std::string userApplications() { return m_folders.userApplicationsDirectory(); }

  std::string install(const std::string& name, const std::string& identifier);
  static std::string programOf(const std::string& bundle) { return bundle + "/Contents/MacOS/main"; }
  // Waits for a moment: a start takes its time.
  bool wasStarted(const std::string& bundle);
  void run(const std::string& bundle);
  void quit();
  void writeResource(const std::string& file, const std::string& content);

 private:
  TestSurroundings m_folders;
  pid_t m_process = 0;
};

}  // namespace vorn

#pragma once

#include <optional>
#include <string>

#include "tests/support/FakePorts.h"
#include "tests/support/RunningProgram.h"

namespace vorn {

// Folders, applications and processes for a world of ports. What it starts, it ends.
class SmallMachine {
 public:
  std::string home() { return m_folders.homeDirectory(); }
  std::string resources() { return home() + "/Resources"; }
  std::string applications() { return m_folders.applicationsDirectory(); }
  std::string userApplications() { return m_folders.userApplicationsDirectory(); }

  std::string install(const std::string& name, const std::string& identifier);
  static std::string programOf(const std::string& bundle) { return bundle + "/Contents/MacOS/main"; }
  // Waits for a moment: a start takes its time.
  bool wasStarted(const std::string& bundle);
  void run(const std::string& bundle);
  void quit() { m_running.reset(); }
  void writeResource(const std::string& file, const std::string& content);

 private:
  TestSurroundings m_folders;
  std::optional<vornlab::test::RunningProgram> m_running;
};

}  // namespace vorn

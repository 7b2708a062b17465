#include "tests/support/PrivateBus.h"

#include <unistd.h>

namespace vorn {

using vornlab::test::RunningProgram;

PrivateBus::PrivateBus() {
  const std::vector<std::string> arguments = {"--session", "--nofork", "--nopidfile", "--print-address=1",
                                              "--address=unix:path=" + std::string(m_folder / "bus")};
  m_address = m_daemon.emplace("dbus-daemon", arguments).line().value_or("");
}

bool PrivateBus::isInstalled() {
  for (const char* program : {"/usr/bin/dbus-daemon", "/usr/local/bin/dbus-daemon", "/bin/dbus-daemon"}) {
    if (::access(program, X_OK) == 0) return true;
  }
  return false;
}

int PrivateBus::run(const std::string& tool, std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(), "--bus=" + m_address);
  return RunningProgram(tool, arguments).wait().value_or(-1);
}

}  // namespace vorn

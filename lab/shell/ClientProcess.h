#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace vornlab {

// The stand-in client as a process of its own. Ends with this object.
class ClientProcess {
 public:
  ClientProcess() = default;
  ~ClientProcess();
  ClientProcess(const ClientProcess&) = delete;
  ClientProcess& operator=(const ClientProcess&) = delete;

  // Starts a program with its arguments and waits until it has printed a line, which is how it says that it
  // listens. What it writes to its error output goes to a file. Throws LabError, with the end of that file, when
  // it cannot be started, ends before its line, or says nothing within the seconds, and Interrupted when the
  // person wants the program to end.
  void start(const std::filesystem::path& program, const std::vector<std::string>& arguments,
             const std::filesystem::path& errorFile, double timeoutSeconds);

  bool isRunning();
  pid_t id() const { return m_id; }
  // Asks it to end, and ends it when it has not done so within five seconds. Nothing when none is running.
  void stop();

 private:
  void waitForLine(int output, double timeoutSeconds);
  // Ends one that does not listen. Throws Interrupted when the person wanted it so.
  void stopInVain();
  std::string lastErrors() const;
  bool hasEnded();

  pid_t m_id = 0;
  // The far end of its standard input, which closes with this process, however that ends.
  int m_lifeline = -1;
  std::filesystem::path m_errorFile;
};

}  // namespace vornlab

#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "platform/Workspace.h"
#include "util/ParsedFiles.h"
#include "util/PropertyList.h"

namespace vorn {

// Applications as bundle folders below one movable root, and processes as the system lists them.
//
// An application belongs to this session when its program lies below the root; a process runs it when the
// program of the process is the bundle's. The root "" or "/" is the whole machine.
class EmbeddedWorkspace final : public Workspace {
 public:
  // The folders in which an application is looked for by its identifier, in order.
  EmbeddedWorkspace(std::string root, std::vector<std::string> applicationFolders);

  bool isRunning(std::string_view bundleIdentifier) override;
  std::string absolutePathForAppBundle(std::string_view bundleIdentifier) override;
  bool isFilePackage(std::string_view path) override;
  std::string executablePath(std::string_view bundlePath) override;
  Value propertyListAtPath(std::string_view path) override;
  bool launch(std::string_view executablePath) override;
  bool openFolder(std::string_view path) override;
  bool openWebPage(std::string_view address) override;

 private:
  bool isBelowRoot(std::string_view path) const;
  // The process, by its folder, runs a program of such a bundle.
  bool runs(const std::string& processFolder, std::string_view bundleIdentifier);
  // Runs a program, by path or by a name to be looked for, with at most one argument.
  bool start(const std::string& program, const std::string& argument);
  void reapLaunched();

  std::string m_root;
  std::vector<std::string> m_applicationFolders;
  // Processes that were launched from here and have not been seen to end.
  std::vector<pid_t> m_launched;
  ParsedFiles m_propertyLists{&propertyListIn};
  // The folder of the process that was found running last; "" before any was.
  std::string m_lastSeen;
};

}  // namespace vorn

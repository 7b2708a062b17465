#pragma once

#include <string>
#include <vector>

#include "platform/Workspace.h"

namespace vorn {

// Applications as the host's own NSWorkspace knows them. That is reached by name: a process without it, or one
// that knows less or raises, finds applications as bundles in the folders for them, and starts programs as its
// children.
class AppleWorkspace final : public Workspace {
 public:
  // The folders in which an application that the host's workspace does not know is looked for, in order.
  explicit AppleWorkspace(std::vector<std::string> applicationFolders);

  bool isRunning(std::string_view bundleIdentifier) override;
  std::string absolutePathForAppBundle(std::string_view bundleIdentifier) override;
  bool isFilePackage(std::string_view path) override;
  std::string executablePath(std::string_view bundlePath) override;
  Value propertyListAtPath(std::string_view path) override;
  bool launch(std::string_view executablePath) override;
  bool openFolder(std::string_view path) override;
  bool openWebPage(std::string_view address) override;

 private:
  std::vector<std::string> m_applicationFolders;
};

}  // namespace vorn

#pragma once

#include <string>
#include <vector>

#include "platform/Workspace.h"

namespace vorn {

// Applications as bundles in the folders for applications.
class AppleWorkspace final : public Workspace {
 public:
  // The folders in which an application is looked for by its identifier, in order.
  explicit AppleWorkspace(std::vector<std::string> applicationFolders);

  bool isRunning(std::string_view bundleIdentifier) override;
  std::string absolutePathForAppBundle(std::string_view bundleIdentifier) override;
  bool isFilePackage(std::string_view path) override;
  std::string executablePath(std::string_view bundlePath) override;
  Value propertyListAtPath(std::string_view path) override;
  bool launch(std::string_view executablePath) override;
  bool openFolder(std::string_view path) override;

 private:
  std::vector<std::string> m_applicationFolders;
};

}  // namespace vorn

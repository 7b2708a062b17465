// The product's other pieces, and the host.

#include "channel/discovery/vnAppHelper.h"
#include "channel/discovery/vnClientConstants.h"
#include "channel/store/vnPathConstants.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

namespace vorn {

namespace {

std::string joined(std::string_view folder, std::string_view name) {
  return std::string(folder).append("/").append(name);
}

std::string homeDirectory() {
  Surroundings* surroundings = Registry::platform().surroundings;
  return surroundings ? surroundings->homeDirectory() : "";
}

}  // namespace

bool vnAppHelper::isOutlookInstalled() {
  Workspace* workspace = Registry::platform().workspace;
  return workspace && !workspace->absolutePathForAppBundle(keyOutlookIdentifier).empty();
}

bool vnAppHelper::isOutlookRunning() {
  Workspace* workspace = Registry::platform().workspace;
  return workspace && workspace->isRunning(keyOutlookIdentifier);
}

bool vnAppHelper::launchOutlookApp() {
  if (!isOutlookInstalled()) return false;
  Workspace& workspace = *Registry::platform().workspace;
  return workspace.launch(workspace.executablePath(workspace.absolutePathForAppBundle(keyOutlookIdentifier)));
}

std::string vnAppHelper::getOutlookSandboxContainerVornPluginPath() {
  return joined(joined(homeDirectory(), kPathOutlookSandboxContainerDocuments), kvnOutlookPluginFolder);
}

std::string vnAppHelper::getMicrosoftApplicationSupportVornPluginFolder() {
  return joined(kPathMicrosoftApplicationSupport, kvnOutlookPluginFolder);
}

std::string vnAppHelper::getVnPluginAgentPListUserPath() {
  return joined(joined(homeDirectory(), "Library/LaunchAgents"), kvnPluginAgentPList);
}

std::string vnAppHelper::getVnPluginVersion() {
  return objectForPropertyListKey("CFBundleShortVersionString", joined(kPathVnPluginAgent, "Contents/Info.plist"))
      .stringValue();
}

std::string vnAppHelper::getSystemLanguage() {
  UserDefaults* defaults = Registry::platform().userDefaults;
  return defaults ? defaults->objectForKey("AppleLanguages").at(0).text() : "";
}

}  // namespace vorn

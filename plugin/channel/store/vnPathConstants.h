#pragma once

// Where the pieces of this product lie, and what they are called.

#include <string_view>

namespace vorn {

inline constexpr std::string_view kvnOutlookPluginFolder = "VornOutlookPlugin";
inline constexpr std::string_view kvnSiteConfigFile = "vnConfig.txt";

// The host's sandbox, below the user's home folder.
inline constexpr std::string_view kPathOutlookSandboxContainer = "Library/Containers/com.microsoft.Outlook";
inline constexpr std::string_view kPathOutlookSandboxContainerDocuments =
    "Library/Containers/com.microsoft.Outlook/Data/Documents";
inline constexpr std::string_view kPathOutlookSandboxContainerLibrary =
    "Library/Containers/com.microsoft.Outlook/Data/Library";

// The installed pieces.
inline constexpr std::string_view kPathMicrosoftApplicationSupport = "/Library/Application Support/Microsoft";
inline constexpr std::string_view kvnOutlookPluginBundleName = "vOutlookPlugin.bundle";
inline constexpr std::string_view kvnUserSharedPath = "/Users/Shared";
inline constexpr std::string_view kPathVornOutlookPlugin = "/Users/Shared/VornOutlookPlugin";
inline constexpr std::string_view kPathVnPluginBundle = "/Users/Shared/VornOutlookPlugin/vOutlookPlugin.bundle";
inline constexpr std::string_view kPathVnPluginAgent =
    "/Library/Application Support/VornOutlookPlugin/vOutlookPluginAgent.app";
inline constexpr std::string_view kPathVnPluginSysApplicationSupport =
    "/Library/Application Support/VornOutlookPlugin";
inline constexpr std::string_view kPathVnPluginLauncher = "/Applications/VornOutlookPlugin/PluginLauncher.app";
inline constexpr std::string_view kPathVnPluginUninstall = "/Applications/VornOutlookPlugin/Uninstall.app";
inline constexpr std::string_view kPathVnPluginScriptAddition =
    "/Library/ScriptingAdditions/vOLPluginInjection.osax";

// The agent's property list among the user's launch agents.
inline constexpr std::string_view kvnPluginAgentPList = "com.vorn.vOutlookPluginAgent.plist";

// Names for a log; nothing writes one.
inline constexpr std::string_view kvnOLPluginLogFile = "VornOutlookPlugin.Log";
inline constexpr std::string_view kvnOLPluginAgentLogFile = "VornOutlookPluginAgent.Log";

}  // namespace vorn

#pragma once

// The vocabulary that this process shares with the client and with the agent.

#include <cstddef>
#include <string_view>

namespace vorn {

// The two members of an envelope.
inline constexpr std::string_view VN_IPC_ACTION_ID = "actionId";
inline constexpr std::string_view VN_IPC_CONTENT = "content";

// Distributed notifications that carry an envelope.
inline constexpr std::string_view kIPCNotifyOutlookPluginToVornClient = "VornOutlookPluginToVornVideoClient";
inline constexpr std::string_view kIPCNotifyVornClientToOutlookPlugin = "VornVideoClientToVornOutlookPlugin";
inline constexpr std::string_view VN_IPC_PLUGINAGENT_TO_OUTLOOKPLUGIN = "vOutlookPluginAgentToVOutlookPlugin";

// Distributed notifications to the agent, without payload.
inline constexpr std::string_view kIPCPluginGetClientVersion = "VornOutlookPlugin.GetClientVersion";
inline constexpr std::string_view kIPCPluginLaunchClient = "VornOutlookPlugin.LaunchClient";
inline constexpr std::string_view kIPCPluginOpenAboutDialog = "VornOutlookPlugin.OpenAboutDialog";

// Names of the other processes among themselves; this one neither posts nor observes them.
inline constexpr std::string_view VN_IPC_OUTLOOKPLUGIN_TO_PLUGINAGENT = "vOutlookPluginToVOutlookPluginAgent";
inline constexpr std::string_view kIPCNotifyVornClientToOutlookPluginAgent = "VornVideoClientToOutlookPluginAgent";

// Notifications within the process, posted for each message that came over the socket.
inline constexpr std::string_view NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGIN =
    "NotiHandleSocket_GetRequestDone_OLPlugin";
inline constexpr std::string_view NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGINAGENT =
    "NotiHandleSocket_GetRequestDone_OLPluginAgent";

// The action of a message in the agent's role.
inline constexpr int kIPCAgentAction = 200;

inline constexpr std::string_view kIPCPluginSocketName = "s.vop";
inline constexpr std::string_view TAG_MSG_HEAD_CONTENT = "\"content\"";
inline constexpr std::string_view TAG_MSG_TAIL_CONTENT = "\"actionId\"";

inline constexpr std::size_t kIPCLongestPathInCharacters = 103;  // UTF-16 units
inline constexpr std::size_t kIPCLongestPathInBytes = 104;
inline constexpr std::size_t kIPCReceiveBufferSize = 8192;
inline constexpr std::size_t kIPCSendBufferSize = 655350;

}  // namespace vorn

#include "channel/discovery/vnGetClientVersionHelper.h"

#include "channel/discovery/vnAppHelper.h"
#include "channel/store/JsonTextFile.h"
#include "channel/store/vnFileFunctions.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "channel/transport/vnIPCChannel.h"
#include "channel/transport/vnIPCConstants.h"
#include "platform/Registry.h"

namespace vorn {

vnGetClientVersionHelper& vnGetClientVersionHelper::sharedInstance() {
  return Registry::shared<vnGetClientVersionHelper>();
}

vnGetClientVersionHelper::vnGetClientVersionHelper() {
  const Platform& platform = Registry::platform();
  if (!vnIPCChannel::canUseIPC_Notification()) {
    if (!platform.notificationCenter) return;
    m_fromSocket = platform.notificationCenter->observe(NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGINAGENT,
                                                        [this](const NotificationCenter::Notification& posted) {
                                                          onMessageResponseFromPluginAgent(posted.userInfo);
                                                        });
  } else if (platform.distributedNotifications) {
    m_fromAgent = platform.distributedNotifications->observe(VN_IPC_PLUGINAGENT_TO_OUTLOOKPLUGIN,
                                                             [this](const Value& envelope) {
                                                               vnIPCChannel::traceReceived(envelope);
                                                               onMessageResponseFromPluginAgent(envelope);
                                                             });
  }
}

std::string vnGetClientVersionHelper::getVornClientVersion() {
  const std::string installed = vnGetFileVersion(vnAppHelper::sharedInstance().getVornClientInstallPath());
  if (!installed.empty()) return installed;
  return JsonTextFile(vnMeetingCommon::getLocalVnSiteConfigPath())
      .read()[vn_LocalProfile_VornClientVersion]
      .stringValue();
}

void vnGetClientVersionHelper::saveClientVersionToLocal(const OptionalText& version) {
  if (!version) return;
  JsonTextFile(vnMeetingCommon::getLocalVnSiteConfigPath()).setKey(vn_LocalProfile_VornClientVersion, version);
}

void vnGetClientVersionHelper::getClientVersion() {
  vnIPCChannel::sendIPCMessageWithoutData(kIPCPluginGetClientVersion);
}

void vnGetClientVersionHelper::onMessageResponseFromPluginAgent(const Value& envelope) {
  if (vnIPCChannel::actionOfEnvelope(envelope) != kIPCAgentAction) return;
  saveClientVersionToLocal(envelope[VN_IPC_CONTENT].optionalText());
}

}  // namespace vorn

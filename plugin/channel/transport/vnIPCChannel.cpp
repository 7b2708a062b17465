#include "channel/transport/vnIPCChannel.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <memory>
#include <string>
#include <tuple>

#include "channel/transport/vSocketClientImpl.h"
#include "channel/transport/vnIPCConstants.h"
#include "platform/DistributedNotifications.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "platform/Trace.h"
#include "secrets/CoveredLater.h"
#include "secrets/SecretMask.h"
#include "util/vStringUtils.h"

namespace vorn {

namespace {

bool sendOnTransportOfTheMoment(const Value& envelope) {
  if (!vnIPCChannel::canUseIPC_Notification()) {
    return vSocketClientImpl::shareInstance().send(vStringUtils::toJSONString(envelope));
  }
  DistributedNotifications* notifications = Registry::platform().distributedNotifications;
  if (!notifications) return false;
  notifications->post(kIPCNotifyOutlookPluginToVornClient, envelope);
  return true;
}

void traceEnvelope(std::string_view step, const Value& envelope) {
  Trace* trace = Registry::platform().trace;
  if (!trace) return;
  const CoveredLater content(envelope[VN_IPC_CONTENT].text());
  const Value facts =
      Value::dictionaryFromPairs({{"action", SecretMask::covered(envelope[VN_IPC_ACTION_ID].stringValue())},
                                  {"bytes", content.size()},
                                  {"content", content.head()}});
  trace->noteEnvelope(step, facts, content);
}

// Tells the trace of what comes over the notification channel.
class NotificationTrace {
 public:
  NotificationTrace()
      : m_subscription(Registry::platform().distributedNotifications->observe(
            kIPCNotifyVornClientToOutlookPlugin,
            [](const Value& envelope) { vnIPCChannel::traceReceived(envelope); })) {}

 private:
  std::unique_ptr<DistributedNotifications::Subscription> m_subscription;
};

}  // namespace

bool vnIPCChannel::canUseIPC_Notification() {
  Surroundings* surroundings = Registry::platform().surroundings;
  if (!surroundings) return false;
  const Surroundings::Version version = surroundings->systemVersion();
  return std::tie(version.major, version.minor) < std::tuple(10, 15);
}

void vnIPCChannel::initIPCChannel() {
  if (!canUseIPC_Notification()) vSocketClientImpl::shareInstance().connect();
}

void vnIPCChannel::releaseIPCChannel() {
  if (!canUseIPC_Notification()) vSocketClientImpl::shareInstance().disconnect();
}

bool vnIPCChannel::sendIPCMessageToVornClient(std::uint32_t action, const OptionalText& content) {
  const Value envelope =
      Value::dictionaryFromPairs({{VN_IPC_ACTION_ID, std::to_string(action)}, {VN_IPC_CONTENT, content}});
  const bool isSent = sendOnTransportOfTheMoment(envelope);
  traceEnvelope(isSent ? "sent" : "dropped", envelope);
  return isSent;
}

void vnIPCChannel::sendIPCMessageWithoutData(std::string_view notificationName) {
  if (DistributedNotifications* notifications = Registry::platform().distributedNotifications) {
    notifications->post(notificationName, {});
  }
}

int vnIPCChannel::actionOfEnvelope(const Value& envelope) {
  const std::string action = envelope[VN_IPC_ACTION_ID].stringValue();
  const char* const end = action.data() + action.size();
  std::int64_t number = 0;
  const auto [rest, error] = std::from_chars(action.data(), end, number);
  const bool isNumber = error == std::errc() && (rest == end || *rest == '.');
  if (!isNumber) return 0;
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<int>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

void vnIPCChannel::traceNotifications() {
  if (Registry::platform().distributedNotifications) Registry::shared<NotificationTrace>();
}

void vnIPCChannel::traceReceived(const Value& envelope) { traceEnvelope("received", envelope); }

}  // namespace vorn

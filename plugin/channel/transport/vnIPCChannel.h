#pragma once

#include <cstdint>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// The way to the client: chooses between the socket and the distributed notifications, and wraps what goes out.
//
// Class methods only, main thread only, no state: the system's version decides afresh at each call. Nothing here
// reports a failure to anybody; an answer that does not come is the commands' business.
class vnIPCChannel {
 public:
  // True on systems older than 10.15.0: envelopes then travel as distributed notifications.
  static bool canUseIPC_Notification();

  // Starts and ends the socket connection. Nothing happens on the notification channel.
  static void initIPCChannel();
  static void releaseIPCChannel();

  // Sends an envelope of the two. False when the message is known to have been dropped; the first message after
  // releaseIPCChannel() is one, since it only starts the reconnection.
  static bool sendIPCMessageToVornClient(std::uint32_t action, const OptionalText& content);
  // Posts a bare distributed notification, whichever channel is in use.
  static void sendIPCMessageWithoutData(std::string_view notificationName);

  // The action number of an envelope, as a number formatter reads it: 0 for anything but a number, cut to the
  // 32-bit range.
  static int actionOfEnvelope(const Value& envelope);

  // From now on the trace is told of what comes over the notification channel: once, however many ask for it and
  // observe that channel.
  static void traceNotifications();
  // Tells the trace of an envelope that came in.
  static void traceReceived(const Value& envelope);
};

}  // namespace vorn

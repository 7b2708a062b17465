#include "channel/transport/vSocketClientImpl.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <exception>
#include <functional>
#include <mutex>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include "channel/transport/MessageAssembler.h"
#include "channel/transport/SocketDescriptor.h"
#include "channel/transport/vnIPCChannel.h"
#include "channel/transport/vnIPCConstants.h"
#include "platform/NotificationCenter.h"
#include "platform/Registry.h"
#include "platform/RunLoop.h"
#include "platform/Surroundings.h"
#include "util/Utf16.h"
#include "util/tdm.h"
#include "util/vStringUtils.h"

namespace vorn {

namespace {

// In seconds. The main thread writes, and a client that has stopped reading must not stop the host with it. A
// socket may take as little as 8 KB at once: the rest is written in steps, between which the pause grows as long
// as nothing is read.
constexpr double kFlushPause = 0.02;
constexpr double kLongestFlushPause = 1;
constexpr std::string_view kFlush = "flush";
// For how long a client may read nothing of the rest that is written after the connection was given up.
constexpr double kLongestGoodbye = 60;
constexpr std::string_view kEnd = "end";

}  // namespace

// The descriptor of the moment. The lock keeps number and owner together; nobody waits while holding it.
class vSocketClientImpl::Connection {
 public:
  int fd() const { return m_fd; }

  // A new descriptor; null when one is held already, when none can be made, and after end().
  std::shared_ptr<SocketDescriptor> open() {
    const std::lock_guard lock(m_mutex);
    if (m_fd > 0 || m_ended) return nullptr;
    m_descriptor = SocketDescriptor::make();
    m_fd = m_descriptor ? m_descriptor->number() : -1;
    return m_descriptor;
  }

  std::shared_ptr<SocketDescriptor> held() const {
    const std::lock_guard lock(m_mutex);
    return m_descriptor;
  }

  void close() {
    const std::lock_guard lock(m_mutex);
    closeHeld();
  }
  // Lets go of the descriptor while there is still something to be written, which whoever writes goes on with.
  void giveUp() {
    const std::lock_guard lock(m_mutex);
    if (m_fd <= 0) return;
    m_descriptor->discardWhatComes();
    std::erase_if(m_givenUp, [](const auto& each) { return each.expired(); });
    m_givenUp.push_back(m_descriptor);
    m_descriptor.reset();
    m_fd = 0;
  }

  // Closes for good: a reader that begins only now finds nothing to open.
  void end() {
    const std::lock_guard lock(m_mutex);
    m_ended = true;
    closeHeld();
    for (const auto& each : m_givenUp) {
      if (const auto descriptor = each.lock()) descriptor->shutDown();
    }
  }

 private:
  void closeHeld() {
    if (m_fd <= 0) return;
    // Closing alone would leave the reader asleep.
    m_descriptor->shutDown();
    m_descriptor.reset();
    m_fd = 0;
  }

  mutable std::mutex m_mutex;
  std::shared_ptr<SocketDescriptor> m_descriptor;
  std::atomic<int> m_fd{0};
  // Those that are still written to.
  std::vector<std::weak_ptr<SocketDescriptor>> m_givenUp;
  bool m_ended = false;
};

namespace {

using OpenDescriptor = std::function<std::shared_ptr<SocketDescriptor>()>;
using Deliver = std::function<void(std::string message)>;

// The opening half. Whatever fails here leaves the descriptor open and unconnected: that is one of the states.
bool connectToClient(SocketDescriptor& descriptor, const std::string& home) {
  const std::string path = home + "/" + std::string(kIPCPluginSocketName);
  if (utf16Length(path) > kIPCLongestPathInCharacters) return false;
  return descriptor.connectTo(path);
}

void readMessages(SocketDescriptor& descriptor, const Deliver& deliver) {
  MessageAssembler assembler;
  std::array<char, kIPCReceiveBufferSize> buffer{};
  while (const std::size_t count = descriptor.read(buffer.data(), buffer.size() - 1)) {
    std::optional<std::string> message = assembler.feed({buffer.data(), count});
    // Passcodes pass through here.
    if (tdm::memset_s(buffer.data(), buffer.size(), 0, buffer.size()) != 0) return;
    if (message && !descriptor.isDiscarding()) deliver(std::move(*message));
  }
}

}  // namespace

// One connection's thread. It touches nothing of the client but through what it is given.
class SocketReader {
 public:
  SocketReader(OpenDescriptor open, std::string home, Deliver deliver)
      : m_thread([this, open = std::move(open), home = std::move(home), deliver = std::move(deliver)] {
          std::shared_ptr<SocketDescriptor> descriptor;
          try {
            descriptor = open();
            if (descriptor && connectToClient(*descriptor, home)) readMessages(*descriptor, deliver);
          } catch (const std::exception&) {
            // A message without an end may take all the memory there is. The host lives on, and the next request
            // finds the connection at its end.
            if (descriptor) descriptor->shutDown();
          }
          m_isDone = true;
        }) {}
  ~SocketReader() { m_thread.join(); }

  bool isDone() const { return m_isDone; }

 private:
  std::atomic<bool> m_isDone{false};
  std::thread m_thread;
};

vSocketClientImpl& vSocketClientImpl::shareInstance() { return Registry::shared<vSocketClientImpl>(); }

vSocketClientImpl::vSocketClientImpl()
    : m_connection(std::make_shared<Connection>()), m_self(std::make_shared<vSocketClientImpl*>(this)) {}

vSocketClientImpl::~vSocketClientImpl() {
  m_connection->end();
  m_readers.clear();
}

void vSocketClientImpl::connect() {
  const Platform& platform = Registry::platform();
  if (!platform.runLoop || !platform.surroundings) return;
  reapReaders();

  Deliver deliver = [runLoop = platform.runLoop, self = std::weak_ptr(m_self)](std::string message) {
    runLoop->post([self, message = std::move(message)] {
      if (const auto client = self.lock()) (*client)->handleSocketGetRequestDone_OLPlugin(message);
    });
  };
  try {
    m_readers.push_back(std::make_unique<SocketReader>([connection = m_connection] { return connection->open(); },
                                                       platform.surroundings->homeDirectory(),
                                                       std::move(deliver)));
  } catch (const std::system_error&) {
    // The system gives no thread at present. The next message tries again.
  }
}

void vSocketClientImpl::disconnect() {
  const auto descriptor = m_connection->held();
  if (!descriptor || descriptor->unsent() == 0) return m_connection->close();
  if (!Registry::platform().runLoop) return m_connection->close();
  // A request that was sent before is not cut.
  m_connection->giveUp();
  flushLater(descriptor, kFlushPause);
  endLater(descriptor);
}

void vSocketClientImpl::endLater(const std::shared_ptr<SocketDescriptor>& descriptor) {
  RunLoop* runLoop = Registry::platform().runLoop;
  runLoop->cancelPrevious(descriptor.get(), kEnd);
  runLoop->performAfter(kLongestGoodbye, descriptor.get(), kEnd, [held = std::weak_ptr(descriptor)] {
    if (const auto unread = held.lock()) unread->shutDown();
  });
}

bool vSocketClientImpl::send(const OptionalText& message) {
  if (fd() < 1) {
    // Nothing keeps the message: the first one after a disconnect() only brings the connection back.
    connect();
    return false;
  }
  if (!message || message->empty() || message->size() >= kIPCSendBufferSize) return false;
  // A peer that is gone stays unnoticed; the commands' timers deal with answers that do not come.
  const auto descriptor = m_connection->held();
  if (!descriptor) return true;
  const bool isTaken = descriptor->write(*message);
  if (descriptor->unsent() > 0) flushLater(descriptor, kFlushPause);
  return isTaken;
}

void vSocketClientImpl::flushLater(const std::shared_ptr<SocketDescriptor>& descriptor, double pause) {
  RunLoop* runLoop = Registry::platform().runLoop;
  if (!runLoop) return;
  runLoop->cancelPrevious(descriptor.get(), kFlush);
  runLoop->performAfter(pause, descriptor.get(), kFlush, [self = std::weak_ptr(m_self), descriptor, pause] {
    const auto client = self.lock();
    if (!client) return;
    const std::size_t before = descriptor->unsent();
    descriptor->flush();
    if (descriptor->unsent() == 0) {
      if (descriptor->isDiscarding()) descriptor->shutDown();
      return;
    }
    const bool isRead = descriptor->unsent() < before;
    if (isRead && descriptor->isDiscarding()) endLater(descriptor);
    (*client)->flushLater(descriptor, isRead ? kFlushPause : std::min(2 * pause, kLongestFlushPause));
  });
}

int vSocketClientImpl::fd() const { return m_connection->fd(); }

void vSocketClientImpl::handleSocketGetRequestDone_OLPlugin(const OptionalText& message) {
  if (!message || message->empty()) return;
  const Value parsed = vStringUtils::toArrayOrNSDictionary(message);
  if (!parsed[VN_IPC_ACTION_ID].isText() || !parsed[VN_IPC_CONTENT].isText()) return;

  Value envelope = Value::dictionaryFromPairs(
      {{VN_IPC_ACTION_ID, parsed[VN_IPC_ACTION_ID]}, {VN_IPC_CONTENT, parsed[VN_IPC_CONTENT]}});
  vnIPCChannel::traceReceived(envelope);
  if (!Registry::platform().notificationCenter) return;
  const bool isFromAgent = vnIPCChannel::actionOfEnvelope(envelope) == kIPCAgentAction;
  Registry::platform().notificationCenter->post(isFromAgent ? NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGINAGENT
                                                            : NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGIN,
                                                nullptr, std::move(envelope));
}

// Lets go of the threads that have ended by themselves.
void vSocketClientImpl::reapReaders() {
  std::erase_if(m_readers, [](const auto& reader) { return reader->isDone(); });
}

}  // namespace vorn

#include "platform/embedded/EmbeddedDistributedNotifications.h"

#include <poll.h>
#include <sdbus-c++/sdbus-c++.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <functional>
#include <map>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "platform/NotificationCenter.h"
#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr auto kPath = "/us/vorn/DistributedNotifications";
constexpr auto kInterface = "us.vorn.DistributedNotifications";
constexpr auto kSignal = "Posted";
// One rule for all names: names are free text, which a rule could hold only quoted, and the bus keeps the order of
// what one rule lets through.
constexpr auto kMatchRule =
    "type='signal',path='/us/vorn/DistributedNotifications',interface='us.vorn.DistributedNotifications',"
    "member='Posted'";

// A bus takes messages of 128 MiB at most, and some are set to 32; it throws out who sends a longer one.
constexpr std::size_t kMostBytes = std::size_t{31} << 20;
constexpr std::size_t kBytesPerEntry = 32;

using Texts = std::map<std::string, std::string>;

// The bus throws out whoever sends it anything else.
bool canTravel(std::string_view text) { return text.find('\0') == std::string_view::npos && isValidUtf8(text); }

Texts textsOf(const Value& userInfo) {
  Texts texts;
  for (const auto& [key, value] : userInfo.entries()) {
    if (value.isText() && canTravel(key) && canTravel(value.text())) texts.emplace(key, value.text());
  }
  return texts;
}

std::size_t sizeOf(const Texts& texts) {
  std::size_t size = 0;
  for (const auto& [key, text] : texts) size += key.size() + text.size() + kBytesPerEntry;
  return size;
}

Value dictionaryOf(Texts&& texts) {
  std::vector<Value::Dictionary::Entry> entries;
  entries.reserve(texts.size());
  for (auto& [key, text] : texts) entries.emplace_back(key, std::move(text));
  return Value::Dictionary(std::move(entries));
}

}  // namespace

// One connection and the thread that reads it.
//
// The library's own event loop is not used: it leaves the rest of a long message unsent until something comes in,
// and it ends the process when the bus goes away.
class EmbeddedDistributedNotifications::Bus {
 public:
  // Called on the reading thread.
  using Receiver = std::function<void(std::string name, Value userInfo)>;

  Bus(const std::string& address, Receiver receiver)
      : m_receiver(std::move(receiver)),
        m_connection(address.empty() ? sdbus::createSessionBusConnection()
                                     : sdbus::createSessionBusConnectionWithAddress(address)),
        m_sender(sdbus::createObject(*m_connection, kPath)),
        m_match(m_connection->addMatch(kMatchRule, [this](sdbus::Message& message) { receive(message); })),
        m_reader([this] { read(); }) {}

  ~Bus() {
    m_isOver = true;
    m_wakeUp.ring();
    m_reader.join();
  }
  Bus(const Bus&) = delete;
  Bus& operator=(const Bus&) = delete;

  void send(const std::string& name, bool hasUserInfo, const Texts& userInfo) {
    try {
      m_sender->emitSignal(kSignal).onInterface(kInterface).withArguments(name, hasUserInfo, userInfo);
      // The reading thread sends what the bus has not taken yet.
      m_wakeUp.ring();
    } catch (const std::exception&) {
      // No failure of a post is reported to anybody.
    }
  }

 private:
  // A counter of the system that makes poll() return.
  class WakeUp {
   public:
    WakeUp() : m_descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
      if (m_descriptor < 0) throw std::system_error(errno, std::generic_category());
    }
    ~WakeUp() { ::close(m_descriptor); }
    WakeUp(const WakeUp&) = delete;
    WakeUp& operator=(const WakeUp&) = delete;

    int descriptor() const { return m_descriptor; }
    void ring() const { ::eventfd_write(m_descriptor, 1); }
    void quieten() const {
      eventfd_t count = 0;
      ::eventfd_read(m_descriptor, &count);
    }

   private:
    int m_descriptor;
  };

  void read() {
    try {
      while (!m_isOver) {
        if (m_connection->processPendingRequest()) continue;
        const auto next = m_connection->getEventLoopPollData();
        std::array<pollfd, 2> waiting{{{next.fd, next.events, 0}, {m_wakeUp.descriptor(), POLLIN, 0}}};
        if (::poll(waiting.data(), waiting.size(), next.getPollTimeout()) < 0 && errno != EINTR) return;
        m_wakeUp.quieten();
      }
    } catch (const std::exception&) {
      // The bus has gone. Nothing comes any more.
    }
  }

  void receive(sdbus::Message& message) {
    try {
      std::string name;
      bool hasUserInfo = false;
      Texts texts;
      message >> name >> hasUserInfo >> texts;
      m_receiver(std::move(name), hasUserInfo ? dictionaryOf(std::move(texts)) : Value());
    } catch (const std::exception&) {
      // Somebody else's idea of the signal's arguments.
    }
  }

  const Receiver m_receiver;
  const WakeUp m_wakeUp;
  std::atomic<bool> m_isOver = false;
  const std::unique_ptr<sdbus::IConnection> m_connection;
  const std::unique_ptr<sdbus::IObject> m_sender;
  const sdbus::Slot m_match;
  std::thread m_reader;
};

// What the run loop's tasks hold on to. Main thread only.
struct EmbeddedDistributedNotifications::Deliveries {
  NotificationCenter observers;
  bool isOver = false;
};

std::unique_ptr<EmbeddedDistributedNotifications> EmbeddedDistributedNotifications::connect(
    RunLoop& runLoop, const std::string& address) {
  return connect([&runLoop](RunLoop::Task task) { runLoop.post(std::move(task)); }, address);
}

std::unique_ptr<EmbeddedDistributedNotifications> EmbeddedDistributedNotifications::connect(
    const Post& post, const std::string& address) {
  auto deliveries = std::make_shared<Deliveries>();
  const auto handOver = [post, weak = std::weak_ptr(deliveries)](std::string name, Value userInfo) {
    post([weak, name = std::move(name), userInfo = std::move(userInfo)] {
      if (const auto alive = weak.lock()) alive->observers.post(name, nullptr, userInfo);
    });
  };
  try {
    auto bus = std::make_unique<Bus>(address, handOver);
    return std::make_unique<EmbeddedDistributedNotifications>(std::move(deliveries), std::move(bus));
  } catch (const std::exception&) {
    return nullptr;
  }
}

EmbeddedDistributedNotifications::EmbeddedDistributedNotifications(std::shared_ptr<Deliveries> deliveries,
                                                                   std::unique_ptr<Bus> bus)
    : m_deliveries(std::move(deliveries)), m_bus(std::move(bus)) {}

EmbeddedDistributedNotifications::~EmbeddedDistributedNotifications() { m_deliveries->isOver = true; }

void EmbeddedDistributedNotifications::post(std::string_view name, const Value& userInfo) {
  if (!canTravel(name)) return;
  const Texts texts = textsOf(userInfo);
  if (name.size() + sizeOf(texts) > kMostBytes) return;
  m_bus->send(std::string(name), userInfo.isDictionary(), texts);
}

std::unique_ptr<DistributedNotifications::Subscription> EmbeddedDistributedNotifications::observe(
    std::string_view name, Handler handler) {
  class Registration final : public Subscription {
   public:
    explicit Registration(NotificationCenter::Subscription held) : m_held(std::move(held)) {}

   private:
    NotificationCenter::Subscription m_held;
  };

  // A handler may destroy this object while others of the same name are still to be called.
  const Deliveries* deliveries = m_deliveries.get();
  auto whileAlive = [deliveries, handler = std::move(handler)](const NotificationCenter::Notification& posted) {
    if (!deliveries->isOver) handler(posted.userInfo);
  };
  return std::make_unique<Registration>(m_deliveries->observers.observe(name, std::move(whileAlive)));
}

}  // namespace vorn

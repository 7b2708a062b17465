#include <fcntl.h>
#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <thread>

#include "channel/transport/vSocketClientImpl.h"
#include "channel/transport/vnIPCChannel.h"
#include "channel/transport/vnIPCConstants.h"
#include "platform/embedded/EmbeddedSurroundings.h"
#include "tests/support/TestPlatform.h"
#include "tests/transport/TestListener.h"

namespace vorn {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

std::size_t entriesIn(const char* folder) {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}
std::size_t openDescriptors() { return entriesIn("/proc/self/fd"); }
std::size_t threads() { return entriesIn("/proc/self/task"); }

class SocketClientTest : public ::testing::Test {
 protected:
  SocketClientTest() {
    for (const std::string_view name :
         {NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGIN, NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGINAGENT}) {
      m_subscriptions.push_back(
          m_world.notificationCenter.observe(name, [this](const NotificationCenter::Notification& posted) {
            m_received.emplace_back(posted.name, posted.userInfo);
          }));
    }
  }

  bool waitUntil(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(2);
    while (true) {
      m_world.runLoop.runDue();
      if (condition()) return true;
      if (std::chrono::steady_clock::now() > deadline) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

  std::string socketPath() { return m_world.surroundings.homeDirectory() + "/s.vop"; }
  vSocketClientImpl& client() { return vSocketClientImpl::shareInstance(); }

  // Contents of what has come in so far.
  std::vector<std::string> contents() const {
    std::vector<std::string> all;
    for (const auto& [name, envelope] : m_received) all.push_back(envelope[VN_IPC_CONTENT].text());
    return all;
  }

  TestDescriptor connected(TestListener& listener) {
    client().connect();
    TestDescriptor peer = listener.accept();
    EXPECT_TRUE(peer);
    return peer;
  }

  TestPlatform m_world;
  std::vector<std::pair<std::string, Value>> m_received;
  std::vector<NotificationCenter::Subscription> m_subscriptions;
};

TEST_F(SocketClientTest, ShowsEveryStateByItsDescriptorAndNoticesNoFailure) {
  EXPECT_EQ(client().fd(), 0) << "fresh";
  client().disconnect();
  EXPECT_EQ(client().fd(), 0);

  // A sanitizer starts a thread of its own with the first one.
  std::thread([] {}).join();
  const std::size_t threadsBefore = threads();
  EXPECT_FALSE(client().send("lost")) << "the first message only starts the connection";
  // The reader has its descriptor a moment before it looks for the listener, and then ends.
  ASSERT_TRUE(waitUntil([&] { return client().fd() > 0 && threads() == threadsBefore; }))
      << "no listener: a descriptor, not connected";
  EXPECT_TRUE(client().send("into nothing"));
  EXPECT_GT(client().fd(), 0);

  TestListener listener(socketPath());
  client().connect();
  EXPECT_FALSE(listener.accept(100)) << "a descriptor is held, so nobody connects again";

  client().disconnect();
  EXPECT_EQ(client().fd(), 0);
  EXPECT_FALSE(client().send("lost"));
  TestDescriptor peer = listener.accept();
  ASSERT_TRUE(peer);
  EXPECT_TRUE(client().send("told"));
  EXPECT_EQ(TestListener::read(peer, 4), "told");

  peer.close();
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(client().send("to a lost peer"));
  EXPECT_GT(client().fd(), 0);
}

// A host may have closed its standard input and output, which makes their numbers free.
TEST_F(SocketClientTest, TakesNoDescriptorThatWouldPassForNoneOrForAStandardOne) {
  TestListener listener(socketPath());
  const TestDescriptor keptInput(::dup(STDIN_FILENO));
  ::close(STDIN_FILENO);
  client().connect();
  EXPECT_TRUE(waitUntil([&] { return client().fd() > STDERR_FILENO; })) << client().fd();
  ::dup2(keptInput.number(), STDIN_FILENO);
  EXPECT_EQ(::fcntl(client().fd(), F_GETFD), FD_CLOEXEC);
  const TestDescriptor peer = listener.accept();
  EXPECT_TRUE(client().send("told"));
  EXPECT_EQ(TestListener::read(peer, 4), "told");
}

// Also to a client that reads late, as one that wakes from the system's sleep: a request that was cut short would
// take the next one with it. The connection may be given up meanwhile.
TEST_F(SocketClientTest, SendsWholeMessagesUpToItsLimit) {
  TestListener listener(socketPath());
  for (const bool isGivenUp : {false, true}) {
    client().disconnect();
    const TestDescriptor peer = connected(listener);
    EXPECT_FALSE(client().send(std::nullopt));
    EXPECT_FALSE(client().send(""));
    EXPECT_FALSE(client().send(std::string(655350, 'x')));
    EXPECT_FALSE(client().send(std::string(2'000'000, 'x')));

    std::string sent;
    for (const char letter : {'a', 'b', 'c'}) {
      sent += std::string(655349, letter);
      EXPECT_TRUE(client().send(std::string(655349, letter)));
    }
    if (isGivenUp) client().disconnect();
    EXPECT_EQ(client().fd() == 0, isGivenUp);
    std::string read = TestListener::read(peer, 1);
    EXPECT_EQ(::send(peer.number(), "x", 1, MSG_NOSIGNAL), 1) << "the client may answer meanwhile";
    ASSERT_TRUE(waitUntil([&] {
      m_world.runLoop.runFor(2);
      read += TestListener::read(peer, 1);
      return read.size() >= sent.size();
    }));
    EXPECT_TRUE(read == sent) << "and nothing of the refused ones before it";
  }
}

TEST_F(SocketClientTest, EndsForAPeerThatReadsNothingOfTheRest) {
  TestListener listener(socketPath());
  const TestDescriptor peer = connected(listener);
  const std::string message(655349, 'x');
  EXPECT_TRUE(client().send(message));
  client().disconnect();
  m_world.runLoop.runFor(70);
  EXPECT_LT(TestListener::read(peer, message.size()).size(), message.size());
}

TEST_F(SocketClientTest, RefusesMessagesForAPeerThatHasLeftMegabytesUnread) {
  TestListener listener(socketPath());
  const TestDescriptor peer = connected(listener);
  int taken = 0;
  while (taken < 100 && client().send(std::string(655349, 'x'))) ++taken;
  EXPECT_GT(taken, 2);
  EXPECT_LT(taken, 100);
}

TEST_F(SocketClientTest, DeliversRepliesOnTheMainThreadUnderTheNameOfTheirRole) {
  TestListener listener(socketPath());
  const TestDescriptor peer = connected(listener);
  TestListener::write(peer, R"({"actionId":"4","content":"a"})");
  ASSERT_TRUE(waitUntil([&] { return m_received.size() == 1; }));
  TestListener::write(peer, R"({"content":"5.1.0","actionId":"200","extra":"dropped"})");
  ASSERT_TRUE(waitUntil([&] { return m_received.size() == 2; }));
  const std::string reply = R"({"actionId":"many","content":")" + std::string(20000, 'x') + "\"}";
  for (std::size_t at = 0; at < reply.size(); at += 3001) {
    TestListener::write(peer, std::string_view(reply).substr(at, 3001));
  }
  ASSERT_TRUE(waitUntil([&] { return m_received.size() == 3; }));

  EXPECT_EQ(m_received[0].first, NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGIN);
  EXPECT_EQ(m_received[1].first, NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGINAGENT);
  EXPECT_EQ(m_received[2].first, NOTI_HANDLE_SOCKET_GET_REQUEST_DONE_OLPLUGIN);
  EXPECT_EQ(contents()[2], std::string(20000, 'x')) << "gathered from its pieces";
  EXPECT_EQ(m_received[1].second,
            Value::dictionaryFromPairs({{VN_IPC_ACTION_ID, "200"}, {VN_IPC_CONTENT, "5.1.0"}}));
}

TEST_F(SocketClientTest, DropsWhatIsNoEnvelopeAndGoesOn) {
  for (const char* dropped : {"", "{}", "[1]", "7", "no json", R"({"content":"x"})", R"({"actionId":"4"})",
                              R"({"actionId":"4","content":null})", R"({"actionId":{},"content":"x"})"}) {
    client().handleSocketGetRequestDone_OLPlugin(dropped);
  }
  client().handleSocketGetRequestDone_OLPlugin(std::nullopt);
  EXPECT_THAT(m_received, IsEmpty());

  TestListener listener(socketPath());
  const TestDescriptor peer = connected(listener);
  const std::string good = R"({"actionId":"4","content":"good"})";
  // Two in one read are no JSON, and both are lost. Only a message behind a gap in time is safe.
  TestListener::write(peer, good + good);
  const TestDescriptor second = [&] {
    client().disconnect();
    return connected(listener);
  }();
  TestListener::write(second, good);
  ASSERT_TRUE(waitUntil([&] { return !m_received.empty(); }));
  EXPECT_THAT(contents(), ElementsAre("good"));
}

TEST_F(SocketClientTest, AcceptsPathsUpToTheLimitsOfTheSystem) {
  // The name of the socket adds six characters. A wide home has fewer characters than bytes: it passes the limit
  // on characters and is cut at 104 bytes, and the listener waits at the cut path.
  const struct {
    const char* name;
    std::size_t homeBytes;
    bool isWide, connects;
  } cases[] = {{"103 in all", 97, false, true},
               {"104 in all", 98, false, false},
               {"107 in all", 101, false, false},
               {"104 bytes, fewer characters", 98, true, true},
               {"107 bytes, cut inside the name", 101, true, true}};
  for (const auto& one : cases) {
    const fs::path root = fs::temp_directory_path() / ("vp" + std::to_string(::getpid()));
    std::string home = root.string() + (one.isWide ? "/öööööööö" : "/");
    ASSERT_LT(home.size(), one.homeBytes);
    home.append(one.homeBytes - home.size(), 'h');
    fs::create_directories(home);
    EmbeddedSurroundings surroundings({.home = home});
    m_world.platform().surroundings = &surroundings;
    m_world.restart();

    TestListener listener((home + "/s.vop").substr(0, 104));
    ASSERT_TRUE(listener.isReady()) << one.name;
    client().connect();
    ASSERT_TRUE(waitUntil([&] { return client().fd() > 0; })) << one.name;
    EXPECT_EQ(static_cast<bool>(listener.accept(one.connects ? TestListener::kPatience : 200)), one.connects)
        << one.name;

    fs::remove_all(root);
    m_world.platform().surroundings = &m_world.surroundings;
    m_world.restart();
  }
}

TEST_F(SocketClientTest, LeavesNoDescriptorAndNoThreadBehind) {
  TestListener listener(socketPath());
  const std::size_t before = openDescriptors();
  for (int i = 0; i < 20; ++i) {
    {
      const TestDescriptor peer = connected(listener);
      EXPECT_TRUE(client().send("x"));
    }
    client().disconnect();
  }
  EXPECT_TRUE(waitUntil([&] { return openDescriptors() == before; })) << openDescriptors() << " after " << before;
}

TEST_F(SocketClientTest, EndsWithReadersAtWorkAndMessagesUndelivered) {
  TestListener listener(socketPath());
  TestDescriptor peer = connected(listener);
  TestListener::write(peer, R"({"actionId":"4","content":"late"})");
  ASSERT_TRUE(waitUntil([&] { return !m_received.empty() || m_world.runLoop.waiting() > 0; }));
  TestListener::write(peer, R"({"actionId":"4","content":"later"})");
  client().connect();
  m_world.restart();
  m_world.runLoop.runDue();
  EXPECT_LE(m_received.size(), 1u);
}

TEST_F(SocketClientTest, WaitsForAListenerWithAFullQueueButEndsWhenTold) {
  TestListener listener(socketPath(), 0);
  client().connect();
  ASSERT_TRUE(waitUntil([&] { return client().fd() > 0; }));
  for (int i = 0; i < 5; ++i) {
    client().disconnect();
    client().connect();
    ASSERT_TRUE(waitUntil([&] { return client().fd() > 0; }));
  }
  const auto begin = std::chrono::steady_clock::now();
  m_world.restart();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(60));
}

TEST_F(SocketClientTest, TellsTheTraceOfEnvelopesInBothDirectionsCovered) {
  TestListener listener(socketPath());
  vnIPCChannel::sendIPCMessageToVornClient(6, "6");
  const TestDescriptor peer = listener.accept();
  ASSERT_TRUE(peer);
  vnIPCChannel::sendIPCMessageToVornClient(3, R"({"meetingPassword":"geheim"})");
  const std::string sent = TestListener::read(peer, 20);
  EXPECT_THAT(sent, HasSubstr(R"("actionId")"));
  EXPECT_THAT(sent, HasSubstr(R"(\"geheim\")")) << "the client gets it as it is";
  TestListener::write(peer, R"({"actionId":"4","content":"Kenncode: 99 a@b"})");
  ASSERT_TRUE(waitUntil([&] { return !m_received.empty(); }));

  ASSERT_EQ(m_world.trace.steps.size(), 3u) << "the first only starts the connection";
  EXPECT_EQ(m_world.trace.steps[1].facts["content"].text(), R"({"meetingPassword":"******"})");
  EXPECT_EQ(m_world.trace.steps[2].facts["content"].text(), "Kenncode: ****** ******");
}

}  // namespace
}  // namespace vorn

// What a client must not be able to do to the host with a reply. Everything goes over the real socket.

#include <gtest/gtest.h>
#include <linux/sockios.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "lab/client/MessageScanner.h"
#include "tests/road/world/RoadWorld.h"
#include "tests/support/ContentFields.h"
#include "tests/transport/TestListener.h"
#include "util/EncodeUtils.h"

namespace vorn {
namespace {

namespace action = vornlab::action;

constexpr std::size_t kHuge = 10'000'000;

// What becomes of a reply: the bytes that go over the socket instead.
using Spoiling = std::function<std::string(const vornlab::Envelope& reply)>;

std::string withContent(const vornlab::Envelope& reply, const std::string& content) {
  return vornlab::toText({reply.action, content});
}

// The bytes 0 to 255 in turn.
std::string binary(std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(i);
  return bytes;
}

std::string joined(const std::vector<std::string>& fields) {
  std::string content = fields.front();
  for (std::size_t i = 1; i < fields.size(); ++i) content += ";" + fields[i];
  return content;
}

// A person at an editor, and a client at the other end of the socket that spoils the replies to one request.
class SpoiledRoad {
 public:
  SpoiledRoad(std::uint32_t spoiled, Spoiling spoiling) : m_spoiled(spoiled), m_spoiling(std::move(spoiling)) {
    m_peer = m_listener->accept();
    EXPECT_TRUE(m_peer);
  }

  // Goes as far as a spoiled reply lets the road go.
  void addMeeting() {
    m_editor = m_world.openEditor("one");
    m_world.host.typeSubject(m_editor, "Renamed");
    m_world.host.clickBar(m_editor, "onClickAddVornMeeting:");
    EXPECT_TRUE(exchangeUntil([this] { return m_hasSpoiled; }));
    // Lets the reader come to the spoiled reply. Whether it has read a long one to its end by now changes no
    // answer.
    for (int rounds = 0; rounds < 5; ++rounds) exchange();
  }

  // Answers what is asked until the condition is met, for ten seconds at most.
  bool exchangeUntil(const std::function<bool()>& condition) {
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + std::chrono::seconds(10);
    while (!condition() && Clock::now() < deadline) exchange();
    return condition();
  }

  bool showsMeeting() { return m_world.showsMeeting(m_editor); }

  void expectNothingLost() {
    m_world.settle(120);
    ASSERT_TRUE(m_world.host.isOpen(m_editor));
    EXPECT_TRUE(m_world.host.isDirty(m_editor));
    EXPECT_EQ(m_world.host.subject(m_editor), "Renamed");
    EXPECT_EQ(m_world.calendarText(), m_before);
    EXPECT_FALSE(m_world.showsProgress());
  }

 private:
  void exchange() {
    m_world.settle(0.01);
    pollfd readable{m_peer.number(), POLLIN, 0};
    if (::poll(&readable, 1, 5) <= 0) return;
    char piece[65536];
    const ssize_t count = ::read(m_peer.number(), piece, sizeof piece);
    if (count <= 0) return;
    for (const std::string& request : m_scanner.feed({piece, static_cast<std::size_t>(count)})) answer(request);
  }

  void answer(const std::string& text) {
    const std::optional<vornlab::Envelope> request = vornlab::fromText(text);
    ASSERT_TRUE(request);
    for (const vornlab::Envelope& reply : m_world.service.handle(*request)) {
      const bool spoils = reply.action == m_spoiled;
      m_hasSpoiled |= spoils;
      TestListener::write(m_peer, spoils ? m_spoiling(reply) : vornlab::toText(reply));
      waitUntilTaken();
    }
  }

  // Nothing on the stream parts two replies: the next may only come when the last has been read.
  void waitUntilTaken() const {
    int waiting = 1;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (::ioctl(m_peer.number(), SIOCOUTQ, &waiting) == 0 && waiting > 0 &&
           std::chrono::steady_clock::now() < deadline) {
      ::usleep(200);
    }
  }

  std::uint32_t m_spoiled;
  Spoiling m_spoiling;
  bool m_hasSpoiled = false;
  std::optional<TestListener> m_listener;
  RoadWorld m_world{calendarWith("SUMMARY:Review\r\n"), [this](const std::string& home) {
                      m_listener.emplace(home + "/s.vop");
                      EXPECT_TRUE(m_listener->isReady());
                    }};
  const std::string m_before = m_world.calendarText();
  TestDescriptor m_peer;
  vornlab::MessageScanner m_scanner;
  RoadWorld::EditorId m_editor{};
};

constexpr std::uint32_t kReplies[] = {action::kProfile, action::kAudioConferences, action::kSchedule,
                                      action::kGet};

TEST(BadReplies, GoodOnesLeadToAMeetingInTheSameWorld) {
  SpoiledRoad road(action::kGet, [](const vornlab::Envelope& reply) { return vornlab::toText(reply); });
  road.addMeeting();
  EXPECT_TRUE(road.exchangeUntil([&] { return road.showsMeeting(); }));
  road.expectNothingLost();
}

TEST(BadReplies, AsAWholeCostTheUserNothing) {
  const struct {
    const char* name;
    Spoiling spoiling;
  } rows[] = {
      {"empty", [](const auto& reply) { return withContent(reply, ""); }},
      {"an empty object", [](const auto&) { return std::string("{}"); }},
      {"no envelope", [](const auto&) { return std::string(R"(["content","actionId"]})"); }},
      {"other kinds", [](const auto&) { return std::string(R"({"content":[1],"actionId":{"a":null}})"); }},
      {"an action beyond all numbers",
       [](const auto&) { return std::string(R"({"content":"","actionId":"99999999999999999999"})"); }},
      {"10 MB of letters", [](const auto& reply) { return withContent(reply, std::string(kHuge, 'x')); }},
      {"10 MB of separators", [](const auto& reply) { return withContent(reply, std::string(kHuge, ';')); }},
      {"10 MB of brackets",
       [](const auto&) { return R"({"actionId":"4","content":)" + std::string(kHuge, '[') + "}"; }},
      {"10 MB in front of it",
       [](const auto& reply) { return std::string(kHuge, ' ') + vornlab::toText(reply).substr(1); }},
      {"binary", [](const auto&) { return binary(100'000); }},
      {"binary between the tags",
       [](const auto&) { return R"({"content":")" + binary(5000) + R"(","actionId":"1"})"; }},
      {"binary in the content", [](const auto& reply) { return withContent(reply, binary(5000)); }},
  };
  for (const std::uint32_t reply : kReplies) {
    for (const auto& row : rows) {
      SCOPED_TRACE(std::string(row.name) + " for " + std::to_string(reply));
      SpoiledRoad road(reply, row.spoiling);
      road.addMeeting();
      road.expectNothingLost();
    }
  }
}

// Each field of a good reply in turn, with each kind of garbage; and the reply that ends behind it.
TEST(BadReplies, InAnyFieldCostTheUserNothing) {
  const std::string garbage[] = {"", "%%% no base64 %%%", binary(300),
                                 EncodeUtils::base64Encode(R"({"a":)").value(),
                                 EncodeUtils::base64Encode(binary(300)).value()};
  for (const std::uint32_t reply : kReplies) {
    std::size_t fields = 1;
    for (std::size_t field = 0; field < fields; ++field) {
      SCOPED_TRACE("field " + std::to_string(field) + " for " + std::to_string(reply));
      for (std::size_t kind = 0; kind <= std::size(garbage); ++kind) {
        SpoiledRoad road(reply, [&](const vornlab::Envelope& good) {
          std::vector<std::string> all = contentFields(good.content);
          fields = all.size();
          if (kind < std::size(garbage)) {
            all[field] = garbage[kind];
          } else {
            all.resize(field + 1);
          }
          return withContent(good, joined(all));
        });
        road.addMeeting();
        road.expectNothingLost();
      }
    }
  }
}

}  // namespace
}  // namespace vorn

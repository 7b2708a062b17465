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
#include "tests/transport/TestListener.h"
#include "util/EncodeUtils.h"

// What a client must not be able to do to the host with a reply. Everything goes over the real socket.

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

// What stands between the separators of a content.
std::vector<std::string> fieldsOf(const std::string& content) {
  std::vector<std::string> fields(1);
  for (const char c : content) {
    if (c == ';') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

std::string joined(const std::vector<std::string>& fields) {
  std::string content = fields.front();
  for (std::size_t i = 1; i < fields.size(); ++i) content += ";" + fields[i];
  return content;
}

// A person at an editor, and a client at the other end of the socket that spoils the replies to one request.
class SpoiledRoad {
 public:
  SpoiledRoad(std::uint32_t spoiled, Spoiling spoiling) : spoiled_(spoiled), spoiling_(std::move(spoiling)) {
    peer_ = listener_->accept();
    EXPECT_TRUE(peer_);
  }

  // Goes as far as a spoiled reply lets the road go.
  void addMeeting() {
    editor_ = world_.openEditor("one");
    world_.host.typeSubject(editor_, "Renamed");
    world_.host.clickBar(editor_, "onClickAddVornMeeting:");
    EXPECT_TRUE(exchangeUntil([this] { return hasSpoiled_; }));
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

  bool showsMeeting() { return world_.showsMeeting(editor_); }

  void expectNothingLost() {
    world_.settle(120);
    ASSERT_TRUE(world_.host.isOpen(editor_));
    EXPECT_TRUE(world_.host.isDirty(editor_));
    EXPECT_EQ(world_.host.subject(editor_), "Renamed");
    EXPECT_EQ(world_.calendarText(), before_);
    EXPECT_FALSE(world_.test.presenter.showsProgress());
  }

 private:
  void exchange() {
    world_.settle(0.01);
    pollfd readable{peer_.number(), POLLIN, 0};
    if (::poll(&readable, 1, 5) <= 0) return;
    char piece[65536];
    const ssize_t count = ::read(peer_.number(), piece, sizeof piece);
    if (count <= 0) return;
    for (const std::string& request : scanner_.feed({piece, static_cast<std::size_t>(count)})) answer(request);
  }

  void answer(const std::string& text) {
    const std::optional<vornlab::Envelope> request = vornlab::fromText(text);
    ASSERT_TRUE(request);
    for (const vornlab::Envelope& reply : world_.service.handle(*request)) {
      const bool spoils = reply.action == spoiled_;
      hasSpoiled_ |= spoils;
      TestListener::write(peer_, spoils ? spoiling_(reply) : vornlab::toText(reply));
      waitUntilTaken();
    }
  }

  // Nothing on the stream parts two replies: the next may only come when the last has been read.
  void waitUntilTaken() const {
    int waiting = 1;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (::ioctl(peer_.number(), SIOCOUTQ, &waiting) == 0 && waiting > 0 &&
           std::chrono::steady_clock::now() < deadline) {
      ::usleep(200);
    }
  }

  std::uint32_t spoiled_;
  Spoiling spoiling_;
  bool hasSpoiled_ = false;
  std::optional<TestListener> listener_;
  RoadWorld world_{calendarWith("SUMMARY:Review\r\n"), RoadWorld::Channel::socket,
                   [this](const std::string& home) {
                     listener_.emplace(home + "/s.vop");
                     EXPECT_TRUE(listener_->isReady());
                   }};
  const std::string before_ = world_.calendarText();
  TestDescriptor peer_;
  vornlab::MessageScanner scanner_;
  RoadWorld::EditorId editor_{};
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
          std::vector<std::string> all = fieldsOf(good.content);
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

// What a client must not be able to do to the host with a reply.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/road/world/RoadWorld.h"
#include "tests/support/ContentFields.h"
#include "util/EncodeUtils.h"

namespace vorn {
namespace {

namespace action = vornlab::action;

using Spoiling = InProcessClient::Spoiling;

constexpr std::size_t kHuge = 10'000'000;

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

// A person asks for a meeting, and every reply to one of the requests is spoiled.
void expectNothingLost(std::uint32_t spoiled, const Spoiling& spoiling) {
  RoadWorld world(calendarWith("SUMMARY:Review\r\n"));
  const std::string before = world.calendarText();
  bool hasSpoiled = false;
  world.client->setSpoiling(spoiled, [&](const vornlab::Envelope& reply) {
    hasSpoiled = true;
    return spoiling(reply);
  });
  const RoadWorld::EditorId editor = world.openEditor("one");
  world.host.typeSubject(editor, "Renamed");
  world.clickAdd(editor);
  EXPECT_TRUE(hasSpoiled);
  world.settle(120);
  ASSERT_TRUE(world.host.isOpen(editor));
  EXPECT_TRUE(world.host.isDirty(editor));
  EXPECT_EQ(world.host.subject(editor), "Renamed");
  EXPECT_EQ(world.calendarText(), before);
  EXPECT_FALSE(world.showsProgress());
}

constexpr std::uint32_t kReplies[] = {action::kProfile, action::kAudioConferences, action::kSchedule,
                                      action::kGet};

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
      expectNothingLost(reply, row.spoiling);
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
        expectNothingLost(reply, [&](const vornlab::Envelope& good) {
          std::vector<std::string> all = contentFields(good.content);
          fields = all.size();
          if (kind < std::size(garbage)) {
            all[field] = garbage[kind];
          } else {
            all.resize(field + 1);
          }
          return withContent(good, joined(all));
        });
      }
    }
  }
}

}  // namespace
}  // namespace vorn

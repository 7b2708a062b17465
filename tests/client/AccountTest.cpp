#include "lab/client/Account.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <tuple>

#include "ReplyReader.h"
#include "lab/client/Replies.h"

namespace vornlab {
namespace {

using nlohmann::json;
using test::Packed;
using test::unpack;

std::string errorOf(const std::string& text) {
  try {
    Account::fromText(text);
  } catch (const AccountError& error) {
    return error.what();
  }
  return "no error";
}

TEST(Account, readsEveryShippedFile) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(VORNCLIENT_ACCOUNTS)) {
    const Account account = Account::fromFile(entry.path());
    EXPECT_FALSE(account.userId.empty()) << entry.path();
    EXPECT_TRUE(json::accept(profileReply(account))) << entry.path();
    EXPECT_TRUE(json::accept(peopleReply(account))) << entry.path();
    ++count;
  }
  EXPECT_GE(count, 7);
}

TEST(Account, namesWhatIsWrongWithAFile) {
  using Case = std::pair<const char*, const char*>;
  for (const auto& [text, expected] :
       {Case{R"({"usr": {}})", "unknown key 'usr'"},
        Case{R"({"options": {"hostVideos": true}})", "unknown key 'options.hostVideos'"},
        Case{R"({"options": {"hostVideo": 1}})", "options.hostVideo must be true or false"},
        Case{R"({"people": [{}, {"options": {"x": true}}]})", "unknown key 'people[1].options.x'"},
        Case{R"({"user": []})", "user must be an object"}, Case{R"({"user": {"personalId": "12 34"}})", "digits"},
        Case{R"({"dialIn": {"all": "US"}})", "dialIn.all must be a list"},
        Case{R"({"joinRegions": {"policy": "deny"}})", "'deny' is none of allow, block"},
        Case{R"({"features": ["fly"]})", "features.fly"}, Case{"{\n \"user\": ", "no JSON from line 2, column"},
        Case{R"({"user": 1e999})", "too large"}, Case{"[]", "an object"}}) {
    EXPECT_THAT(errorOf(text), testing::HasSubstr(expected)) << text;
  }
  EXPECT_THROW(Account::fromFile("/nowhere/account.json"), AccountError);
}

TEST(Account, givesEveryOptionItsOwnNameAndBit) {
  std::set<std::string_view> names;
  std::set<std::pair<int, int>> bits;
  for (const auto& option : accountOptions()) {
    EXPECT_TRUE(names.insert(option.name).second) << option.name;
    EXPECT_TRUE(bits.insert({option.word, option.bit}).second) << option.name;
  }
}

Packed profileOf(const Account& account) {
  return unpack(test::decodeBase64(json::parse(profileReply(account))["proto"]));
}

TEST(Account, packsOptionsIntoTheProfileWords) {
  using Case = std::tuple<const char*, int, std::uint64_t>;
  for (const auto& [option, field, mask] :
       {Case{"automaticRecording", 31, 0x20}, Case{"cloudRecording", 31, 0x10000000},
        Case{"signedInDomainsByDefault", 31, 0x8000000000000000}, Case{"recordingForbidden", 47, 0x8000000000},
        Case{"passcodeRequired", 68, 0x10000}, Case{"joinUrlInLocationOffered", 68, 0x1000000000000000},
        Case{"waitingRoomLocked", 69, 0x20000}, Case{"templatesLocked", 69, 0x200000000},
        Case{"templates", 70, 0x1}, Case{"joinRegionsLocked", 69, 0x40000000}}) {
    const Packed packed = profileOf(Account::fromText("{\"options\": {\"" + std::string(option) + "\": true}}"));
    for (const int word : {31, 47, 68, 69, 70}) EXPECT_EQ(packed.number(word), word == field ? mask : 0) << option;
  }
}

}  // namespace
}  // namespace vornlab

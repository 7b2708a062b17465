#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/AccountFacts.h"
#include "util/Value.h"

namespace vorn {

// A new meeting's settings after each step of making them, as settings dictionaries, and what they were made of.
struct SettingSteps {
  Value reset;
  Value afterProfile;
  Value afterSavedProfile;
  AccountFacts account;
  ClientGates client;
  // The document of what the user chose last; absent when there is none.
  Value savedProfile;
};

// Who decided a setting of a new meeting.
struct SettingReason {
  // "record", "profile", "savedProfile" or "client".
  std::string_view decidedBy;
  // The profile's accessor that spoke, or the client's predicate; "" for none.
  std::string_view accessor;
  // The accessor by which the administrator has locked the setting; "" when it is not locked.
  std::string_view lockedBy;
  std::string words;
};

// The settings that have a policy, in the order in which a person reads them.
std::vector<std::string_view> settingKeys();

// The setting in words; the key itself for one without a policy.
std::string_view wordsOfSetting(std::string_view key);

SettingReason reasonOfSetting(std::string_view key, const SettingSteps& steps);

}  // namespace vorn

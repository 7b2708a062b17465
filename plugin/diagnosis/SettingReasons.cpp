#include "diagnosis/SettingReasons.h"

#include "data/OptionPolicy.h"

namespace vorn {

namespace {

using Meeting = OptionPolicy::Meeting;

const OptionPolicy* findPolicy(std::string_view key, const Value& settings) {
  const auto meeting = settings[vn_Setting_IsPMI].boolValue() ? Meeting::personalNumber : Meeting::ownNumber;
  for (const OptionPolicy& row : option_policy::kRows) {
    if (row.key == key && (row.meeting == Meeting::any || row.meeting == meeting)) return &row;
  }
  return nullptr;
}

std::string inWords(const AccountQuestion& question, const AccountFacts& account) {
  const Value answer = question.ask(account);
  const std::string name = "the profile's " + std::string(question.accessor);
  if (answer.isBoolean()) return name + " is " + (answer.boolValue() ? "on" : "off");
  if (answer.isInteger()) return name + " is " + answer.stringValue();
  return question.speaks(account) ? name : name + " gives nothing";
}

SettingReason reasonNotOffered(const OptionPolicy& policy, const AccountFacts& account, bool hasChanged) {
  std::string words;
  for (const AccountQuestion& question : policy.offeredBy) {
    if (question.exists()) words += (words.empty() ? "" : ", ") + inWords(question, account);
  }
  const std::string_view accessor = policy.offeredBy.front().accessor;
  if (hasChanged) return {"profile", accessor, "", words};
  return {"record", accessor, "", "default; " + words};
}

SettingReason reasonInProfile(const OptionPolicy& policy, const SettingSteps& steps, bool hasChanged) {
  const AccountFacts& account = steps.account;
  if (!policy.gate.isOpenIn(steps.client)) {
    return {"client", policy.gate.predicate, "",
            "the client is too old: " + std::string(policy.gate.predicate) + " from " +
                std::string(policy.gate.version)};
  }
  if (!policy.isOffered(account)) return reasonNotOffered(policy, account, hasChanged);
  const AccountQuestion& strongest = policy.givenBy.front();
  for (const AccountQuestion& question : policy.givenBy) {
    if (!question.speaks(account)) continue;
    const bool isLimited = &question == &strongest && policy.limitedBy.speaks(account);
    return {"profile", question.accessor, "",
            inWords(question, account) + (isLimited ? ", but " + inWords(policy.limitedBy, account) : "")};
  }
  if (!strongest.exists()) return {"record", "", "", "default"};
  if (hasChanged) return {"profile", strongest.accessor, "", inWords(strongest, account)};
  return {"record", strongest.accessor, "", "default; " + inWords(strongest, account)};
}

SettingReason reasonInSavedProfile(std::string_view key, const Value& savedProfile) {
  if (savedProfile.contains(key)) return {"savedProfile", "", "", "the user's saved choice"};
  return {"savedProfile", "", "", "adjusted, because the user does not see the panel"};
}

}  // namespace

std::vector<std::string_view> settingKeys() {
  std::vector<std::string_view> keys;
  for (const OptionPolicy& row : option_policy::kRows) {
    if (keys.empty() || keys.back() != row.key) keys.push_back(row.key);
  }
  return keys;
}

std::string_view wordsOfSetting(std::string_view key) {
  const OptionPolicy* policy = findPolicy(key, Value());
  return policy ? policy->words : key;
}

SettingReason reasonOfSetting(std::string_view key, const SettingSteps& steps) {
  const OptionPolicy* policy = findPolicy(key, steps.afterSavedProfile);
  SettingReason reason;
  if (steps.afterSavedProfile[key] != steps.afterProfile[key]) {
    reason = reasonInSavedProfile(key, steps.savedProfile);
  } else if (!steps.account.knowsAccount) {
    reason = {"record", "", "", "default; there is no profile"};
  } else if (policy) {
    reason = reasonInProfile(*policy, steps, steps.afterProfile[key] != steps.reset[key]);
  } else {
    reason = {"record", "", "", "default"};
  }
  if (policy && policy->isLocked(steps.account)) {
    reason.lockedBy = policy->lockedBy.accessor;
    reason.words += "; locked by the administrator (" + std::string(reason.lockedBy) + ")";
  }
  return reason;
}

}  // namespace vorn

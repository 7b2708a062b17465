#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "util/Value.h"

namespace vorn {

// The rule kinds of a passcode, in the account's option and in the result of a validation, where a set bit is a
// failed rule.
enum PasswordRule : std::int64_t {
  kPswRuleOnlyNumber = 1,
  kPswRuleMinLength = 2,
  kPswRuleHasAlphabet = 4,
  kPswRuleHasNumber = 8,
  kPswRuleHasSpecial = 16,
  kPswRuleIncludeUpperLower = 32,
  kPswRuleContainConsecutive = 64,
};

// What an account demands of a passcode. Lengths count UTF-16 units.
struct PasscodePolicy {
  std::int64_t rules = 0;
  std::int64_t minLength = 0;
  std::int64_t consecutiveLength = 0;
  // A passcode without rules mixes digits and letters.
  bool isEnableNumberalphabet = false;
};

// Validates and makes passcodes for one account. Holds nothing but what it is made with; the thread is the
// source's.
class Passcodes {
 public:
  // Gives 32 evenly distributed bits.
  using RandomSource = std::function<std::uint32_t()>;

  // Letters are lower-cased as the language does it.
  Passcodes(const PasscodePolicy& policy, std::string language, RandomSource random32)
      : m_policy(policy), m_language(std::move(language)), m_random32(std::move(random32)) {}

  // The set of failed rules; 0 when the passcode passes. An absent one is as an empty one.
  std::int64_t failedRules(const OptionalText& password) const;
  // True when the text holds a run of that many equal, rising or falling characters, or a piece of a keyboard row.
  bool isConsecutive(const OptionalText& password, std::int64_t length, bool ignoreCase) const;
  // True when the text stands inside a row of the keyboard, read forward.
  static bool isKeyboardConsecutive(const OptionalText& text);

  // A passcode made by the account's rules. After five refused ones the next is taken untested.
  std::string getRandomPassWord() const;
  // The parts of it; "" for a length that is too small.
  std::string GetNumberPassword(std::int64_t length) const;
  std::string GetComplexPassword(std::int64_t length, const std::string& charset) const;
  std::string GetNumberalphabetPassword(std::int64_t length) const;
  std::string GetPasswordWithRules(std::int64_t length) const;
  std::string ShuffleStr(const std::string& text) const;

 private:
  std::uint32_t randomBelow(std::uint32_t bound) const;
  char randomOf(std::string_view set) const;

  PasscodePolicy m_policy;
  std::string m_language;
  RandomSource m_random32;
};

}  // namespace vorn

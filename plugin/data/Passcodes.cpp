#include "data/Passcodes.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <string_view>

#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr std::string_view kUpper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kLower = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kSpecial = "!@#$%^&*.?_-+=<>()[]{},'\"/\\|:;~`";

// Generation leaves out letters that are easily confused, and most special characters.
constexpr std::string_view kPlainUpper = "ABCDEFGHJKLMNPQRSTUVWXYZ";
constexpr std::string_view kPlainLower = "abcdefghijkmnpqrstuvwxyz";
constexpr std::string_view kPlainAlphabet = "ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnpqrstuvwxyz";
constexpr std::string_view kPlainAlphanumerics = "0123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnpqrstuvwxyz";
constexpr std::string_view kPlainSpecial = "!@#$%^&*.?+=";

constexpr std::int64_t kUsualLength = 6;
// The least length comes from outside; nobody types a passcode of this length, so a longer one is a broken
// profile.
constexpr std::int64_t kLongestGenerated = 1024;
constexpr int kRegenerations = 5;

// The draws stay as narrow as they have always been: the digit 9 never comes in a row of digits, and only the head
// of a set fills up a passcode.
constexpr std::uint32_t kDigitsDrawn = 9;
constexpr std::uint32_t kCharsetHead = 7;

bool holdsAnyOf(const std::string& text, std::string_view set) {
  return text.find_first_of(set) != std::string::npos;
}

// A window that is one keyboard row's piece, somewhere in the text. No row is longer than 11.
bool holdsKeyboardRun(const icu::UnicodeString& text, std::int64_t length) {
  constexpr std::int64_t kLongestRow = 11;
  if (length > kLongestRow) return false;
  const auto window = static_cast<std::int32_t>(length);
  for (std::int32_t start = 0; start + window <= text.length(); ++start) {
    std::string piece;
    text.tempSubString(start, window).toUTF8String(piece);
    if (Passcodes::isKeyboardConsecutive(piece)) return true;
  }
  return false;
}

// A window whose neighbours are all equal, all rising by 1 or all falling by 1: a run of that many such pairs.
bool holdsSequence(const icu::UnicodeString& text, std::int64_t length) {
  if (length < 2) return false;
  std::int64_t equal = 0;
  std::int64_t rising = 0;
  std::int64_t falling = 0;
  for (std::int32_t i = 1; i < text.length(); ++i) {
    const int step = static_cast<signed char>(text[i]) - static_cast<signed char>(text[i - 1]);
    equal = step == 0 ? equal + 1 : 0;
    rising = step == 1 ? rising + 1 : 0;
    falling = step == -1 ? falling + 1 : 0;
    if (std::max({equal, rising, falling}) >= length - 1) return true;
  }
  return false;
}

}  // namespace

// An evenly distributed number below the bound. The draws that would favour small numbers are thrown away, though
// not for ever: a broken source must not hold the caller.
std::uint32_t Passcodes::randomBelow(std::uint32_t bound) const {
  constexpr int kMostDraws = 64;
  const std::uint32_t unfair = (0u - bound) % bound;
  std::uint32_t number = m_random32();
  for (int draws = 1; number < unfair && draws < kMostDraws; ++draws) number = m_random32();
  return number % bound;
}

char Passcodes::randomOf(std::string_view set) const {
  return set[randomBelow(static_cast<std::uint32_t>(set.size()))];
}

std::int64_t Passcodes::failedRules(const OptionalText& password) const {
  const std::string text = password.value_or("");
  const std::int64_t rules = m_policy.rules;
  const bool tooShort = static_cast<std::int64_t>(utf16Length(text)) < m_policy.minLength;
  // The least length counts whether or not its rule is set.
  std::int64_t failed = 0;
  if (tooShort) failed |= kPswRuleMinLength;

  if (rules & kPswRuleOnlyNumber) {
    // No other rule is looked at.
    if (text.empty() || text.find_first_not_of(kDigits) != std::string::npos) failed |= kPswRuleOnlyNumber;
    return failed;
  }
  const bool hasUpper = holdsAnyOf(text, kUpper);
  const bool hasLower = holdsAnyOf(text, kLower);
  if ((rules & kPswRuleHasAlphabet) && !hasUpper && !hasLower) failed |= kPswRuleHasAlphabet;
  if ((rules & kPswRuleHasNumber) && !holdsAnyOf(text, kDigits)) failed |= kPswRuleHasNumber;
  if ((rules & kPswRuleHasSpecial) && !holdsAnyOf(text, kSpecial)) failed |= kPswRuleHasSpecial;
  if ((rules & kPswRuleIncludeUpperLower) && !(hasUpper && hasLower)) failed |= kPswRuleIncludeUpperLower;
  if ((rules & kPswRuleContainConsecutive) && isConsecutive(text, m_policy.consecutiveLength, true)) {
    failed |= kPswRuleContainConsecutive;
  }
  return failed;
}

bool Passcodes::isConsecutive(const OptionalText& password, std::int64_t length, bool ignoreCase) const {
  icu::UnicodeString text = icu::UnicodeString::fromUTF8(password.value_or(""));
  if (ignoreCase) text.toLower(icu::Locale(m_language.c_str()));
  if (length < 1 || text.length() < length) return false;
  return holdsSequence(text, length) || holdsKeyboardRun(text, length);
}

bool Passcodes::isKeyboardConsecutive(const OptionalText& text) {
  // The row of digits ends in 0 again, as the keyboard's does.
  constexpr std::string_view kRows[] = {"qwertyuiop", "asdfghjkl", "zxcvbnm", "!@#$%^&*()", "01234567890"};
  if (!text || text->empty()) return false;
  return std::any_of(std::begin(kRows), std::end(kRows),
                     [&](std::string_view row) { return row.find(*text) != std::string_view::npos; });
}

std::string Passcodes::getRandomPassWord() const {
  const std::int64_t rules = m_policy.rules;
  const std::int64_t length = std::clamp(m_policy.minLength, kUsualLength, kLongestGenerated);
  if (rules == 0) {
    // The least length plays no part here.
    return m_policy.isEnableNumberalphabet ? GetNumberalphabetPassword(kUsualLength)
                                           : GetNumberPassword(kUsualLength);
  }
  if (rules & kPswRuleOnlyNumber) return GetNumberPassword(length);
  std::string password = GetPasswordWithRules(length);
  if (!(rules & kPswRuleContainConsecutive)) return password;
  for (int i = 0; i < kRegenerations && isConsecutive(password, m_policy.consecutiveLength, true); ++i) {
    password = GetPasswordWithRules(length);
  }
  return password;
}

std::string Passcodes::GetNumberPassword(std::int64_t length) const {
  std::string password;
  for (std::int64_t i = 0; i < length; ++i) password += kDigits[randomBelow(kDigitsDrawn)];
  return password;
}

std::string Passcodes::GetComplexPassword(std::int64_t length, const std::string& charset) const {
  const std::string_view head = std::string_view(charset).substr(0, kCharsetHead);
  std::string password;
  if (head.empty()) return password;
  for (std::int64_t i = 0; i < length; ++i) password += randomOf(head);
  return password;
}

std::string Passcodes::GetNumberalphabetPassword(std::int64_t length) const {
  if (length < 2) return {};
  std::string password(1, randomOf(kPlainAlphabet));
  password += GetNumberPassword(1);
  for (std::int64_t i = 2; i < length; ++i) password += randomOf(kPlainAlphanumerics);
  return ShuffleStr(password);
}

std::string Passcodes::GetPasswordWithRules(std::int64_t length) const {
  const std::int64_t rules = m_policy.rules;
  if (!(rules & (kPswRuleHasAlphabet | kPswRuleHasSpecial | kPswRuleIncludeUpperLower))) {
    return ShuffleStr(GetNumberPassword(length));
  }
  std::string prefix(1, randomOf(kDigits));
  std::string charset = prefix + std::string(kDigits);
  if (rules & kPswRuleHasAlphabet) {
    prefix += randomOf(kPlainAlphabet);
    charset = prefix + std::string(kPlainAlphabet);
  }
  if (rules & kPswRuleHasSpecial) {
    prefix += randomOf(kPlainSpecial);
    charset = prefix + std::string(kPlainSpecial);
  }
  if (rules & kPswRuleIncludeUpperLower) {
    prefix += randomOf(kPlainUpper);
    prefix += randomOf(kPlainLower);
    if (!(rules & kPswRuleHasAlphabet)) charset = prefix + std::string(kPlainAlphabet);
  }
  const std::int64_t rest = length - static_cast<std::int64_t>(prefix.size());
  return ShuffleStr(prefix + GetComplexPassword(rest, charset));
}

std::string Passcodes::ShuffleStr(const std::string& text) const {
  icu::UnicodeString rest = icu::UnicodeString::fromUTF8(text);
  icu::UnicodeString shuffled;
  while (!rest.isEmpty()) {
    const auto position = static_cast<std::int32_t>(randomBelow(static_cast<std::uint32_t>(rest.length())));
    shuffled.append(rest[position]);
    rest.remove(position, 1);
  }
  std::string result;
  return shuffled.toUTF8String(result);
}

}  // namespace vorn

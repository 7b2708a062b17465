#pragma once

#include <span>
#include <string_view>

#include "data/vnUserProfileHelper.h"
#include "util/Value.h"

namespace vorn {

// One question that the profile reader answers: its accessor by name, and what it means to a person.
struct ProfileQuestion {
  std::string_view accessor;
  std::string_view words;
  Value (*ask)(const vnUserProfileHelper& profile);
};

struct ProfileQuestionGroup {
  std::string_view name;
  std::span<const ProfileQuestion> questions;
};

// The question of that form for an accessor without parameters.
template <auto Accessor>
Value askProfile(const vnUserProfileHelper& profile) {
  return (profile.*Accessor)();
}

// The same for an accessor that is asked of the account or of a person: of the account.
template <auto Accessor>
Value askOfAccount(const vnUserProfileHelper& profile) {
  return (profile.*Accessor)(std::nullopt);
}

// All questions, in groups. What holds passcodes or people is not among them.
std::span<const ProfileQuestionGroup> profileQuestions();

// The question with that accessor; null when there is none.
const ProfileQuestion* profileQuestion(std::string_view accessor);

}  // namespace vorn

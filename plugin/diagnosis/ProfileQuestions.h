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

// All questions, in groups. What holds passcodes or people is not among them.
std::span<const ProfileQuestionGroup> profileQuestions();

}  // namespace vorn

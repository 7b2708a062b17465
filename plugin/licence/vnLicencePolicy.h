#pragma once

#include <cstdint>
#include <optional>

namespace vorn {

// What an account's plan allows: the one place for plan and licence rules. It looks at plain facts and keeps no
// state; any thread.
//
// The user type of the profile decides, and nothing else: 0 is an account without a meeting licence, 1 one without
// a paid plan, and any other type has both. A type that is not known refuses nothing here, since the service
// decides in the end; but it does not count as paid either, so that no notice of the plan is withheld.
class vnLicencePolicy {
 public:
  using UserType = std::optional<std::int32_t>;

  static constexpr std::int32_t kUserTypeWithoutMeetingLicence = 0;
  static constexpr std::int32_t kUserTypeWithoutPaidPlan = 1;
  // The longest meeting of an account without a paid plan.
  static constexpr std::int64_t kLongestUnpaidMeetingMinutes = 40;

  static bool isPaidUser(UserType userType);
  // Whether the account may hold no meetings at all: every meeting command then ends with a notice.
  static bool isNoMeetingLicenseUser(UserType userType);
  // Whether a meeting is longer than the account's plan allows: a save then waits for the user's word. An account
  // without a licence has no plan to exceed.
  static bool isLongerThanPlanAllows(UserType userType, std::int64_t minutes);
};

}  // namespace vorn

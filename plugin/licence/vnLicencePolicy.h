#pragma once

#include <cstdint>
#include <optional>

namespace vorn {

// What an account's plan allows: the one place for plan and licence rules. It looks at plain facts and keeps no
// state; any thread.
//
// The present rule of both checks on a meeting command is that nothing is refused yet: they let every account and
// every meeting pass. The facts that they will look at are parameters already.
class vnLicencePolicy {
 public:
  using UserType = std::optional<std::int32_t>;

  // The user type of an account without a paid plan; any other type has one.
  static constexpr std::int32_t kUserTypeWithoutPaidPlan = 1;
  // The longest meeting of an account without a paid plan.
  static constexpr std::int64_t kLongestUnpaidMeetingMinutes = 40;

  // True for a known type other than the one without a plan; an unknown type counts as not paid.
  static bool isPaidUser(UserType userType);
  // Whether the account may hold no meetings at all. No account is known to be so: false.
  static bool isNoMeetingLicenseUser(UserType userType);
  // Whether a meeting is longer than the account's plan allows. A statement for notices, which refuses nothing.
  static bool isLongerThanPlanAllows(UserType userType, std::int64_t minutes);

  // Whether a meeting command must end with the notice of a missing licence. False: nothing is refused yet.
  static bool checkIfShowNoMeetingLicenseWindow(UserType userType);
  // Whether the plan lets a meeting of that length be scheduled. True: nothing is refused yet.
  static bool mayScheduleMeeting(UserType userType, std::int64_t minutes);
};

}  // namespace vorn

#include "licence/vnLicencePolicy.h"

namespace vorn {

bool vnLicencePolicy::isPaidUser(UserType userType) { return userType && *userType != kUserTypeWithoutPaidPlan; }

bool vnLicencePolicy::isNoMeetingLicenseUser(UserType) { return false; }

bool vnLicencePolicy::isLongerThanPlanAllows(UserType userType, std::int64_t minutes) {
  return userType == kUserTypeWithoutPaidPlan && minutes > kLongestUnpaidMeetingMinutes;
}

bool vnLicencePolicy::checkIfShowNoMeetingLicenseWindow(UserType userType) {
  return isNoMeetingLicenseUser(userType);
}

bool vnLicencePolicy::mayScheduleMeeting(UserType, std::int64_t) { return true; }

}  // namespace vorn

#include "licence/vnLicencePolicy.h"

namespace vorn {

bool vnLicencePolicy::isPaidUser(UserType userType) {
  return userType && *userType != kUserTypeWithoutPaidPlan && !isNoMeetingLicenseUser(userType);
}

bool vnLicencePolicy::isNoMeetingLicenseUser(UserType userType) {
  return userType == kUserTypeWithoutMeetingLicence;
}

bool vnLicencePolicy::isLongerThanPlanAllows(UserType userType, std::int64_t minutes) {
  return userType == kUserTypeWithoutPaidPlan && minutes > kLongestUnpaidMeetingMinutes;
}

}  // namespace vorn

#pragma once

#include <string>

#include "util/Value.h"

namespace vorn {

// Questions about scheduling for somebody else, by the id of the appointment's window. Main thread only.
class vnOnbehalfData {
 public:
  static vnOnbehalfData& sharedInstance();

  // False and "" for a window without a bar.
  bool isOnbehalf(const OptionalText& windowId);
  std::string onbehalfEmail(const OptionalText& windowId);
  // The address belongs to somebody whom this user schedules for.
  bool hasSchedulePermission(const std::string& email);
  bool isCurrentScheduleVornForOther(const OptionalText& windowId);
  // "" for an address that is nobody's whom this user schedules for. The comparison ignores case.
  std::string getDisplayNameWithOnbehalfEmail(const std::string& email);
  std::string onbehalfPMI(const std::string& email);
  bool supportPMIForOnbehalf(const std::string& email);
};

}  // namespace vorn

#include "workflow/vnOnbehalfData.h"

#include "data/People.h"
#include "data/vnProfileKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "platform/Registry.h"
#include "workflow/vnActionAdditionViewMonitor.h"

namespace vorn {

namespace {

std::shared_ptr<MeetingBar> barOf(const OptionalText& windowId) {
  return vnActionAdditionViewMonitor::sharedInstance().getVnActionAdditionViewByApptWindowID(windowId);
}

Value bossWithEmail(const std::string& email) {
  return personWithEmail(vnUserProfileHelper::sharedInstance().bossesInfo(), email);
}

}  // namespace

vnOnbehalfData& vnOnbehalfData::sharedInstance() { return Registry::shared<vnOnbehalfData>(); }

bool vnOnbehalfData::isOnbehalf(const OptionalText& windowId) {
  const auto bar = barOf(windowId);
  return bar && bar->editorProxy() && bar->editorProxy()->isOnBehalf();
}

std::string vnOnbehalfData::onbehalfEmail(const OptionalText& windowId) {
  const auto bar = barOf(windowId);
  if (!bar || !bar->editorProxy()) return {};
  return bar->editorProxy()->onbehalfEmailAddress().value_or("");
}

bool vnOnbehalfData::hasSchedulePermission(const std::string& email) {
  return !getDisplayNameWithOnbehalfEmail(email).empty();
}

bool vnOnbehalfData::isCurrentScheduleVornForOther(const OptionalText& windowId) {
  if (!isOnbehalf(windowId)) return false;
  const std::string email = onbehalfEmail(windowId);
  return !email.empty() && hasSchedulePermission(email);
}

std::string vnOnbehalfData::getDisplayNameWithOnbehalfEmail(const std::string& email) {
  return bossWithEmail(email)[vn_Boss_DisplayName].text();
}

std::string vnOnbehalfData::onbehalfPMI(const std::string& email) {
  return bossWithEmail(email)[vn_Boss_PMI].stringValue();
}

bool vnOnbehalfData::supportPMIForOnbehalf(const std::string& email) { return !onbehalfPMI(email).empty(); }

}  // namespace vorn

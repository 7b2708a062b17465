#include "diagnosis/Diagnosis.h"

#include <optional>

#include "channel/commands/vnAPIKeys.h"
#include "channel/commands/vnAPIMgr.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnUserProfileHelper.h"
#include "diagnosis/DiagnosisReport.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

bool Diagnosis::answer(std::string_view question, const Value& parameters, Value& answer) {
  Value told;
  if (question == "client") {
    told = client();
  } else if (question == "fetch") {
    told = fetch(parameters);
  } else if (question == "account") {
    told = account();
  } else if (question == "defaults") {
    told = defaults();
  } else if (question == "hooks") {
    told = hooks();
  } else if (question == "appointment") {
    told = appointment(parameters);
  } else if (question == "window") {
    told = window(parameters);
  } else if (question == "body") {
    // The asker's own text: what it holds must not be changed by more than was asked for.
    answer = body(parameters);
    return true;
  } else {
    return false;
  }
  answer = withoutAddresses(told);
  return true;
}

// Through the process-wide manager, as the toolbar's commands go.
Value Diagnosis::fetch(const Value& parameters) {
  const auto manager = vnMeetingMgr::sharedInstance();
  vnAPIMgr* requests = manager ? manager->apiMgr() : nullptr;
  const HostObject window = vnMeetingCommon::getPluginParentWindow(nullptr);
  const std::string& what = parameters["what"].text();
  const bool hasPeople = vnUserProfileHelper::sharedInstance().isEnableScheduleFor() &&
                         vnClientFeatureMgr::sharedInstance().isVornClientSupportSceduleForList();
  std::optional<int> refused;
  if (requests && what == "profile") {
    // Silent: whoever asks reads the result.
    refused = requests->getUserProfile(
        window, Value::dictionaryFromPairs(
                    {{vn_API_Call_Para_SilentAPIError, true}, {vn_API_Call_Para_ShowCommunicationDlg, false}}));
  } else if (requests && what == "people" && hasPeople) {
    refused = requests->getScheduleForList(window);
  }
  return Value::dictionaryFromPairs({{"sent", refused == 0}, {"refused", refused.value_or(0)}});
}

}  // namespace vorn

#include "diagnosis/Diagnosis.h"

#include <optional>

#include "channel/commands/vnAPIKeys.h"
#include "channel/commands/vnAPIMgr.h"
#include "channel/discovery/vnClientFeatureMgr.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/vnUserProfileHelper.h"
#include "diagnosis/DiagnosisReport.h"
#include "util/CoveredValue.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

bool Diagnosis::answer(std::string_view question, const Value& parameters, Value& answer) {
  struct Question {
    std::string_view name;
    Value (*tell)(const Value& parameters);
    // Not again where the report has covered all of it, which takes as long as the rest of an appointment. The
    // asker's own text must not be changed by more than was asked for, and what is compared not at all.
    bool isCovered = true;
  };
  static constexpr Question kQuestions[] = {
      {"client", [](const Value&) { return client(); }},
      {"fetch", fetch},
      {"account", [](const Value&) { return account(); }},
      {"defaults", [](const Value&) { return defaults(); }},
      {"hooks", [](const Value&) { return hooks(); }},
      {"appointment", appointment, false},
      {"window", window},
      {"panel", panel, false},
      {"body", body, false},
  };
  for (const Question& known : kQuestions) {
    if (known.name != question) continue;
    answer = known.isCovered ? covered(known.tell(parameters)) : known.tell(parameters);
    return true;
  }
  return false;
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

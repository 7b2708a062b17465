// How the rows of the hook table fared in this host.

#include "diagnosis/Diagnosis.h"
#include "diagnosis/DiagnosisReport.h"
#include "host/surface/HookInstaller.h"

namespace vorn {

Value Diagnosis::hooks() {
  DiagnosisReport report;
  std::string_view hookClass;
  std::int64_t standing = 0;
  std::int64_t all = 0;
  for (const HookState& state : HookInstaller::sharedInstance().states()) {
    const HookRow& row = *state.row;
    if (row.hostClass != hookClass) {
      hookClass = row.hostClass;
      report.beginGroup(hookClass);
    }
    ++all;
    if (state.standing == HookStanding::stands) ++standing;
    const std::string sign = row.method == HookMethod::ofTheClass ? "+" : "-";
    const std::string key = sign + std::string(row.hostSelector);
    const std::string note = state.types.empty() ? row.addedSelector() : "of types " + state.types;
    report.add(key, key, nameOfHookStanding(state.standing), {}, note);
  }
  return Value::dictionaryFromPairs({{"groups", report.groups()}, {"rows", all}, {"standing", standing}});
}

}  // namespace vorn

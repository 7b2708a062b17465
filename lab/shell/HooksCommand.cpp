#include "lab/shell/HooksCommand.h"

#include <cstdio>

#include "lab/outlook/CalendarStore.h"
#include "lab/shell/Session.h"

namespace vornlab {

using vorn::Value;

void printHooks(const Value& told, ReportForm form) {
  if (form == ReportForm::json) {
    printGroupsAsJson(told["groups"],
                      Value::dictionaryFromPairs({{"rows", told["rows"]}, {"standing", told["standing"]}}));
  } else {
    printGroups(told["groups"]);
    std::printf("%s of %s hooks stand.\n", told["standing"].stringValue().c_str(),
                told["rows"].stringValue().c_str());
  }
}

ExitCode hooks(const HooksOptions& options) {
  CalendarStore nothing;
  Session session(options.lab, nothing, {});
  printHooks(session.ask("hooks"), options.form);
  return ExitCode::done;
}

}  // namespace vornlab

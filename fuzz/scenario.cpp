// A scenario that somebody sends: it is read whole, or refused with the line and what is wrong with it.

#include "lab/shell/scenario/Scenario.h"
#include "fuzz/Fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::fuzzing::check;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    const vornlab::Scenario read = vornlab::scenarioFromText(text, "sent.vorn");
    std::size_t last = 0;
    for (const vornlab::ScenarioStep& step : read.steps) {
      check(step.run && step.line > last, "steps stand in the order of their lines");
      last = step.line;
      check(text.find(step.text) != std::string_view::npos, "a step tells its line as it stands");
    }
    check(last > 0, "something happens");
    const std::string calendar = calendarTextOf(read.setUp);
    check(calendar.starts_with("BEGIN:VCALENDAR"), "it begins with a calendar");
  } catch (const vornlab::ScenarioError& error) {
    check(std::string_view(error.what()).starts_with("sent.vorn:"), "a refusal tells the place");
  }
  return 0;
}

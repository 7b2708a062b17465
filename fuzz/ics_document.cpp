// Calendar files that people bring: an unchanged one is written byte for byte, and a changed one is a calendar
// that holds the change.

#include "fuzz/Fuzzing.h"
#include "lab/ics/IcsDocument.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vorn::fuzzing::check;
  using vornlab::IcsDocument;
  const std::string text(reinterpret_cast<const char*>(data), size);
  vornlab::IcsProblem problem;
  std::optional<IcsDocument> document = IcsDocument::parse(text, problem);
  if (!document) {
    check(problem.line > 0 && !problem.message.empty(), "a refusal tells the line");
    return 0;
  }
  check(document->text() == text, "an unchanged file stays as it is");

  const std::size_t last = document->componentCount() - 1;
  const vornlab::IcsProperty place{
      "LOCATION", {{"LANGUAGE", "en"}}, "Castle\\, größer than before, and a long way off"};
  document->setProperty(last, place);
  const std::optional<IcsDocument> again = IcsDocument::parse(document->text(), problem);
  check(again.has_value(), "a changed file is a calendar");
  check(again->componentCount() == document->componentCount(), "a change makes and drops no component");
  const auto found = again->property(last, "LOCATION");
  check(found && found->value == place.value, "the change is in the file");
  return 0;
}

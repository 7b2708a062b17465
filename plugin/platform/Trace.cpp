#include "platform/Trace.h"

#include <utility>

namespace vorn {

void Trace::noteEnvelope(std::string_view step, Value facts, const CoveredLater& content) {
  facts.set("content", content.coveredAndCut(kBytesAtAGlance));
  if (step == "sent") facts.set("wholeContent", content.covered());
  note(step, facts);
}

}  // namespace vorn

#include "workflow/vnMeetingState.h"

#include "platform/TraceStep.h"

namespace vorn {

void vnMeetingState::setState(std::uint64_t state) {
  if (state != m_State) {
    traceStep("state", [&] {
      return Value::dictionaryFromPairs({{"from", m_State},
                                         {"fromName", nameOfMeetingState(m_State)},
                                         {"to", state},
                                         {"toName", nameOfMeetingState(state)}});
    });
  }
  m_State = state;
}

}  // namespace vorn

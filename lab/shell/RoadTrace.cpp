#include "lab/shell/RoadTrace.h"

namespace vornlab {
namespace {

// Most meeting requests share one number; the operation stands at the head of the content.
bool isCommit(const vorn::Value& envelope) {
  const std::string& content = envelope["content"].text();
  return envelope["action"].integerValue() == 3 && (content.starts_with("1;") || content.starts_with("2;"));
}

// The agent's word about the client's version, which answers no request.
bool isFromAgent(const vorn::Value& envelope) { return envelope["action"].integerValue() == 200; }

}  // namespace

void RoadTrace::note(std::string_view step, const vorn::Value& facts) {
  if (step == "sent") {
    ++sent_;
    if (isCommit(facts)) ++commits_;
  } else if (step == "received") {
    if (!isFromAgent(facts)) ++received_;
    constexpr std::string_view kError = "0;Error ";
    if (const std::string& content = facts["content"].text(); content.starts_with(kError)) {
      refusal_ = content.substr(kError.size());
    }
  } else if (step == "alert") {
    alert_ = facts["message"].text();
  }
  if (listener_) listener_(step, facts);
}

}  // namespace vornlab

#include "tests/road/world/InProcessClient.h"

namespace vorn {

namespace {

constexpr double kAnswerSeconds = 0.05;

}  // namespace

bool InProcessClient::send(const OptionalText& message) {
  const std::optional<vornlab::Envelope> request = message ? vornlab::fromText(*message) : std::nullopt;
  if (!request) return false;
  requests_.push_back(*request);
  for (vornlab::Envelope& reply : service_.handle(*request)) {
    std::optional<vornlab::Envelope> sent = std::move(reply);
    if (interference_) sent = interference_(*request, std::move(*sent));
    if (!sent) continue;
    runLoop_.performAfter(kAnswerSeconds, this, "reply",
                          [this, text = vornlab::toText(*sent)] { handleSocketGetRequestDone_OLPlugin(text); });
  }
  return true;
}

std::vector<std::string> InProcessClient::requestNames() const {
  std::vector<std::string> names;
  for (const vornlab::Envelope& request : requests_) {
    std::string name = std::to_string(request.action);
    if (request.action == vornlab::action::kMeetings) {
      name += "/" + std::to_string(vornlab::Service::operationOf(request));
    }
    names.push_back(name);
  }
  return names;
}

}  // namespace vorn

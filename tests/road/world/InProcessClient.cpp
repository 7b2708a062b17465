#include "tests/road/world/InProcessClient.h"

namespace vorn {

namespace {

std::uint32_t replyActionOf(const vornlab::Envelope& request) {
  const std::uint32_t operation = vornlab::Service::operationOf(request);
  return operation != 0 ? operation : request.action;
}

}  // namespace

bool InProcessClient::send(const OptionalText& message) {
  const std::optional<vornlab::Envelope> request = message ? vornlab::fromText(*message) : std::nullopt;
  if (!request) return false;
  requests_.push_back(*request);
  const auto found = faults_.find(requests_.size());
  const Fault fault = found == faults_.end() ? Fault() : found->second;
  if (fault.meanwhile) fault.meanwhile();
  isSilent_ |= fault.goesSilent;
  if (fault.isLost) return true;
  if (fault.refusal) {
    answer(*request, {replyActionOf(*request), *fault.refusal}, fault);
    return true;
  }
  for (vornlab::Envelope& reply : service_.handle(*request)) {
    if (fault.spoil) reply.content = fault.spoil(std::move(reply.content));
    answer(*request, reply, fault);
  }
  return true;
}

void InProcessClient::answer(const vornlab::Envelope& request, const vornlab::Envelope& reply,
                             const Fault& fault) {
  std::optional<vornlab::Envelope> sent = reply;
  if (interference_) sent = interference_(request, std::move(*sent));
  if (!sent || isSilent_) return;
  for (int i = 0; i < fault.times; ++i) {
    runLoop_.performAfter(fault.answerSeconds, this, "reply",
                          [this, text = vornlab::toText(*sent)] { handleSocketGetRequestDone_OLPlugin(text); });
  }
}

void InProcessClient::heal() {
  faults_.clear();
  isSilent_ = false;
}

void InProcessClient::forgetRequests() {
  requests_.clear();
  faults_.clear();
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

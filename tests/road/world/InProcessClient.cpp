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
  m_requests.push_back(*request);
  const auto found = m_faults.find(m_requests.size());
  const Fault fault = found == m_faults.end() ? Fault() : found->second;
  if (fault.meanwhile) fault.meanwhile();
  m_isSilent |= fault.goesSilent;
  if (fault.isLost) return true;
  if (fault.refusal) {
    answer(*request, {replyActionOf(*request), *fault.refusal}, fault);
    return true;
  }
  for (vornlab::Envelope& reply : m_service.handle(*request)) {
    if (fault.spoil) reply.content = fault.spoil(std::move(reply.content));
    answer(*request, reply, fault);
  }
  return true;
}

void InProcessClient::answer(const vornlab::Envelope& request, const vornlab::Envelope& reply,
                             const Fault& fault) {
  std::optional<vornlab::Envelope> sent = reply;
  if (m_interference) sent = m_interference(request, std::move(*sent));
  if (!sent || m_isSilent) return;
  for (int i = 0; i < fault.times; ++i) {
    m_runLoop.performAfter(fault.answerSeconds, this, "reply",
                           [this, text = vornlab::toText(*sent)] { handleSocketGetRequestDone_OLPlugin(text); });
  }
}

void InProcessClient::heal() {
  m_faults.clear();
  m_isSilent = false;
}

void InProcessClient::forgetRequests() {
  m_requests.clear();
  m_faults.clear();
}

std::vector<std::string> InProcessClient::requestNames() const {
  std::vector<std::string> names;
  for (const vornlab::Envelope& request : m_requests) {
    std::string name = std::to_string(request.action);
    if (request.action == vornlab::action::kMeetings) {
      name += "/" + std::to_string(vornlab::Service::operationOf(request));
    }
    names.push_back(name);
  }
  return names;
}

}  // namespace vorn

#include "lab/client/Desk.h"

#include <chrono>

namespace vornlab {

using nlohmann::json;

std::vector<Desk::Answer> Desk::take(const Envelope& request, std::size_t bytes, const json& way,
                                     const json& wayBack) {
  using Clock = std::chrono::steady_clock;
  const auto begin = Clock::now();
  const std::uint32_t operation = Service::operationOf(request);
  std::vector<Answer> answers;
  for (Envelope& reply : m_service.handle(request)) {
    answers.push_back({std::move(reply), m_faults.next(request.action, operation)});
  }
  if (!m_journal.isKept()) return answers;
  const auto micros = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin).count();

  json members = way;
  members.update({{"action", request.action}, {"bytes", bytes}, {"content", coveredRequest(request)}});
  if (operation != 0) members["operation"] = operation;
  m_journal.note("request", std::move(members));
  for (const auto& [reply, faults] : answers) {
    members = wayBack;
    members.update({{"action", reply.action},
                    {"to", request.action},
                    {"bytes", reply.content.size()},
                    {"micros", micros},
                    {"content", coveredReply(reply)}});
    for (const Fault& fault : faults) members["faults"].push_back(fault.words);
    m_journal.note("reply", std::move(members));
  }
  return answers;
}

}  // namespace vornlab

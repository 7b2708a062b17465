#include "lab/inprocess/InProcessSocket.h"

#include "channel/transport/vnIPCConstants.h"

namespace vornlab {

void InProcessSocket::connect() {
  if (m_isHeld) return;
  m_isHeld = true;
  m_assembler = {};
  m_connection = m_client.accept([this](const std::string& bytes) { read(bytes); });
}

void InProcessSocket::hangUp() {
  if (!m_isHeld) return;
  m_isHeld = false;
  m_client.hangUp(m_connection);
}

bool InProcessSocket::send(const vorn::OptionalText& message) {
  if (!m_isHeld) {
    connect();
    return false;
  }
  if (!message || message->empty() || message->size() >= vorn::kIPCSendBufferSize) return false;
  m_client.take(m_connection, *message);
  return true;
}

void InProcessSocket::read(std::string_view bytes) {
  constexpr std::size_t kMost = vorn::kIPCReceiveBufferSize - 1;
  for (; !bytes.empty(); bytes.remove_prefix(std::min(kMost, bytes.size()))) {
    if (const auto message = m_assembler.feed(bytes.substr(0, kMost))) {
      handleSocketGetRequestDone_OLPlugin(*message);
    }
  }
}

}  // namespace vornlab

#pragma once

#include "channel/transport/MessageAssembler.h"
#include "channel/transport/vSocketClientImpl.h"
#include "lab/inprocess/InProcessClient.h"

namespace vornlab {

// The plug-in's connection to the client in this process. Its states are those of the real one: a peer that is
// gone stays unnoticed, and only a message without a connection brings one about.
class InProcessSocket final : public vorn::vSocketClientImpl {
 public:
  // The client outlives this.
  explicit InProcessSocket(InProcessClient& client) : m_client(client) {}
  ~InProcessSocket() override { hangUp(); }

  void connect() override;
  void disconnect() override { hangUp(); }
  bool send(const vorn::OptionalText& message) override;

 private:
  void hangUp();
  void read(std::string_view bytes);

  InProcessClient& m_client;
  bool m_isHeld = false;
  // 0 when nobody listened.
  int m_connection = 0;
  vorn::MessageAssembler m_assembler;
};

}  // namespace vornlab

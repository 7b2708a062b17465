#pragma once

#include <memory>
#include <string>

#include "platform/ClassRuntime.h"

// A host with one event of the class "ECCalendarEvent", for measuring what a call to it costs.
//
// The event answers isOccurrence with a flag, olmUCInband with a record of a few hundred bytes, and
// setOlmUCInband: takes one. It answers hookedIsOccurrence, hookedOlmUCInband and setHookedOlmUCInband: with the
// very same methods; those are there to be hooked.
class HookedHost {
 public:
  virtual ~HookedHost() = default;

  virtual vorn::ClassRuntime& runtime() = 0;
  virtual vorn::HostObject event() = 0;

  // Each calls as the host does itself, without the port, a method that nobody has hooked or one that is hooked.
  virtual void readFlag(bool hooked) = 0;
  virtual void readRecord(bool hooked) = 0;
  virtual void writeRecord(bool hooked) = 0;

  static std::string record() {
    return "{\"meetingKey\":\"123456789\",\"text\":\"" + std::string(300, 'x') + "\"}";
  }
};

std::unique_ptr<HookedHost> makeObjectiveCHost();

#include "lab/shell/scenario/ClientJournal.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>

namespace vornlab {
namespace {

using nlohmann::json;

// What the agent says, and what it is asked, is no part of the conversation about meetings.
constexpr int kVersion = 200;
constexpr int kStartMeeting = 2;

bool isOneOf(const std::string& fault, std::initializer_list<const char*> names) {
  const std::string name = fault.substr(0, fault.find(' '));
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool anyFault(const json& reply, std::initializer_list<const char*> names) {
  const auto faults = reply.find("faults");
  return faults != reply.end() && std::any_of(faults->begin(), faults->end(), [&](const json& fault) {
           return isOneOf(fault.get<std::string>(), names);
         });
}

}  // namespace

void ClientJournal::begin(bool isConnected) {
  read();
  m_answered = 0;
  m_sureReplies = 0;
  m_doubtfulReplies = 0;
  if (!isConnected) m_connections = 0;
}

void ClientJournal::read() {
  std::ifstream file(m_path, std::ios::binary);
  file.seekg(static_cast<std::streamoff>(m_position));
  for (std::string line; std::getline(file, line) && !file.eof();) {
    m_position += line.size() + 1;
    take(line);
  }
}

void ClientJournal::take(const std::string& line) {
  const json entry = json::parse(line, nullptr, false);
  if (!entry.is_object()) return;
  const std::string event = entry.value("event", "");
  if (event == "connected") ++m_connections;
  if (event == "closed") --m_connections;
  if (event == "launched" || event == "launch failed") m_agentActs.push_back(event);
  if (event == "about") m_agentActs.push_back(event + " " + entry.value("version", ""));
  if (event == "malformed") ++m_answered;
  if (event == "request" && entry.value("action", 0) == kStartMeeting) ++m_answered;
  if (event != "reply" || !entry.contains("to") || entry.value("action", 0) == kVersion) return;
  ++m_answered;
  if (anyFault(entry, {"silent", "close", "restart", "die"})) return;
  if (anyFault(entry, {"truncate", "not-utf8", "glue", "grow"})) {
    ++m_doubtfulReplies;
  } else {
    ++m_sureReplies;
    if (anyFault(entry, {"twice"})) ++m_doubtfulReplies;
  }
}

}  // namespace vornlab

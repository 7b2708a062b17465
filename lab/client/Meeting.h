#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

namespace vornlab {

// One meeting as the service keeps it.
struct Meeting {
  std::int64_t number = 0;  // 0: the defaults of a new meeting
  std::string appointment;  // the host program's UUID of the appointment, or empty
  std::string subject;      // as committed; an empty one stays empty here
  std::int64_t start = 0;   // seconds since 1970
  std::string minutes;      // decimal text
  bool recurring = false;
  std::string timezone;   // IANA name, or empty
  std::string passcode;   // empty: none
  std::string token;      // stands for the passcode in the join URL; changes only with it
  std::string language;   // of the invitation, or empty
  std::string hostEmail;  // of the person scheduled for; empty: the account itself
  bool personal = false;  // uses a personal meeting ID
  nlohmann::json settings = nlohmann::json::object();  // the other options, as committed
};

}  // namespace vornlab

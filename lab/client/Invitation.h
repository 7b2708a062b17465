#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vornlab {

// What an invitation tells. The same values always give the same texts, byte for byte.
struct InvitationFacts {
  std::string hostName;
  std::string topic;
  std::int64_t start = 0;  // seconds since 1970; 0: no time is told
  std::string timezone;    // IANA name; an unknown or empty one is told as UTC
  bool recurring = false;
  std::string number;    // digits
  std::string passcode;  // empty: none is told
  std::string joinUrl;
  std::string language;  // "en-US", "de-DE", ...; a language that is not known gives English
  bool telephony = true;
  bool tollFree = false;
  std::vector<std::string> countries;  // whose dial-in numbers are told
  std::string otherAudio;              // told in place of numbers when not empty
};

struct Invitation {
  std::string plain;
  std::string html;  // a fragment for the inside of a body
};

Invitation makeInvitation(const InvitationFacts& facts);

// The digits in groups, as people read them: 123 456 7890 and 123 4567 8901.
std::string grouped(const std::string& digits);

std::string escapeHtml(const std::string& text);

}  // namespace vornlab

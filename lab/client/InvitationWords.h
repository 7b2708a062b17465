#pragma once

#include <string>
#include <vector>

namespace vornlab {

// The fixed words of an invitation in one language. "%1" stands for what is filled in.
struct InvitationWords {
  const char* language;     // "en"
  const char* datePattern;  // as ICU writes it
  const char* invites;      // %1: the host
  const char* topic;
  const char* time;
  const char* every;  // told of a series
  const char* join;
  const char* meetingId;
  const char* passcode;
  const char* oneTap;
  const char* dial;
  const char* tollFree;
  const char* findNumber;
  const char* sip;
  const char* roomSystem;
  const char* otherAudio;
  const char* keepPrivate;
  const char* firstTime;
  const char* help;
};

// The words of the language, by its first two letters; English when there are none.
const InvitationWords& invitationWords(const std::string& language);

struct DialInNumber {
  std::string number;
  std::string place;
  bool tollFree = false;
};

// Numbers of a country: invented ones, always the same.
std::vector<DialInNumber> dialInNumbers(const std::string& country, bool withTollFree);

}  // namespace vornlab

#pragma once

// What the wire messages hold, as plain records. All texts are UTF-8.

#include <cstdint>
#include <string>
#include <vector>

#include "util/Value.h"

namespace vorn {

struct _sTrackingField {
  std::string id;
  // The label, the values that the account offers, and the value that is chosen.
  std::string trackField;
  std::string trackValue;
  std::string mtValue;
  bool required = false;
};

struct _sTspAccount_ {
  std::string tspAccountIndex;
  std::string hostPasscode;
  std::string participantPasscode;
  std::int32_t passcodeType = 0;
  std::vector<std::string> tspNumber;
};

struct _sAlternateHost_ {
  std::string id;
  std::string email;
  std::string firstName;
  std::string lastName;
  // Nothing fills it.
  std::string picUrl;
  std::int64_t option = 0;
};

struct _sAvailableDialinCountry_ {
  // Empty when the message had no such part.
  std::string hash;
  bool includeTollfree = false;
  // Stays empty: only the account's profile tells all countries.
  std::vector<std::string> allCountries;
  std::vector<std::string> selectedCountries;
  bool showIncludeTollfree = false;
};

struct _sAuthDomainInfo_ {
  std::string authId;
  std::string authName;
  std::int32_t authType = 0;
  // Stays 0.
  std::int32_t reserved = 0;
  std::string authDomain;
};

struct _sMeetingTemplate_ {
  std::string templateId;
  std::int32_t templateType = 0;
  std::string templateName;
};

struct _sJoinMeetingRegionPolicy_ {
  // 0 means that the listed regions are allowed, any other value that they are blocked.
  std::int32_t regionType = 0;
  std::vector<std::string> regionCodes;
};

// The field as the settings dictionary holds it.
Value trackingFieldDictionary(const _sTrackingField& field);
// The texts as an array.
Value textArray(const std::vector<std::string>& texts);

}  // namespace vorn

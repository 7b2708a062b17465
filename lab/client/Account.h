#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "lab/client/AccountOptions.h"

namespace vornlab {

// An account file that cannot be used. The message names the file's key and says what is wrong with it.
class AccountError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Tracking {
  std::string id;
  std::string label;
  std::vector<std::string> choices;
  std::string chosen;
  bool required = false;
};

struct DialInPolicy {
  std::string hash;
  std::vector<std::string> all;
  std::vector<std::string> selected;
  bool tollFree = false;
  bool offerTollFree = false;
};

struct TelephonyAccount {
  std::string index;
  std::string hostPasscode;
  std::string participantPasscode;
  int passcodeType = 0;
  std::vector<std::string> numbers;
};

struct PhoneNumber {
  std::string label;
  std::string number;
};

struct AudioConference {
  std::int64_t number = 0;
  std::vector<PhoneNumber> tollFree;
  std::vector<PhoneNumber> toll;
  std::string dedicatedNumber;
  std::string location;
  // The forms in which its invitation comes; one that is turned off has none.
  bool hasPlainInvitation = true;
  bool hasHtmlInvitation = true;
};

// What the account and each person scheduled for may set alike.
struct Policy {
  OptionWords options{};
  DialInPolicy dialIn;
  nlohmann::json templates;  // null, or the array that replies carry
  std::string templateLink;
  nlohmann::json joinRegions;    // null, or the object that replies carry
  nlohmann::json dataCentres;    // null, or the array that replies carry
  nlohmann::json maximumDialIn;  // null, or the object that replies carry
};

struct Person {
  std::string hostId;
  std::string name;
  std::string email;
  std::string personalId;  // digits, or empty
  Policy policy;
};

// The signed-in account: who it is, what it may do, and whom it schedules for.
//
// The default-constructed account is empty; plain() is the one to use when no file is named.
struct Account {
  std::string userId;
  std::string name;
  std::string email;
  std::int64_t personalId = 0;
  int type = 2;
  bool canUpgrade = false;
  bool telephonyOff = false;
  Policy policy;
  std::string thirdPartyAudio;
  std::string joinDomains;
  std::vector<Tracking> tracking;
  std::string providerName;  // empty: no telephony service provider
  bool providerHybrid = false;
  std::vector<TelephonyAccount> telephonyAccounts;
  std::vector<Person> people;
  std::vector<AudioConference> conferences;
  std::vector<std::string> refusedAlternateHosts;
  bool withoutProto = false;
  nlohmann::json profile = nlohmann::json::object();  // further members of the profile reply, as they go out

  // The account of accounts/plain.json, compiled in.
  static Account plain();

  // From the text of an account file: JSON in which // and /* */ comments may stand. Throws AccountError on bad
  // JSON, on a key that is not known and on a value of the wrong kind.
  static Account fromText(std::string_view text);

  // The same from a file. Throws AccountError also when the file cannot be read; messages begin with the path.
  static Account fromFile(const std::string& path);

  // The person with that e-mail in any case of letters, or null.
  const Person* findPerson(std::string_view email) const;
};

extern const char* const kPlainAccount;

}  // namespace vornlab

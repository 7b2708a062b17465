#include "lab/client/Account.h"

#include <strings.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "lab/client/AccountReader.h"

namespace vornlab {
namespace {

using nlohmann::json;

void readOptions(AccountReader& reader, OptionWords& words) {
  reader.object("options", [&](AccountReader& options) {
    for (const auto& item : options.value().items()) {
      const AccountOption* option = findAccountOption(item.key());
      if (option != nullptr) set(words, *option, options.flag(item.key()));
    }
  });
}

void readDialIn(AccountReader& reader, DialInPolicy& dialIn) {
  reader.object("dialIn", [&](AccountReader& r) {
    dialIn.hash = r.text("hash");
    dialIn.all = r.texts("all");
    dialIn.selected = r.texts("selected");
    dialIn.tollFree = r.flag("tollFree");
    dialIn.offerTollFree = r.flag("offerTollFree");
  });
}

// The parts that an account and a person have in common, in the form in which replies carry them.
void readPolicy(AccountReader& reader, Policy& policy) {
  readOptions(reader, policy.options);
  readDialIn(reader, policy.dialIn);

  auto templates = json::array();
  const bool hasTemplates = reader.objects("templates", [&](AccountReader& r) {
    templates.push_back(
        {{"templateId", r.text("id")}, {"templateName", r.text("name")}, {"templateType", r.number("type", 1)}});
  });
  if (hasTemplates) policy.templates = std::move(templates);
  policy.templateLink = reader.text("templateLink");

  reader.object("joinRegions", [&](AccountReader& r) {
    const int type = r.word("policy", {"allow", "block"});
    const auto codes = r.texts("codes");
    policy.joinRegions = {{"RegionPolicy", {{"regionType", type}, {"regionCodes", codes}}}};
    policy.joinRegions["totalRegionCodes"] = r.texts("all");
    policy.joinRegions["defaultRegionCode"] = r.text("default");
  });

  auto centres = json::array();
  const bool hasCentres = reader.objects("dataCentres", [&](AccountReader& r) {
    centres.push_back({{"dc", r.text("code")}, {"name", r.text("name")}});
  });
  if (hasCentres) policy.dataCentres = std::move(centres);

  reader.object("maximumDialIn", [&](AccountReader& r) {
    auto byCentre = json::array();
    r.objects("byDataCentre", [&](AccountReader& entry) {
      byCentre.push_back({{"dcName", entry.text("code")}, {"dcCountries", entry.texts("countries")}});
    });
    policy.maximumDialIn = {{"maximumDialinCountries", r.texts("countries")}, {"pstnDcWithCountries", byCentre}};
  });
}

void readUser(AccountReader& reader, Account& account) {
  reader.object("user", [&](AccountReader& r) {
    account.userId = r.text("id");
    account.name = r.text("name");
    account.email = r.text("email");
    account.type = static_cast<int>(r.number("type", 2));
    account.personalId = std::strtoll(r.digits("personalId").c_str(), nullptr, 10);
    account.canUpgrade = r.flag("canUpgrade");
    account.telephonyOff = r.flag("telephonyOff");
  });
}

void readTracking(AccountReader& reader, std::vector<Tracking>& fields) {
  reader.objects("tracking", [&](AccountReader& r) {
    fields.push_back({r.text("id"), r.text("label"), r.texts("choices"), r.text("chosen"), r.flag("required")});
  });
}

void readTelephonyProvider(AccountReader& reader, Account& account) {
  reader.object("telephonyProvider", [&](AccountReader& r) {
    account.providerName = r.text("name");
    account.providerHybrid = r.flag("hybrid");
    r.objects("accounts", [&](AccountReader& entry) {
      account.telephonyAccounts.push_back(
          {entry.text("index"), entry.text("hostPasscode"), entry.text("participantPasscode"),
           static_cast<int>(entry.number("passcodeType")), entry.texts("numbers")});
    });
  });
}

std::vector<PhoneNumber> readNumbers(AccountReader& reader, const std::string& name) {
  std::vector<PhoneNumber> numbers;
  reader.objects(name, [&](AccountReader& r) { numbers.push_back({r.text("label"), r.text("number")}); });
  return numbers;
}

void readConferences(AccountReader& reader, std::vector<AudioConference>& conferences) {
  reader.objects("audioConferences", [&](AccountReader& r) {
    AudioConference conference{std::strtoll(r.digits("number").c_str(), nullptr, 10), readNumbers(r, "tollFree"),
                               readNumbers(r, "toll"), r.text("dedicatedNumber"), r.text("location")};
    const int invitation = r.word("invitation", {"html", "plain", "none"});
    conference.hasPlainInvitation = invitation < 2;
    conference.hasHtmlInvitation = invitation == 0;
    conferences.push_back(std::move(conference));
  });
}

void readPeople(AccountReader& reader, std::vector<Person>& people) {
  reader.objects("people", [&](AccountReader& r) {
    Person person{r.text("hostId"), r.text("name"), r.text("email"), r.digits("personalId"), {}};
    readPolicy(r, person.policy);
    people.push_back(std::move(person));
  });
}

// Bits of a word that is given as a list of names.
std::int64_t readBits(AccountReader& reader, const std::string& name,
                      std::initializer_list<std::string_view> bits) {
  std::int64_t word = 0;
  for (const auto& given : reader.texts(name)) {
    const auto* const found = std::find(bits.begin(), bits.end(), given);
    if (found == bits.end()) throw AccountError("unknown key '" + reader.pathOf(name) + "." + given + "'");
    word |= std::int64_t{1} << (found - bits.begin());
  }
  return word;
}

void readPasscode(AccountReader& reader, json& profile) {
  reader.object("passcode", [&](AccountReader& r) {
    profile["passwordMinLength"] = r.number("minLength");
    profile["passwordRulesOption"] =
        readBits(r, "rules",
                 {"digitsOnly", "leastLength", "letter", "digit", "special", "upperAndLower", "noConsecutiveRun"});
    profile["passwordConsecutiveLength"] = r.number("consecutiveLength");
  });
}

void readSignIn(AccountReader& reader, json& profile) {
  reader.object("signIn", [&](AccountReader& r) {
    profile["supportOnlyAuthUsersCanJoin"] = r.flag("offered");
    profile["defaultEnableOnlyAuthUsersCanJoin"] = r.flag("on");
    profile["lockOnlyAuthUsersCanJoin"] = r.flag("locked");
    auto choices = json::array();
    r.objects("choices", [&](AccountReader& entry) {
      choices.push_back({{"authId", entry.text("id")},
                         {"authName", entry.text("name")},
                         {"authType", entry.number("type")},
                         {"authDomain", entry.text("domains")},
                         {"defaultAuth", entry.flag("default")}});
    });
    profile["meetingAuths"] = choices;
  });
}

void readUpgrade(AccountReader& reader, json& profile) {
  reader.object("upgrade", [&](AccountReader& r) {
    profile["upgradeInfo"] = {{"isShowUpgradeLink", r.flag("showLink") ? 1 : 0},
                              {"upgradeLink", r.text("link")},
                              {"contactName", r.text("contactName")},
                              {"contactEmail", r.text("contactEmail")}};
  });
}

void readLinks(AccountReader& reader, json& profile) {
  reader.object("links", [&](AccountReader& r) {
    profile["publiceventlisturl"] = r.text("publicEvents");
    profile["trashCanLink"] = r.text("trashCan");
    profile["profileSettingURL"] = r.text("profileSettings");
    profile["vornDomain"] = r.text("domain", "vorn.example");
  });
}

// Booleans of the profile reply that outrank the option bit of the same meaning.
void readOverrides(AccountReader& reader, json& profile) {
  reader.object("overrides", [&](AccountReader& r) {
    for (const char* name :
         {"isEnableForcePMIJBHWithPassword", "isEnableRequirePassword", "isEnablePMIRequirePassword",
          "isLockScheduleRequirePassword", "isLockPMIRequirePassword", "isDisablePMI"}) {
      if (r.find(name) != nullptr) profile[name] = r.flag(name);
    }
  });
}

// Of a byte, counted from 1, as an editor tells it.
std::string placeOf(std::size_t byte, std::string_view text) {
  const std::string_view before = text.substr(0, byte == 0 ? 0 : byte - 1);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t column =
      before.size() - (before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1);
  return "line " + std::to_string(line) + ", column " + std::to_string(column + 1);
}

}  // namespace

Account Account::plain() { return fromText(kPlainAccount); }

Account Account::fromText(std::string_view text) {
  json document;
  try {
    document = json::parse(text, nullptr, true, true);
  } catch (const json::parse_error& error) {
    throw AccountError("this is no JSON from " + placeOf(error.byte, text) + " on");
  } catch (const json::exception&) {
    throw AccountError("this JSON has a number that is too large");
  }

  Account account;
  AccountReader reader(document, "");
  readUser(reader, account);
  readPolicy(reader, account.policy);
  readTracking(reader, account.tracking);
  readTelephonyProvider(reader, account);
  readConferences(reader, account.conferences);
  readPeople(reader, account.people);
  account.thirdPartyAudio = reader.text("thirdPartyAudio");
  account.joinDomains = reader.text("joinDomains");
  account.refusedAlternateHosts = reader.texts("refusedAlternateHosts");
  account.withoutProto = reader.flag("withoutProto");

  readPasscode(reader, account.profile);
  readSignIn(reader, account.profile);
  readUpgrade(reader, account.profile);
  readLinks(reader, account.profile);
  readOverrides(reader, account.profile);
  account.profile["jbhPriorTime"] = reader.number("joinBeforeHostMinutes", 5);
  account.profile["isTaiWanZH"] = reader.flag("taiwan");
  account.profile["supportFeatureOptions"] =
      readBits(reader, "features", {"editCountries", "invitationAtTop", "requirePasscode", "paidUserForCn"});
  reader.finish();
  return account;
}

Account Account::fromFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  // Nothing to copy counts as a failure, too; of an empty text it is told what is missing in it.
  const bool isEmpty = file && file.peek() == std::ifstream::traits_type::eof() && !file.bad();
  if (!isEmpty && !(text << file.rdbuf())) throw AccountError(path + ": cannot be read");
  try {
    return fromText(text.str());
  } catch (const AccountError& error) {
    throw AccountError(path + ": " + error.what());
  }
}

const Person* Account::findPerson(std::string_view email) const {
  const std::string wanted(email);
  for (const auto& person : people) {
    if (strcasecmp(person.email.c_str(), wanted.c_str()) == 0) return &person;
  }
  return nullptr;
}

}  // namespace vornlab

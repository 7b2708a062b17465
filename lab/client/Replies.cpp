#include "lab/client/Replies.h"

#include "lab/client/Base64.h"
#include "lab/client/Settings.h"
#include "service.pb.h"

namespace vornlab {
namespace {

using nlohmann::json;

// Audio options of a commit.
constexpr std::int64_t kVoipOnly = 1;
constexpr std::int64_t kThirdParty = 3;
constexpr std::int64_t kBoth = 2;
constexpr std::int64_t kProviderVoipOnly = 3;

std::int64_t asSigned(std::uint64_t word) { return static_cast<std::int64_t>(word); }

const Person* hostOf(const Account& account, const Meeting& meeting) {
  return meeting.hostEmail.empty() ? nullptr : account.findPerson(meeting.hostEmail);
}

const Policy& policyOf(const Account& account, const Meeting& meeting) {
  const Person* host = hostOf(account, meeting);
  return host == nullptr ? account.policy : host->policy;
}

std::string hostNameOf(const Account& account, const Meeting& meeting) {
  const Person* host = hostOf(account, meeting);
  if (host == nullptr) return account.name;
  return host->name.empty() ? host->email : host->name;
}

std::string topicOf(const Account& account, const Meeting& meeting) {
  return meeting.subject.empty() ? hostNameOf(account, meeting) + "'s Vorn Meeting" : meeting.subject;
}

// The choice made for this meeting, or the host's own where the commit said nothing.
DialInPolicy dialInOf(const Account& account, const Meeting& meeting) {
  DialInPolicy dialIn = policyOf(account, meeting).dialIn;
  const auto& chosen = memberOf(meeting.settings, "availableDialinCountry");
  if (!chosen.is_object()) return dialIn;
  dialIn.hash = textOf(chosen, "hash");
  dialIn.tollFree = flagOf(chosen, "includedTollfree");
  dialIn.selected = listOf(chosen, "selectedCountries");
  return dialIn;
}

std::string otherAudioOf(const Account& account, const Meeting& meeting) {
  const auto& settings = meeting.settings;
  if (settings.contains("tspAudioOption") && !account.telephonyAccounts.empty()) {
    const auto option = numberOf(settings, "tspAudioOption");
    const bool second = option == 2 || option == 5;
    const auto& accounts = account.telephonyAccounts;
    const auto& used = accounts[second && accounts.size() > 1 ? 1 : 0];
    if (option == kProviderVoipOnly) return {};
    std::string text = account.providerName;
    for (const auto& number : used.numbers) text += "\n" + number;
    return text + "\n" + used.participantPasscode;
  }
  return numberOf(settings, "audioOption", kBoth) == kThirdParty ? textOf(settings, "thirdPartyAudio")
                                                                 : std::string();
}

bool telephonyOf(const Meeting& meeting) {
  if (meeting.settings.contains("tspAudioOption")) {
    return numberOf(meeting.settings, "tspAudioOption") != kProviderVoipOnly;
  }
  return numberOf(meeting.settings, "audioOption", kBoth) != kVoipOnly;
}

// The bits of the meeting's option words.
std::uint64_t bit(bool value, int position) { return value ? std::uint64_t{1} << position : 0; }

void packOptions(const json& settings, service::Meeting& packed) {
  const auto on = [&](const char* name) { return flagOf(settings, name); };
  packed.set_options(asSigned(bit(on("isSignedInUsersMeetingOn"), 59)));
  packed.set_options2(asSigned(bit(on("muteOnEntry"), 5) | bit(on("enableAutoRecordingLocal"), 18) |
                               bit(on("enableAutoRecordingCloud"), 19) |
                               bit(on("enableAutoRecordingMtgLevelFirst"), 20) |
                               bit(on("enableMeetingToPublicEvent"), 21) | bit(on("enableWaitingRoom"), 34) |
                               bit(on("supportWaitingRoom"), 35) | bit(on("enableAudioWatermark"), 49)));
  packed.set_options3(asSigned(bit(on("enableRegionCustomization"), 53)));
  packed.set_options4(asSigned(bit(on("enableE2ee"), 8) | bit(on("enableUnmuteAll"), 9) |
                               bit(on("enableAllowDenyJoinMeetingRegion"), 32)));
}

void packHosts(const json& settings, service::Meeting& packed) {
  for (const auto& email : listOf(settings, "alternateHosts")) {
    auto* host = packed.add_alternate_hosts();
    host->set_id("host:" + email);
    host->set_email(email);
    host->set_first_name(email.substr(0, email.find('@')));
    host->set_last_name("");
  }
}

void packTracking(const json& settings, service::Meeting& packed) {
  const auto& fields = memberOf(settings, "trackingFields");
  if (!fields.is_array()) return;
  for (const auto& field : fields) {
    auto* tracking = packed.add_tracking();
    tracking->set_id(textOf(field, "id"));
    tracking->set_required(flagOf(field, "required"));
    tracking->set_label(textOf(field, "trackingField"));
    tracking->set_choices(textOf(field, "trackingValue"));
    tracking->set_chosen(textOf(field, "mtValue"));
  }
}

void packDialIn(const DialInPolicy& dialIn, service::Meeting& packed) {
  if (dialIn.hash.empty()) return;
  auto* packedDialIn = packed.mutable_dial_in();
  packedDialIn->set_hash(dialIn.hash);
  packedDialIn->set_toll_free(dialIn.tollFree);
  packedDialIn->set_offer_toll_free(dialIn.offerTollFree);
  for (const auto& country : dialIn.selected) packedDialIn->add_selected(country);
}

void packChoices(const json& settings, service::Meeting& packed) {
  const auto& signIn = memberOf(settings, "meetingAuth");
  if (signIn.is_object()) {
    packed.mutable_sign_in()->set_id(textOf(signIn, "authId"));
    packed.mutable_sign_in()->set_name(textOf(signIn, "authName"));
    packed.mutable_sign_in()->set_type(static_cast<int>(numberOf(signIn, "authType")));
    packed.mutable_sign_in()->set_domain(textOf(signIn, "authDomain"));
    packed.set_join_domains(textOf(signIn, "authDomain"));
  }
  const auto& chosen = memberOf(settings, "meetingTemplate");
  if (chosen.is_object()) {
    packed.mutable_template_()->set_id(textOf(chosen, "templateId"));
    packed.mutable_template_()->set_type(static_cast<int>(numberOf(chosen, "templateType")));
    packed.mutable_template_()->set_name(textOf(chosen, "templateName"));
  }
  const auto& regions = memberOf(settings, "RegionPolicy");
  if (regions.is_object()) {
    packed.mutable_join_regions()->set_type(static_cast<int>(numberOf(regions, "regionType")));
    for (const auto& code : listOf(regions, "regionCodes")) packed.mutable_join_regions()->add_codes(code);
  }
  for (const auto& centre : listOf(settings, "additionalDCRegions")) packed.add_data_centres(centre);
}

std::string packedMeeting(const Account& account, const Meeting& meeting, const std::string& htmlInvitation) {
  const Person* host = hostOf(account, meeting);
  service::Meeting packed;
  packed.set_host_id(host == nullptr ? account.userId : host->hostId);
  packed.set_host_email(host == nullptr ? account.email : host->email);
  packed.set_host_name(hostNameOf(account, meeting));
  packed.set_topic(topicOf(account, meeting));
  packed.set_number(joinNumber(account, meeting));
  packed.set_join_url(joinUrl(account, meeting));
  packed.set_timezone(meeting.timezone);
  packOptions(meeting.settings, packed);
  packHosts(meeting.settings, packed);
  packTracking(meeting.settings, packed);
  packDialIn(dialInOf(account, meeting), packed);
  packChoices(meeting.settings, packed);
  packed.set_html_invitation(htmlInvitation);
  json extra = json::object();
  if (!meeting.appointment.empty()) extra["olApptUUID"] = meeting.appointment;
  packed.set_extra(extra.dump());
  return packed.SerializeAsString();
}

json jsonLayer(const Account& account, const Meeting& meeting, const std::string& plainInvitation) {
  const auto& settings = meeting.settings;
  const std::int64_t shown = joinNumber(account, meeting);
  json layer = {
      {"subject", meeting.number == 0 ? "" : topicOf(account, meeting)},
      {"duration", meeting.minutes},
      {"recurrence", meeting.recurring},
      {"startTime", meeting.start},
      {"enableHostVideo", flagOf(settings, "enableHostVideo")},
      {"enableParticipantsVideo", flagOf(settings, "enableParticipantsVideo")},
      {"enableJBH", flagOf(settings, "enableJBH")},
      {"jbhPriorTime", numberOf(settings, "jbhPriorTime")},
      {"usePMI", meeting.personal},
      {"meetingPassword", meeting.passcode},
      {"meetingKey", meeting.number == 0 ? "" : std::to_string(shown)},
      {"originalMeetingNumber", shown == meeting.number ? "0" : std::to_string(meeting.number)},
      {"invitationEmail", plainInvitation},
      {"joinUrl", joinUrl(account, meeting)},
  };
  if (settings.contains("tspAudioOption")) {
    layer["tspAudioOption"] = numberOf(settings, "tspAudioOption");
  } else {
    layer["audioOption"] = numberOf(settings, "audioOption", kBoth);
  }
  const bool thirdParty = numberOf(layer, "audioOption") == kThirdParty;
  layer["enable3rdPartyAudio"] = thirdParty;
  layer["thirdPartyAudio"] = thirdParty ? textOf(settings, "thirdPartyAudio") : std::string();
  // Empty for a meeting of one's own, which a reader without a profile could not tell from the host's id.
  layer["scheduleFor"] = meeting.hostEmail;
  return layer;
}

json dialInMember(const DialInPolicy& dialIn) {
  return {{"hash", dialIn.hash},
          {"includedTollfree", dialIn.tollFree},
          {"enableShowIncludeTollfree", dialIn.offerTollFree},
          {"selectedCountries", dialIn.selected},
          {"allCountries", dialIn.all}};
}

void addPolicy(const Policy& policy, json& object) {
  if (!policy.dialIn.hash.empty()) object["availableDialinCountry"] = dialInMember(policy.dialIn);
  if (!policy.templates.is_null()) object["meetingTemplates"] = policy.templates;
  if (!policy.templateLink.empty()) object["templateLinkWithoutId"] = policy.templateLink;
  if (!policy.joinRegions.is_null()) object["joinMeetingRegionSetting"] = policy.joinRegions;
  if (!policy.dataCentres.is_null()) object["webUncheckedDCInfos"] = policy.dataCentres;
  if (!policy.maximumDialIn.is_null()) object["maximumDialinCountry"] = policy.maximumDialIn;
}

json personMember(const Person& person) {
  return {{"email", person.email},
          {"displayName", person.name},
          {"hostId", person.hostId},
          {"pmi", person.personalId},
          {"disablePmi", isSet(person.policy.options, "personalIdDisabled")}};
}

std::string packedProfile(const Account& account) {
  const auto& words = account.policy.options;
  service::Profile packed;
  packed.set_id(account.userId);
  packed.set_name(account.name);
  packed.set_email(account.email);
  packed.set_type(account.type);
  packed.set_can_upgrade(account.canUpgrade ? 1 : 0);
  packed.set_room_meeting_id(account.personalId);
  if (account.telephonyOff) packed.set_telephony_off(1);
  packed.set_options(asSigned(words[0]));
  packed.set_options2(asSigned(words[1]));
  packed.set_options3(asSigned(words[2]));
  packed.set_options4(asSigned(words[3]));
  packed.set_options5(asSigned(words[4]));
  packed.set_third_party_audio(account.thirdPartyAudio);
  packed.set_join_domains(account.joinDomains);
  for (const auto& field : account.tracking) {
    auto* tracking = packed.add_tracking();
    tracking->set_id(field.id);
    tracking->set_required(field.required);
    tracking->set_label(field.label);
    std::string choices;
    for (const auto& choice : field.choices) choices += (choices.empty() ? "" : "^^^") + choice;
    tracking->set_choices(choices);
    tracking->set_chosen(field.chosen);
  }
  if (!account.providerName.empty()) {
    packed.mutable_provider()->set_name(account.providerName);
    packed.mutable_provider()->set_hybrid(account.providerHybrid);
  }
  for (const auto& telephony : account.telephonyAccounts) {
    auto* packedAccount = packed.add_accounts();
    packedAccount->set_index(telephony.index);
    packedAccount->set_host_passcode(telephony.hostPasscode);
    packedAccount->set_participant_passcode(telephony.participantPasscode);
    packedAccount->set_passcode_type(telephony.passcodeType);
    for (const auto& number : telephony.numbers) packedAccount->add_numbers(number);
  }
  return packed.SerializeAsString();
}

// The members that stand in for the packed profile.
void addPlainMembers(const Account& account, json& profile) {
  const auto& words = account.policy.options;
  const bool telephony = !account.telephonyOff;
  profile["userId"] = account.userId;
  profile["roomMeetingId"] = std::to_string(account.personalId);
  profile["thirdPartyAudio"] = account.thirdPartyAudio;
  profile["enablePSTN"] = telephony;
  profile["enableThirdPartyAudio"] = telephony && isSet(words, "telephony");
  profile["use3rdPartyAsDefaultAudio"] = isSet(words, "telephony") && isSet(words, "defaultAudioThirdParty");
  profile["useRandomPasswordByDefault"] = isSet(words, "randomPasscode");
  profile["userOption"] = asSigned(words[0]);
}

void packNumbers(const std::vector<PhoneNumber>& numbers,
                 google::protobuf::RepeatedPtrField<service::PhoneNumber>& packed) {
  for (const auto& number : numbers) {
    auto* added = packed.Add();
    added->set_label(number.label);
    added->set_number(number.number);
  }
}

}  // namespace

std::int64_t joinNumber(const Account& account, const Meeting& meeting) {
  if (!meeting.personal) return meeting.number;
  const Person* host = hostOf(account, meeting);
  if (host == nullptr) return account.personalId;
  return host->personalId.empty() ? meeting.number : std::stoll(host->personalId);
}

std::string joinUrl(const Account& account, const Meeting& meeting) {
  const std::string url = "https://vorn.example/j/" + std::to_string(joinNumber(account, meeting));
  const bool embedded = !isSet(policyOf(account, meeting).options, "passcodeNotInJoinUrl");
  return embedded && !meeting.passcode.empty() ? url + "?pwd=" + meeting.token : url;
}

Invitation invitationOf(const Account& account, const Meeting& meeting, const std::string& language) {
  const DialInPolicy dialIn = dialInOf(account, meeting);
  InvitationFacts facts;
  facts.hostName = hostNameOf(account, meeting);
  facts.topic = topicOf(account, meeting);
  facts.start = meeting.start;
  facts.timezone = meeting.timezone;
  facts.recurring = meeting.recurring;
  facts.number = std::to_string(joinNumber(account, meeting));
  facts.passcode = meeting.passcode;
  facts.joinUrl = joinUrl(account, meeting);
  facts.language = language.empty() ? meeting.language : language;
  facts.telephony = telephonyOf(meeting) && !account.telephonyOff;
  facts.tollFree = dialIn.tollFree;
  facts.countries = dialIn.selected;
  facts.otherAudio = otherAudioOf(account, meeting);
  return makeInvitation(facts);
}

std::string meetingReply(const Account& account, const Meeting& meeting, const std::string& language) {
  const Invitation invitation = invitationOf(account, meeting, language);
  // The readers that we know of look at the last two fields only.
  std::string reply = std::to_string(joinNumber(account, meeting)) + ";" + std::to_string(meeting.start) + ";" +
                      std::to_string(numberOf(json{{"minutes", meeting.minutes}}, "minutes")) + ";" +
                      (meeting.recurring ? "1" : "0") + ";;;;;;;;;;";
  reply += base64(jsonLayer(account, meeting, invitation.plain).dump());
  return reply + ";" + base64(packedMeeting(account, meeting, invitation.html));
}

json newMeetingSettings(const Account& account) {
  const auto& words = account.policy.options;
  json settings = {{"enableHostVideo", isSet(words, "hostVideo")},
                   {"enableParticipantsVideo", isSet(words, "participantVideo")},
                   {"enableJBH", isSet(words, "joinBeforeHost")},
                   {"jbhPriorTime", numberOf(account.profile, "jbhPriorTime")},
                   {"muteOnEntry", isSet(words, "muteUponEntry")},
                   {"supportWaitingRoom", true},
                   {"enableWaitingRoom", isSet(words, "waitingRoom")},
                   {"enableUnmuteAll", isSet(words, "unmuteAll")},
                   {"enableE2ee", isSet(words, "endToEndEncryption")},
                   {"enableRegionCustomization", isSet(words, "dataCentres")}};
  if (!account.telephonyAccounts.empty()) {
    settings["tspAudioOption"] = 1;
  } else if (isSet(words, "defaultAudioVoip")) {
    settings["audioOption"] = kVoipOnly;
  } else {
    settings["audioOption"] = isSet(words, "defaultAudioTelephony") ? 0 : kBoth;
  }
  return settings;
}

std::string profileReply(const Account& account) {
  json profile = account.profile;
  addPolicy(account.policy, profile);
  if (!account.people.empty()) {
    auto people = json::array();
    for (const auto& person : account.people) people.push_back(personMember(person));
    profile["bosses"] = std::move(people);
  }
  if (account.withoutProto) {
    addPlainMembers(account, profile);
  } else {
    profile["proto"] = base64(packedProfile(account));
  }
  return profile.dump();
}

std::string peopleReply(const Account& account) {
  auto people = json::array();
  for (const auto& person : account.people) {
    const auto& words = person.policy.options;
    json member = personMember(person);
    addPolicy(person.policy, member);
    member["isSupportAdditionalDc"] = isSet(words, "dataCentresOffered");
    member["isEnableadditionaldc"] = isSet(words, "dataCentres");
    member["userOption"] = asSigned(words[0]);
    member["userOption2"] = asSigned(words[1]);
    member["userOption3"] = asSigned(words[2]);
    member["userOption4"] = asSigned(words[3]);
    member["userOption5"] = asSigned(words[4]);
    people.push_back(std::move(member));
  }
  return json{{"bosses", people}}.dump();
}

std::string conferencesReply(const Account& account) {
  service::Answer answer;
  answer.set_result(0);
  auto& packed = *answer.mutable_conferences();
  for (const auto& conference : account.conferences) {
    auto* added = packed.add_list();
    added->set_number(conference.number);
    packNumbers(conference.toll, *added->mutable_toll());
    packNumbers(conference.tollFree, *added->mutable_toll_free());
    added->set_dedicated_number(conference.dedicatedNumber);
    added->set_location(conference.location);

    std::string plain = account.name + " is inviting you to an audio conference.\n\n";
    std::string html =
        "<div><p>" + escapeHtml(account.name) + " is inviting you to an audio conference.</p>\n<ul>\n";
    const auto addNumber = [&](const std::string& number) {
      plain += number + "\n";
      html += "<li>" + escapeHtml(number) + "</li>\n";
    };
    if (!conference.dedicatedNumber.empty()) addNumber(conference.dedicatedNumber);
    for (const auto& number : conference.tollFree) addNumber(number.number + " (" + number.label + " Toll Free)");
    for (const auto& number : conference.toll) addNumber(number.number + " (" + number.label + " Toll)");
    const std::string shown = grouped(std::to_string(conference.number));
    if (conference.hasPlainInvitation) added->set_invitation(plain + "\nMeeting ID: " + shown + "\n");
    if (conference.hasHtmlInvitation) {
      added->set_html_invitation(html + "</ul>\n<p>Meeting ID: " + shown + "</p></div>\n");
    }
  }
  return base64(answer.SerializeAsString());
}

}  // namespace vornlab

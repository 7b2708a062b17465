#include "lab/client/Service.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "lab/client/Replies.h"
#include "lab/client/Settings.h"

namespace vornlab {
namespace {

using nlohmann::json;

std::string error(const std::string& code) { return "0;Error " + code; }

// A refusal with the client's own words, for what has no number that others know.
std::string unreadable(const std::string& why) { return error("300 " + why); }

const std::string kNotFound = error("3001");

// The text between the semicolons number `index` and `index + 1`, or empty.
std::string field(const std::string& content, std::size_t index) {
  std::size_t begin = 0;
  for (; index > 0; --index) {
    begin = content.find(';', begin);
    if (begin == std::string::npos) return {};
    ++begin;
  }
  return content.substr(begin, content.find(';', begin) - begin);
}

// The document of a commit: all that stands behind the thirteenth semicolon.
std::optional<json> documentOf(const std::string& content) {
  std::size_t begin = 0;
  for (int i = 0; i < 13; ++i) {
    begin = content.find(';', begin);
    if (begin == std::string::npos) return std::nullopt;
    ++begin;
  }
  json document = json::parse(content.begin() + static_cast<std::ptrdiff_t>(begin), content.end(), nullptr, false);
  if (!memberOf(document, "apptInfo").is_object() || !memberOf(document, "setting").is_object())
    return std::nullopt;
  return document;
}

// A meeting number, in which people may have left blanks; 0 when it is none.
std::int64_t meetingNumber(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
  std::int64_t number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  return failure == std::errc{} && end == text.data() + text.size() && number > 0 ? number : 0;
}

std::size_t characters(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

// What the service refuses about the options of a commit, as a reply; empty when nothing.
std::string refusal(const Account& account, const Person* host, const json& settings) {
  const auto& words = host == nullptr ? account.policy.options : host->policy.options;
  const bool personal = flagOf(settings, "usePMI");
  const std::string passcode = textOf(settings, "meetingPassword");

  if (personal) {
    const bool hasId = host == nullptr ? account.personalId != 0 : !host->personalId.empty();
    if (!hasId || isSet(words, "personalIdDisabled")) return error("3105");
    const bool needsPasscode = isSet(words, "personalJoinBeforeHostNeedsPasscode");
    if (needsPasscode && flagOf(settings, "enableJBH") && passcode.empty()) return error("3068");
  } else if (isSet(words, "passcodeRequired") && isSet(words, "passcodeRequiredLocked") && passcode.empty()) {
    return error("3402");
  }
  const auto least =
      static_cast<std::size_t>(std::max<std::int64_t>(0, numberOf(account.profile, "passwordMinLength")));
  if (!passcode.empty() && characters(passcode) < least) return error("3402");

  std::string refused;
  for (const auto& email : listOf(settings, "alternateHosts")) {
    const auto& list = account.refusedAlternateHosts;
    if (std::find(list.begin(), list.end(), email) == list.end()) continue;
    refused += (refused.empty() ? "" : ",") + email + "#not allowed";
  }
  return refused.empty() ? std::string() : error("1113;" + refused);
}

}  // namespace

Service::Service(Account account, Options options)
    : m_account(std::move(account)),
      m_options(std::move(options)),
      m_meetings(m_options.database),
      m_random(m_options.seed != 0 ? m_options.seed
                                   : (std::uint64_t{std::random_device{}()} << 32U) + std::random_device{}()) {}

std::vector<Envelope> Service::handle(const Envelope& request) {
  switch (request.action) {
    case action::kMeetings: {
      const std::uint32_t operation = operationOf(request);
      if (operation == 0) return {};
      try {
        return {{operation, meetingReply(operation, request.content)}};
      } catch (const std::exception& failure) {
        return {{operation, unreadable(failure.what())}};
      }
    }
    case action::kProfile: return {{action::kProfile, profileReply(m_account)}};
    case action::kAudioConferences: return {{action::kAudioConferences, conferencesReply(m_account)}};
    case action::kPeople: return {{action::kPeople, peopleReply(m_account)}};
    case action::kVersion: return {versionAnswer()};
    default: return {};
  }
}

std::uint32_t Service::operationOf(const Envelope& request) {
  if (request.action != action::kMeetings) return 0;
  std::uint32_t operation = 0;
  const auto& content = request.content;
  std::from_chars(content.data(), content.data() + content.size(), operation);
  switch (operation) {
    case action::kSchedule:
    case action::kUpdate:
    case action::kDelete:
    case action::kGet:
    case action::kGetByAppointment: return operation;
    default: return 0;
  }
}

Envelope Service::versionAnswer() const { return {action::kVersion, m_options.version}; }

std::string Service::meetingReply(std::uint32_t operation, const std::string& content) {
  switch (operation) {
    case action::kSchedule: return commit(false, content);
    case action::kUpdate: return commit(true, content);
    case action::kDelete: return remove(content);
    case action::kGet: return get(content);
    default: return getByAppointment(content);
  }
}

std::string Service::commit(bool update, const std::string& content) {
  const auto document = documentOf(content);
  if (!document) return unreadable("The request cannot be read.");
  const auto& appointment = memberOf(*document, "apptInfo");
  json settings = memberOf(*document, "setting");

  const std::int64_t start = numberOf(appointment, "startTime");
  if (start == 0) return unreadable("The start time is missing.");
  const std::string hostEmail = textOf(settings, "scheduleFor");
  const Person* host = hostEmail.empty() ? nullptr : m_account.findPerson(hostEmail);
  if (!hostEmail.empty() && host == nullptr) return error("3161");
  const std::string refused = refusal(m_account, host, settings);
  if (!refused.empty()) return refused;

  MeetingStore::Transaction transaction(m_meetings);
  const bool personal = flagOf(settings, "usePMI");
  std::optional<Meeting> known;
  if (update) {
    known = m_meetings.find(meetingNumber(textOf(*document, "meetingKey")));
    if (!known) return kNotFound;
  }

  Meeting meeting = known.value_or(Meeting{});
  // Also one with a personal number: people join under that, but it stays a meeting of its own.
  if (!known) meeting.number = freshNumber();
  meeting.hostEmail = host == nullptr ? std::string() : host->email;
  meeting.personal = personal;
  takeFromRoom(meeting);
  const std::string passcode = textOf(settings, "meetingPassword");
  if (meeting.token.empty() || passcode != meeting.passcode) meeting.token = freshToken();
  meeting.passcode = passcode;
  // An older client, or an occurrence of a series, says nothing of these two; the meeting keeps them.
  if (appointment.contains("olApptUUID")) meeting.appointment = textOf(appointment, "olApptUUID");
  if (settings.contains("language")) meeting.language = textOf(settings, "language");
  meeting.subject = textOf(appointment, "subject");
  meeting.start = start;
  meeting.minutes = textOf(appointment, "duration");
  meeting.recurring = flagOf(appointment, "recurrence");
  meeting.timezone = textOf(appointment, "timezone");
  settings.erase("meetingPassword");
  meeting.settings = std::move(settings);
  m_meetings.put(meeting);
  transaction.commit();

  return std::to_string(meeting.number) + ";" + invitationOf(m_account, meeting, {}).plain;
}

std::string Service::remove(const std::string& content) {
  const std::int64_t number = meetingNumber(field(content, 1));
  return m_meetings.remove(number) ? std::to_string(number) : kNotFound;
}

std::string Service::get(const std::string& content) {
  const std::string key = field(content, 1);
  const std::string language = field(content, 4);
  if (key == "new") {
    Meeting fresh;
    fresh.settings = newMeetingSettings(m_account);
    return vornlab::meetingReply(m_account, fresh, language);
  }
  const std::int64_t number = meetingNumber(key);
  std::string hostEmail;
  return isPersonalNumber(number, hostEmail) ? replyFor(personalMeeting(number, hostEmail), language)
                                             : replyFor(m_meetings.find(number), language);
}

std::string Service::getByAppointment(const std::string& content) {
  const std::string appointment = field(content, 1);
  if (appointment.empty()) return kNotFound;
  return replyFor(m_meetings.findByAppointment(appointment), {});
}

std::string Service::replyFor(std::optional<Meeting> meeting, const std::string& language) {
  if (!meeting) return kNotFound;
  takeFromRoom(*meeting);
  return vornlab::meetingReply(m_account, *meeting, language);
}

void Service::takeFromRoom(Meeting& meeting) {
  if (!meeting.personal) return;
  const auto last = m_meetings.findLastPersonal(meeting.hostEmail);
  if (!last) return;
  meeting.passcode = last->passcode;
  meeting.token = last->token;
}

std::int64_t Service::freshNumber() {
  std::uniform_int_distribution<std::int64_t> numbers(1'000'000'000, 99'999'999'999);
  std::string unused;
  for (;;) {
    const std::int64_t number = numbers(m_random);
    if (!isPersonalNumber(number, unused) && !m_meetings.find(number)) return number;
  }
}

std::string Service::freshToken() {
  constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  std::uniform_int_distribution<std::size_t> letter(0, kLetters.size() - 1);
  std::string token;
  for (int i = 0; i < 32; ++i) token += kLetters[letter(m_random)];
  return token;
}

bool Service::isPersonalNumber(std::int64_t number, std::string& hostEmail) const {
  hostEmail.clear();
  if (number == 0) return false;
  if (number == m_account.personalId) return true;
  for (const auto& person : m_account.people) {
    if (meetingNumber(person.personalId) != number) continue;
    hostEmail = person.email;
    return true;
  }
  return false;
}

Meeting Service::personalMeeting(std::int64_t number, const std::string& hostEmail) {
  Meeting meeting;
  meeting.number = number;
  meeting.hostEmail = hostEmail;
  meeting.personal = true;
  const auto last = m_meetings.findLastPersonal(hostEmail);
  meeting.settings = last ? last->settings : newMeetingSettings(m_account);
  meeting.minutes = "60";
  return meeting;
}

}  // namespace vornlab

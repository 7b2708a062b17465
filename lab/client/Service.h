#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "lab/client/Account.h"
#include "lab/client/Envelope.h"
#include "lab/client/MeetingStore.h"

namespace vornlab {

// The numbers of requests, and those of replies to the inner operations of kMeetings.
namespace action {
inline constexpr std::uint32_t kSchedule = 1;
inline constexpr std::uint32_t kUpdate = 2;
inline constexpr std::uint32_t kDelete = 3;
inline constexpr std::uint32_t kGet = 4;
inline constexpr std::uint32_t kGetByAppointment = 10;

inline constexpr std::uint32_t kStartMeeting = 2;
inline constexpr std::uint32_t kMeetings = 3;
inline constexpr std::uint32_t kProfile = 6;
inline constexpr std::uint32_t kAudioConferences = 9;
inline constexpr std::uint32_t kPeople = 11;
inline constexpr std::uint32_t kVersion = 200;
}  // namespace action

// What the client does with a request, without any socket: the meetings, the account and the replies.
//
// One thread only. handle() never throws; a request that is not understood gets no reply.
class Service {
 public:
  struct Options {
    std::string database = ":memory:";
    std::string version = VORNCLIENT_VERSION;
    std::uint64_t seed = 0;  // of meeting numbers and tokens; 0 takes one that nobody knows
  };

  // Throws StoreError when the database cannot be opened.
  explicit Service(Account account) : Service(std::move(account), Options{}) {}
  Service(Account account, Options options);

  // The replies, in the order in which they go out: at most one as it stands.
  std::vector<Envelope> handle(const Envelope& request);

  // The inner operation that stands at the head of a content of kMeetings, or 0.
  static std::uint32_t operationOf(const Envelope& request);

  // The agent's answer, with the version.
  Envelope versionAnswer() const;

  const Account& account() const { return m_account; }

  // Another account from now on: what the user does by signing out and in again.
  void setAccount(Account account) { m_account = std::move(account); }

  MeetingStore& meetings() { return m_meetings; }

 private:
  std::string meetingReply(std::uint32_t operation, const std::string& content);
  std::string commit(bool update, const std::string& content);
  std::string remove(const std::string& content);
  std::string get(const std::string& content);
  std::string getByAppointment(const std::string& content);

  // The number that a new meeting gets.
  std::int64_t freshNumber();
  std::string freshToken();
  // The reply that tells a meeting, or that there is none.
  std::string replyFor(std::optional<Meeting> meeting, const std::string& language);
  // Whether people join somebody's personal meetings under this number; whose, "" standing for the account itself.
  bool isPersonalNumber(std::int64_t number, std::string& hostEmail) const;
  // What is asked for by the personal number itself: with the options that a meeting under it was given last.
  Meeting personalMeeting(std::int64_t number, const std::string& hostEmail);
  // All meetings under one personal number are joined at one place, so they share its passcode and its URL.
  void takeFromRoom(Meeting& meeting);

  Account m_account;
  Options m_options;
  MeetingStore m_meetings;
  std::mt19937_64 m_random;
};

}  // namespace vornlab

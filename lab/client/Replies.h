#pragma once

#include <string>

#include "lab/client/Account.h"
#include "lab/client/Invitation.h"
#include "lab/client/Meeting.h"

namespace vornlab {

// The contents of replies. All of them depend on nothing but their arguments, so the same meeting gives the same
// bytes each time it is fetched.

// The number under which people join: the personal one for a meeting that uses it.
std::int64_t joinNumber(const Account& account, const Meeting& meeting);

std::string joinUrl(const Account& account, const Meeting& meeting);

// In the given language, or, where it is empty, in the meeting's own.
Invitation invitationOf(const Account& account, const Meeting& meeting, const std::string& language);

// Fifteen fields: twelve that tell a person something, then base64 of the JSON layer and of the packed meeting.
std::string meetingReply(const Account& account, const Meeting& meeting, const std::string& language);

// The options that a new meeting of this account starts with.
nlohmann::json newMeetingSettings(const Account& account);

std::string profileReply(const Account& account);
std::string peopleReply(const Account& account);
std::string conferencesReply(const Account& account);

}  // namespace vornlab

#pragma once

// The ways of signing in that a meeting may ask for, and the domains that some of them are limited to. Pure
// functions; time linear in the lists and texts.

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "data/MeetingOptions.h"
#include "platform/controls/Control.h"
#include "settings/rules/LongTexts.h"
#include "settings/rules/TextSource.h"

namespace vorn::panel_rules {

// The choices of a panel, each a dictionary with the vn_Setting_MeetingAuth_* keys.
struct MeetingAuths {
  // An array; absent when there is none.
  Value list{};
  // The last of them is the record's, which the account no longer offers.
  bool isIncludeDeletedAuthDomain = false;
  // The id that the record takes: the account offers its choice under another one. Absent leaves it as it is.
  OptionalText newAuthId{};
};

// getAllMeetingAuths. What the account has locked for a meeting with a number of its own leaves the record no say.
MeetingAuths allMeetingAuths(const Value& offered, const MeetingOptions& record, bool isLockedForMeeting);

// Which of them is chosen, by its id or by being the account's default; the last of several, absent for none.
std::optional<int> authWithId(const Value& auths, const std::string& authId);
std::optional<int> defaultAuth(const Value& auths);

// resetDomainTextAndButton: what stands beside a choice.
struct DomainLine {
  bool textIsShown = false;
  ShownText text{""};
  bool linkIsShown = false;
  std::string link{};

  bool operator==(const DomainLine&) const = default;
};
DomainLine domainLine(const Value& auth, bool isLocked, const TextSource& texts);

// The first piece between two of the separators that is no domain; absent when there is none. Empty pieces count
// for nothing.
std::optional<TextRange> firstBadDomain(std::string_view domains, std::string_view separators,
                                        const std::function<bool(const std::string&)>& isValidDomainName);

}  // namespace vorn::panel_rules

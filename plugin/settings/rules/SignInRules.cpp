#include "settings/rules/SignInRules.h"

#include <algorithm>

#include "data/vnSettingKeys.h"
#include "util/Utf16.h"

namespace vorn::panel_rules {

namespace {

constexpr std::int64_t kWithDomains = 1;
// A longer expression is not shown whole.
constexpr std::size_t kLongestShown = 45;
constexpr std::string_view kSeparators = ";,";

std::string idOf(const Value& auth) { return auth[vn_Setting_MeetingAuth_AuthId].stringValue(); }

Value recordsAuth(const MeetingOptions& record) {
  Value auth = Value::dictionary();
  auth.set(vn_Setting_MeetingAuth_AuthId, record.authId);
  auth.set(vn_Setting_MeetingAuth_AuthName, record.authName);
  auth.set(vn_Setting_MeetingAuth_AuthType, record.authType);
  auth.set(vn_Setting_MeetingAuth_AuthDomain, record.authDomain);
  return auth;
}

// The account has given the record's choice another id: such a choice has no domains to tell it by, only its name.
bool isSameByName(const Value& auth, const MeetingOptions& record) {
  return auth[vn_Setting_MeetingAuth_AuthName].stringValue() == record.authName.value_or("") &&
         !auth[vn_Setting_MeetingAuth_AuthDomain].text().empty() &&
         auth[vn_Setting_MeetingAuth_AuthType].integerValue() == 0 && record.authType == 0;
}

template <typename Matches>
std::optional<int> lastOf(const Value& auths, Matches matches) {
  const Value::Array& items = auths.items();
  const auto found = std::find_if(items.rbegin(), items.rend(), matches);
  if (found == items.rend()) return std::nullopt;
  return static_cast<int>(items.rend() - found) - 1;
}

}  // namespace

MeetingAuths allMeetingAuths(const Value& offered, const MeetingOptions& record, bool isLockedForMeeting) {
  MeetingAuths result{.list = offered.isArray() ? offered : Value()};
  if (isLockedForMeeting || record.authId.value_or("").empty()) return result;
  const Value own = recordsAuth(record);
  if (result.list.isAbsent()) {
    result.list = Value::Array{own};
    return result;
  }
  Value::Array auths = result.list.items();
  for (Value& auth : auths) {
    if (idOf(auth) == *record.authId) {
      auth = own;
      result.list = std::move(auths);
      // A namesake before it is another choice.
      result.newAuthId.reset();
      return result;
    }
    if (isSameByName(auth, record)) result.newAuthId = idOf(auth);
  }
  if (!result.newAuthId) {
    result.list.append(own);
    result.isIncludeDeletedAuthDomain = true;
  }
  return result;
}

std::optional<int> authWithId(const Value& auths, const std::string& authId) {
  return lastOf(auths, [&](const Value& auth) { return idOf(auth) == authId; });
}

std::optional<int> defaultAuth(const Value& auths) {
  return lastOf(auths, [](const Value& auth) { return auth[vn_Setting_MeetingAuth_DefaultAuth].boolValue(); });
}

DomainLine domainLine(const Value& auth, bool isLocked, const TextSource& texts) {
  if (auth[vn_Setting_MeetingAuth_AuthType].integerValue() != kWithDomains) return {};
  const std::string& domains = auth[vn_Setting_MeetingAuth_AuthDomain].text();
  if (utf16Length(domains) <= kLongestShown) {
    return {.textIsShown = true,
            .text = {domains},
            .linkIsShown = !isLocked,
            .link = texts("LN_Schedule_SignInDomain_Edit", {})};
  }
  const auto separators = std::count_if(domains.begin(), domains.end(),
                                        [](char c) { return kSeparators.find(c) != std::string_view::npos; });
  const std::string count = std::to_string(separators + 1);
  std::string link = isLocked ? texts("LN_Schedule_SignInDomain_ViewEdit_Lock_126367", {count})
                              : texts("LN_Schedule_SignInDomain_ViewEdit_126367", {count});
  ShownText text = shownText(LongText::domains, domains);
  if (!fitInOneLine({text.text, link})) text = shownText(LongText::domainsOnWideLine, domains);
  return {.textIsShown = true, .text = std::move(text), .linkIsShown = true, .link = std::move(link)};
}

std::optional<TextRange> firstBadDomain(std::string_view domains, std::string_view separators,
                                        const std::function<bool(const std::string&)>& isValidDomainName) {
  std::size_t begin = 0;
  while (begin < domains.size()) {
    const std::size_t end = std::min(domains.find_first_of(separators, begin), domains.size());
    const std::string piece(domains.substr(begin, end - begin));
    if (!piece.empty() && !isValidDomainName(piece)) {
      return TextRange{utf16Position(domains, begin), utf16Length(piece)};
    }
    begin = end + 1;
  }
  return std::nullopt;
}

}  // namespace vorn::panel_rules

#include "workflow/LocationRule.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "host/proxies/vnApptInfoKeys.h"
#include "util/TextSearch.h"
#include "util/vnOLUtils.h"
#include "workflow/MeetingNumbers.h"

namespace vorn {

namespace {

constexpr std::string_view kSeparator = "; ";
constexpr std::string_view kBlanks = " \t\r\n";
// The type of a room or resource among the attendees.
constexpr std::string_view kRoom = "2";

std::string withoutSemicolonsAtEnds(const std::string& text) {
  const std::size_t first = text.find_first_not_of(';');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(';') - first + 1);
}

bool isOfLongerWord(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// The text without every occurrence of a part that is ours, with what belongs to it. `endsOf` gives the ends of
// what goes for the ends of an occurrence, the same for both when it is the user's. Names and URLs come from
// outside and may be of any length, so the search is one whose time is linear in both.
template <typename EndsOf>
std::string without(std::string_view text, std::string_view part, const EndsOf& endsOf) {
  std::string result;
  std::size_t kept = 0, from = 0;
  for (;;) {
    const std::size_t found = findText(text.substr(from), part);
    if (found == std::string_view::npos) return result.append(text.substr(kept));
    const auto [start, end] = endsOf(from + found, from + found + part.size());
    from += found + part.size();
    if (start == end) continue;
    // Of two that touch, the first has taken what belongs to both.
    result += text.substr(kept, std::max(start, kept) - kept);
    kept = from = end;
  }
}

// The longest names first: a name may hold a separator, and "Lab" taken out of "Lab; north" would leave a "north"
// that looked like the user's own and came back at each save. A name of blanks alone is nowhere to be seen.
std::vector<std::string_view> roomNames(const Value& attendees) {
  std::vector<std::string_view> names;
  for (const Value& attendee : attendees.items()) {
    const std::string_view name = attendee[vn_ApptInfo_AttendeeName].text();
    const bool isBlank = name.find_first_not_of(kBlanks) == std::string_view::npos;
    if (attendee[vn_ApptInfo_AttendeeType].text() == kRoom && !isBlank) names.push_back(name);
  }
  std::stable_sort(names.begin(), names.end(),
                   [](std::string_view one, std::string_view other) { return one.size() > other.size(); });
  return names;
}

// A room stands between separators, where it was put: "Lab" in "Laboratory" is the user's.
std::string withoutRooms(std::string text, const Value& attendees) {
  for (const std::string_view name : roomNames(attendees)) {
    text = without(text, name, [&text](std::size_t start, std::size_t end) {
      const std::size_t before = text.find_last_not_of(kBlanks, start - 1);
      const std::size_t behind = text.find_first_not_of(kBlanks, end);
      const bool beginsPart = start == 0 || before == std::string::npos || text[before] == ';';
      const bool endsPart = behind == std::string::npos || text[behind] == ';';
      if (!beginsPart || !endsPart) return std::pair(start, start);
      return std::pair(start, behind == end ? end + 1 : end);
    });
  }
  return text;
}

// A URL that goes on is another meeting's, which the user has put there.
bool goesOn(std::string_view text, std::size_t end) { return end < text.size() && isOfLongerWord(text[end]); }

// Where the URL stands; npos where it does not.
std::size_t findUrl(std::string_view text, std::string_view url) {
  for (std::size_t from = 0;;) {
    const std::size_t found = findText(text.substr(from), url);
    if (found == std::string_view::npos) return found;
    if (!goesOn(text, from + found + url.size())) return from + found;
    from += found + url.size();
  }
}

// An empty URL, which a stored record without a join URL leaves behind, is held by no text and takes nothing away.
std::string withoutUrls(std::string text, const std::vector<std::string>& urls) {
  for (const std::string& url : urls) {
    text = without(text, url, [&text](std::size_t start, std::size_t end) {
      if (goesOn(text, end)) return std::pair(start, start);
      const std::size_t before = start == 0 ? std::string::npos : text.find_last_not_of(kBlanks, start - 1);
      const bool hasSeparator = before != std::string::npos && before + 1 < start && text[before] == ';';
      return std::pair(hasSeparator ? before : start, end);
    });
  }
  return text;
}

}  // namespace

OptionalText LocationRule::getVnLocation(MeetingWindow& window) const {
  const vnECCalendarEvent* event = window.bar() ? window.event() : nullptr;
  if (!event) return std::nullopt;
  std::string joined;
  const Value attendees = event->getVnAttendeesData();
  for (const Value& attendee : attendees.items()) {
    if (attendee[vn_ApptInfo_AttendeeType].text() != kRoom) continue;
    if (!joined.empty()) joined += kSeparator;
    joined += attendee[vn_ApptInfo_AttendeeName].text();
  }
  const OptionalText& url = m_data.joinUrl();
  if (joined.empty()) return url;
  if (url) joined.append(kSeparator).append(*url);
  return joined;
}

OptionalText LocationRule::getOLUserInputLocation(MeetingWindow& window) const {
  const OptionalText trimmed = vnOLUtils::trimAllSpaceAndNewLine(window.shownLocation());
  if (!trimmed || trimmed->empty()) return trimmed;

  const vnECCalendarEvent* event = window.event();
  const auto withoutAllRooms = [&](std::string text) {
    text = withoutRooms(std::move(text), m_data.getSavedApptInfo()[vn_ApptInfo_Attendees]);
    return event ? withoutRooms(std::move(text), event->getVnAttendeesData()) : text;
  };
  // Before the URLs, too: without one, words behind it would come to stand beside the last room.
  std::string text = withoutAllRooms(*trimmed);
  // A URL without a passcode is a prefix of the same URL with one, so those with a passcode go first.
  text = withoutUrls(std::move(text), m_data.usedJoinUrlListWithPwd());
  text = withoutUrls(std::move(text), m_data.usedJoinUrlListWithoutPwd());
  text = withoutAllRooms(std::move(text));
  text = vnOLUtils::trimRLSpace(text).value_or("");
  return vnOLUtils::trimRLSpace(withoutSemicolonsAtEnds(text));
}

bool LocationRule::needUpdateLocation(MeetingWindow& window, std::uint64_t meetingAction,
                                      const OptionalText& oldJoinUrl) const {
  const bool include = m_data.forceIncludeJoinUrlInLocation();
  if (meetingAction != VnCmdUpdate || include) return include;
  // The user has switched the URL off: one of ours that is still there is kept up to date, but none is added.
  const OptionalText shown = window.shownLocation();
  return shown && oldJoinUrl && findUrl(*shown, *oldJoinUrl) != std::string::npos;
}

std::string LocationRule::withoutOurUrls(std::string location) const {
  for (const std::string& url : m_data.usedJoinUrlsList()) {
    const std::size_t at = findUrl(location, url);
    if (at == std::string::npos) continue;
    // Everything behind a URL is lost here, and so is every separator that remains.
    location = replacingAll(std::string_view(location).substr(0, at), kSeparator, "");
  }
  return location;
}

bool LocationRule::findRoomInAttendees(const OptionalText& name, const Value& attendees) {
  if (!name) return false;
  for (const Value& attendee : attendees.items()) {
    if (attendee[vn_ApptInfo_AttendeeType].text() == kRoom && attendee[vn_ApptInfo_AttendeeName].text() == *name) {
      return true;
    }
  }
  return false;
}

}  // namespace vorn

#include "invitation/vnICalendarContentParse.h"

#include <cstdlib>
#include <optional>

#include "invitation/vnTime.h"
#include "util/CharacterSets.h"
#include "util/TextSearch.h"
#include "util/Utf16.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

constexpr std::string_view kMasterOfSeries = "1";
constexpr std::string_view kNumberLinkMark = "/j/";
constexpr std::string_view kPersonalLinkMark = "/my/";
constexpr std::string_view kMeetingLabel = "Meeting ID:";
constexpr std::string_view kMeetingLabelWithTwoBlanks = "Meeting  ID:";
constexpr std::size_t kFewestDigits = 9;
constexpr std::size_t kMostDigits = 12;
constexpr std::int64_t kFreshness = 3;

bool holds(std::string_view text, std::string_view wanted) { return text.find(wanted) != std::string_view::npos; }

std::optional<std::string_view> behind(std::string_view text, std::string_view label) {
  const std::size_t at = text.find(label);
  if (at == std::string_view::npos) return std::nullopt;
  return text.substr(at + label.size());
}

bool isWithinLine(char32_t character) { return !isNewline(character); }

// The tag holds no new line, so its first place in the text is in the first line that has it, and nothing has to
// be cut into lines.
std::string_view lineBehind(std::string_view text, std::string_view tag) {
  const std::size_t at = findIgnoringCase(text, tag);
  if (at == std::string_view::npos) return {};
  return trimmed(leading(text.substr(at + tag.size()), isWithinLine), isWhitespaceOrNewline);
}

// Digits that go on in the next line of a folded text are half a number, which would be another meeting's.
bool goesOnBehindFold(std::string_view behindDigits) {
  if (behindDigits.starts_with('\r')) behindDigits.remove_prefix(1);
  if (!behindDigits.starts_with("\n ") && !behindDigits.starts_with("\n\t")) return false;
  return !leading(behindDigits.substr(2), isDecimalDigit).empty();
}

bool hasMeetingNumberLength(std::string_view digits) {
  const std::size_t length = utf16Length(digits);
  return length >= kFewestDigits && length <= kMostDigits;
}

}  // namespace

bool vnICalendarContentParse::parseEvents(const OptionalText& content) {
  if (isEmpty(content)) return false;
  std::size_t begin = content->find(tagBeginVEvent);
  std::size_t end = content->find(tagEndVEvent);
  if (begin == std::string_view::npos || end == std::string_view::npos) return false;
  while (begin != std::string_view::npos && end != std::string_view::npos) {
    const std::size_t next = end + tagEndVEvent.size();
    // An end tag ahead of the begin tag ends no event.
    if (begin < end) {
      arrEvents.push_back(content->substr(begin, next - begin));
      begin = content->find(tagBeginVEvent, next);
    }
    end = content->find(tagEndVEvent, next);
  }
  return true;
}

const std::string* vnICalendarContentParse::event() const {
  if (arrEvents.size() == 1) return &arrEvents.front();
  for (const std::string& each : arrEvents) {
    if (lineBehind(each, tagInstanceType) == kMasterOfSeries) return &each;
  }
  return nullptr;
}

OptionalText vnICalendarContentParse::getEvent() const {
  const std::string* found = event();
  return found ? OptionalText(*found) : std::nullopt;
}

OptionalText vnICalendarContentParse::getItemValue(const OptionalText& event, const OptionalText& itemName) const {
  if (isEmpty(event) || !itemName) return std::nullopt;
  const bool fitsIntoLine = leading(*itemName, isWithinLine).size() == itemName->size();
  return fitsIntoLine ? std::string(lineBehind(*event, *itemName)) : "";
}

OptionalText vnICalendarContentParse::getEventValue(std::string_view tag) const {
  const std::string* found = event();
  return found ? OptionalText(lineBehind(*found, tag)) : std::nullopt;
}

std::int64_t vnICalendarContentParse::getDTStamp() const {
  return vnTime::getTimeFromStr(getEventValue(tagDTStamp));
}

OptionalText vnICalendarContentParse::getDescriptionWithVornInvitation() const {
  const std::string* found = event();
  if (!found) return std::nullopt;
  const std::size_t tag = found->find(tagDescription);
  if (tag == std::string_view::npos) return std::nullopt;
  const std::size_t start = tag + tagDescription.size();
  std::size_t stop = found->find(tagLocation);
  if (stop == std::string_view::npos) stop = found->find(tagOrganizer);
  if (stop == std::string_view::npos || stop <= start) return found->substr(start);
  return found->substr(start, stop - start);
}

bool vnICalendarContentParse::isFromClientSchedule() const {
  const auto now = static_cast<std::uint64_t>(vnTime::getTimeFromStr(vnTime::getCurrentTime()));
  const auto difference = static_cast<std::int64_t>(now - static_cast<std::uint64_t>(getDTStamp()));
  return difference < kFreshness;
}

OptionalText vnICalendarContentParse::getMeetingNumberForClientSchedule() {
  const OptionalText byKey = getMeetingNumberByVornKey();
  if (!isEmpty(byKey) || !isFromClientSchedule()) return byKey;
  const OptionalText location = getLocation();
  const OptionalText description = getDescriptionWithVornInvitation();
  if (isEmpty(location) || isEmpty(description) || findText(*description, *location) == std::string_view::npos)
    return byKey;
  const OptionalText number = getMeetingNumberFromDescription(description);
  if (!isEmpty(number)) isMeetingNumberFromInvitation = true;
  return number;
}

OptionalText vnICalendarContentParse::getMeetingNumberFromDescription() const {
  return getMeetingNumberFromDescription(getDescriptionWithVornInvitation());
}

OptionalText vnICalendarContentParse::getMeetingNumberFromDescription(const OptionalText& description) const {
  if (isEmpty(description)) return std::nullopt;
  const OptionalText fromUrl = parseMeetingNumberWithJoinUrlFromDescription(description);
  if (fromUrl && utf16Length(*fromUrl) >= kFewestDigits) return fromUrl;
  // A line may also be folded with a tab, or without a carriage return. Left there it would end the number, and
  // its first part is another meeting's.
  std::string unfolded = *description;
  for (const std::string_view fold : {"\r\n\t", "\r\n", "\n ", "\n\t"})
    unfolded = replacingAll(unfolded, fold, "");
  const std::string text = replacingAll(unfolded, "\\n", "\n");
  std::optional<std::string_view> number = behind(text, kMeetingLabel);
  if (!number) number = behind(text, kMeetingLabelWithTwoBlanks);
  if (!number) return std::nullopt;
  const OptionalText digits = cutStrToFirstNotDigitNumber(vnOLUtils::trimAllSpace(std::string(*number)));
  if (!digits || !hasMeetingNumberLength(*digits)) return std::nullopt;
  return vnOLUtils::trimAllSpace(digits);
}

OptionalText vnICalendarContentParse::parseMeetingNumberWithJoinUrlFromDescription(
    const OptionalText& description) const {
  if (isEmpty(description)) return std::nullopt;
  std::string_view rest = *description;
  for (;;) {
    const std::size_t blank = rest.find(' ');
    const std::string_view token = rest.substr(0, blank);
    if (holds(token, "http://") || holds(token, "https://")) {
      if (const auto number = behind(token, kNumberLinkMark)) {
        const std::string digits(leading(*number, isDecimalDigit));
        const auto end = static_cast<std::size_t>(number->data() - rest.data()) + digits.size();
        if (hasMeetingNumberLength(digits) && !goesOnBehindFold(rest.substr(end)) &&
            std::strtoll(digits.c_str(), nullptr, 10) > 0) {
          return digits;
        }
      } else if (holds(token, kPersonalLinkMark)) {
        return std::nullopt;
      }
    }
    if (blank == std::string_view::npos) return std::nullopt;
    rest.remove_prefix(blank + 1);
  }
}

OptionalText vnICalendarContentParse::cutStrToFirstNotDigitNumber(const OptionalText& text) const {
  if (!text) return std::nullopt;
  return std::string(leading(*text, isDecimalDigit));
}

OptionalText vnICalendarContentParse::findNumberFromStr(const OptionalText& text, std::size_t length) const {
  if (!text) return std::nullopt;
  std::string digits = *text;
  std::erase_if(digits, [](char c) { return c < '0' || c > '9'; });
  return digits.substr(0, length);
}

}  // namespace vorn

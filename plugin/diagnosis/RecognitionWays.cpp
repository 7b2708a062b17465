#include "diagnosis/RecognitionWays.h"

#include <utility>

#include "host/proxies/MeetingOwners.h"
#include "host/proxies/vnOLPropertyKeys.h"
#include "invitation/vnICalendarContentParse.h"
#include "util/TextSearch.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

using Result = RecognitionWay::Result;

bool holdsText(std::string_view text, std::string_view wanted) {
  return text.find(wanted) != std::string_view::npos;
}

RecognitionWay wayOfRecord(std::string_view key, std::string_view words, const Value& stored) {
  RecognitionWay way{key, words};
  if (!stored.isText() || stored.text().empty()) {
    way.reason =
        stored.isPresent() && !stored.isText() ? "what is stored there is no text" : "nothing is stored there";
    return way;
  }
  const Value record = vnOLUtils::toArrayOrNSDictionary(stored.optionalText());
  if (!record.isDictionary()) {
    way.result = Result::broken;
    way.reason =
        record.isAbsent() ? "what is stored there is no JSON" : "the JSON that is stored there is no object";
    return way;
  }
  way.number = record[vn_OLProperty_MeetingKey].text();
  way.result = way.number.empty() ? Result::noKey : Result::found;
  way.reason = !way.number.empty()                         ? "meetingKey of the record"
               : record.contains(vn_OLProperty_MeetingKey) ? "meetingKey of the record is no text, or empty"
                                                           : "the record has no meetingKey";
  return way;
}

RecognitionWay wayOfWindow(const vnECCalendarEvent& event) {
  RecognitionWay way{"window", "4 an open window"};
  way.number = meetingOwners().meetingKeyForEvent(event.delegate());
  if (!way.number.empty()) way.result = Result::found;
  way.reason =
      way.number.empty() ? "no window of it is open, or the window has no meeting" : "the window's manager";
  return way;
}

std::string reasonOfNoNumber(const OptionalText& description) {
  if (!description) return "no line of the appointment's text has \"DESCRIPTION:\"";
  if (description->empty()) return "the description is empty";
  if (holdsText(*description, "Meeting ID:") || holdsText(*description, "Meeting  ID:")) {
    return "behind \"Meeting ID:\" stand no 9 to 12 digits";
  }
  if (holdsText(*description, "/my/")) return "a personal link names no number, and there is no \"Meeting ID:\"";
  if (holdsText(*description, "/j/")) return "no join address has 9 to 12 digits, and there is no \"Meeting ID:\"";
  return "there is no join address and no \"Meeting ID:\"";
}

bool isCutByFold(const vnICalendarContentParse& calendar, const std::string& description) {
  const std::string unfolded = replacingAll(replacingAll(description, "\r\n ", ""), "\r\n\t", "");
  return !calendar.getMeetingNumberFromDescription(unfolded).value_or("").empty();
}

RecognitionWay wayOfText(const vnICalendarContentParse& calendar) {
  RecognitionWay way{"text", "5 the appointment's text"};
  const OptionalText description = calendar.getDescriptionWithVornInvitation();
  way.number = calendar.getMeetingNumberFromDescription(description).value_or("");
  if (way.number.empty() && description && isCutByFold(calendar, *description)) {
    way.reason = "a fold of the host's text cuts the number in two";
    return way;
  }
  if (way.number.empty()) {
    way.reason = calendar.getEvent() ? reasonOfNoNumber(description)
                                     : "the host's text of the appointment has not exactly one event";
    return way;
  }
  way.result = Result::found;
  way.isGuess = true;
  const bool isFromAddress = calendar.parseMeetingNumberWithJoinUrlFromDescription(description) == way.number;
  way.reason = isFromAddress ? "a join address" : "behind \"Meeting ID:\"";
  return way;
}

RecognitionWay wayOfClient(vnICalendarContentParse calendar) {
  RecognitionWay way{"client", "6 made by the client just now"};
  const std::string byKey = calendar.getMeetingNumberByVornKey().value_or("");
  if (!calendar.isFromClientSchedule()) {
    way.reason = byKey.empty() ? "its stamp is not of this moment, and it has no VORNMEETINGNUMBER"
                               : "its stamp is not of this moment";
    return way;
  }
  way.number = calendar.getMeetingNumberForClientSchedule().value_or("");
  if (!way.number.empty()) way.result = Result::found;
  way.isGuess = calendar.isGetMeetingNumberFromInvitation();
  way.reason = !byKey.empty()       ? "VORNMEETINGNUMBER"
               : way.number.empty() ? "it has no VORNMEETINGNUMBER, and no invitation with its location in it"
                                    : "its invitation";
  return way;
}

}  // namespace

std::string_view nameOf(RecognitionWay::Result result) {
  switch (result) {
    case Result::found: return "found";
    case Result::broken: return "broken";
    case Result::noKey: return "no key";
    case Result::none: break;
  }
  return "none";
}

std::vector<RecognitionWay> waysOfRecognition(const vnECCalendarEvent& event) {
  std::vector<RecognitionWay> ways;
  const auto isFoundBefore = [&ways] {
    for (const RecognitionWay& way : ways) {
      if (way.isAsked && way.result == Result::found) return true;
    }
    return false;
  };
  const auto add = [&](RecognitionWay way, bool isAsked) {
    way.isAsked = isAsked;
    ways.push_back(std::move(way));
  };
  const vnICalendarContentParse calendar(event.iCalendarRepresentation());
  const bool isItem = event.isOccurrence() || event.isModifiedException();
  add(wayOfRecord("olmUCInband", "1 the record in olmUCInband", event.olmUCInband()), true);
  add(wayOfRecord("olmUCCapabilities", "2 the older place, olmUCCapabilities", event.olmUCCapabilities()),
      !event.isVnOIDataFromUIInband());
  RecognitionWay item{"item", "3 an item of a series"};
  item.reason = isItem ? "the search ends here: an item has a record of its own or nothing" : "it is none";
  add(std::move(item), !isFoundBefore());
  add(wayOfWindow(event), !isItem && !isFoundBefore());
  add(wayOfText(calendar), !isItem && !isFoundBefore());
  const bool hasRecord = ways[0].result == Result::found || ways[1].result == Result::found;
  add(wayOfClient(calendar), !hasRecord);
  return ways;
}

}  // namespace vorn

#include <libical/ical.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <set>

#include "lab/ics/CalendarStore.h"
#include "lab/ics/MissingLines.h"
#include "lab/ics/ProducerQuirks.h"
#include "lab/ics/PropertyText.h"
#include "util/HtmlText.h"
#include "util/Text.h"

namespace vornlab {

namespace {

constexpr std::string_view kInbandProperty = "X-VORNLAB-OLMUCINBAND";
constexpr std::string_view kCapabilitiesProperty = "X-VORNLAB-OLMUCCAPABILITIES";
constexpr double kSecondsPerDay = 86400;
constexpr std::size_t kMostShown = 40;

// Whether a place is the other one with a link in front of it or behind it.
bool isWithLink(std::string_view longer, std::string_view place) {
  if (place.empty() || longer.size() <= place.size()) return false;
  const std::string_view rest =
      longer.starts_with(place) ? longer.substr(place.size()) : longer.substr(0, longer.size() - place.size());
  return (longer.starts_with(place) && rest.starts_with(';')) || (longer.ends_with(place) && rest.ends_with("; "));
}

// The number at the start of the text; 0 for anything that is none or too large.
int numberIn(const std::string& text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool isHtmlAlternative(const IcsProperty& property) {
  return vorn::asciiUpper(property.parameter("FMTTYPE")) == "TEXT/HTML";
}

// Some servers name people by addresses of their own, and write the one of the mail beside it.
std::string addressIn(const IcsProperty& property) {
  constexpr std::size_t schemeLength = 7;
  const std::string& value = property.value;
  if (vorn::asciiUpper(value.substr(0, schemeLength)) == "MAILTO:") return wellFormed(value.substr(schemeLength));
  const std::string mail = property.parameter("EMAIL");
  return wellFormed(mail.empty() ? value : mail);
}

CalendarAttendee attendeeFrom(const IcsProperty& property) {
  CalendarAttendee result;
  result.emailAddress = addressIn(property);
  result.name = wellFormed(property.parameter("CN"));
  if (result.name.empty()) result.name = result.emailAddress;
  const std::string kind = vorn::asciiUpper(property.parameter("CUTYPE"));
  const std::string role = vorn::asciiUpper(property.parameter("ROLE"));
  if (kind == "ROOM" || kind == "RESOURCE") {
    result.type = 2;
  } else if (role == "OPT-PARTICIPANT" || role == "NON-PARTICIPANT") {
    result.type = 1;
  }
  return result;
}

// What can stand in a parameter, which has no way to write a quotation mark; "" for nobody but the address.
std::string writableName(const CalendarAttendee& person) {
  std::string name = person.name;
  std::erase_if(name, [](char c) { return c == '"' || static_cast<unsigned char>(c) < ' '; });
  return name == person.emailAddress ? std::string() : name;
}

void setName(IcsProperty& property, const std::string& name) {
  const auto isName = [](const auto& parameter) { return parameter.first == "CN"; };
  auto& parameters = property.parameters;
  const auto place = std::find_if(parameters.begin(), parameters.end(), isName);
  if (name.empty()) {
    std::erase_if(parameters, isName);
  } else if (place == parameters.end()) {
    parameters.emplace_back("CN", '"' + name + '"');
  } else {
    place->second = '"' + name + '"';
  }
}

// The length that DURATION states, in seconds.
double durationSeconds(const std::string& value) {
  const icaldurationtype duration = icaldurationtype_from_string(value.c_str());
  return icaldurationtype_is_bad_duration(duration) ? 0 : icaldurationtype_as_int(duration);
}

std::string durationText(double seconds) {
  const icaldurationtype duration = icaldurationtype_from_int(static_cast<int>(seconds));
  char* text = icaldurationtype_as_ical_string_r(duration);
  std::string result = text ? text : "PT0S";
  icalmemory_free_buffer(text);
  return result;
}

}  // namespace

std::size_t CalendarEvent::component() const { return m_store->m_eventComponents[m_index]; }

vorn::OptionalText CalendarEvent::optionalTextOf(std::string_view name) const {
  const auto property = m_store->m_document.property(component(), name);
  if (!property) return {};
  return vornlab::textOf(*property);
}

std::string CalendarEvent::textOf(std::string_view name) const {
  const auto property = m_store->m_document.property(component(), name);
  return property ? wellFormed(property->value) : std::string();
}

std::string CalendarEvent::uid() const { return textOf("UID"); }

std::string CalendarEvent::recurrenceId() const { return textOf("RECURRENCE-ID"); }

bool CalendarEvent::isRecurring() const {
  const IcsDocument& document = m_store->m_document;
  return document.property(component(), "RRULE") || document.property(component(), "RDATE");
}

std::optional<CalendarEvent> CalendarEvent::master() const {
  const std::string own = uid();
  return own.empty() ? std::nullopt : m_store->find(own);
}

std::optional<CalendarEvent> CalendarEvent::series() const {
  const auto found = isException() ? master() : *this;
  return found && found->isRecurring() ? found : std::nullopt;
}

bool CalendarEvent::isOfSomebodyElse(std::string_view address) const {
  const auto organizer = m_store->m_document.property(component(), "ORGANIZER");
  if (!organizer || address.empty() || addressIn(*organizer).empty()) return false;
  // A server may send the mail from an address of its own, and name the person's beside it.
  return !vorn::equalIgnoringCase(addressIn(*organizer), address) &&
         !vorn::equalIgnoringCase(organizer->parameter("EMAIL"), address);
}

bool CalendarEvent::isRemoved() const { return m_store->m_document.isRemoved(component()); }

std::string CalendarEvent::status() const { return vorn::asciiUpper(textOf("STATUS")); }

int CalendarEvent::sequence() const { return numberIn(textOf("SEQUENCE")); }

vorn::OptionalText CalendarEvent::summary() const { return optionalTextOf("SUMMARY"); }

vorn::OptionalText CalendarEvent::location() const { return optionalTextOf("LOCATION"); }

vorn::OptionalText CalendarEvent::description() const { return optionalTextOf("DESCRIPTION"); }

std::optional<IcsProperty> CalendarEvent::htmlAlternative() const {
  for (IcsProperty& property : m_store->m_document.properties(component(), "X-ALT-DESC")) {
    if (isHtmlAlternative(property)) return std::move(property);
  }
  return {};
}

vorn::OptionalText CalendarEvent::htmlDescription() const {
  if (const auto alternative = htmlAlternative()) return vornlab::textOf(*alternative);
  const auto plain = m_store->m_document.property(component(), "DESCRIPTION");
  return plain ? htmlBeside(*plain) : std::nullopt;
}

std::unique_ptr<ProducerQuirks> CalendarEvent::quirks() const {
  const auto product = m_store->m_document.property(m_store->m_document.parentOf(component()), "PRODID");
  return ProducerQuirks::of(product ? product->value : "");
}

vorn::OptionalText CalendarEvent::htmlInDescription() const {
  const std::string text = description().value_or("");
  const auto producer = quirks();
  return producer->descriptionIsHtml(text) ? vorn::OptionalText(producer->htmlOf(text)) : std::nullopt;
}

std::string CalendarEvent::plainDescription() const {
  const vorn::OptionalText html = htmlInDescription();
  return html ? vorn::htmlToPlainText(*html) : description().value_or("");
}

std::optional<CalendarTime> CalendarEvent::timeOf(std::string_view name) const {
  const auto property = m_store->m_document.property(component(), name);
  if (!property) return {};
  return m_store->zonesOf(component()).read(*property);
}

std::optional<CalendarTime> CalendarEvent::start() const { return timeOf("DTSTART"); }

std::optional<CalendarTime> CalendarEvent::end() const {
  if (const auto stated = timeOf("DTEND")) return stated;
  std::optional<CalendarTime> result = start();
  if (!result) return {};
  const std::string duration = textOf("DURATION");
  if (!duration.empty()) {
    result->seconds += durationSeconds(duration);
  } else if (result->isAllDay) {
    result->seconds += kSecondsPerDay;
  }
  return result;
}

bool CalendarEvent::isAllDay() const {
  const auto begin = start();
  return begin && begin->isAllDay;
}

IcsProblem CalendarEvent::doubt(std::string_view name, const std::string& what) const {
  return {m_store->m_document.physicalLineOf(component(), name), what};
}

std::optional<IcsProblem> CalendarEvent::faultOfTimes() const {
  const auto fault = [this](const char* name, const char* what) {
    return doubt(name, std::string(name) + " \"" + wellFormed(textOf(name).substr(0, kMostShown)) + "\" " + what);
  };
  for (const char* name : {"DTSTART", "DTEND"}) {
    if (m_store->m_document.property(component(), name) && !timeOf(name)) {
      return fault(name, "is no time, and counts as none");
    }
  }
  const std::string duration = textOf("DURATION");
  if (!duration.empty() && icaldurationtype_is_bad_duration(icaldurationtype_from_string(duration.c_str()))) {
    return fault("DURATION", "is none, and counts as 0 minutes");
  }
  const auto begin = start();
  const auto last = end();
  if (begin && last && last->seconds < begin->seconds) {
    return fault(timeOf("DTEND") ? "DTEND" : "DURATION", "ends it before it begins");
  }
  return {};
}

std::optional<IcsProblem> CalendarEvent::doubtOfZones() const {
  for (const char* name : {"DTSTART", "DTEND"}) {
    const auto time = timeOf(name);
    if (!time) continue;
    if (!time->isZoneKnown) {
      return doubt(name, "nobody knows the zone \"" + wellFormed(time->zone) + "\", its times are taken as UTC");
    }
    if (time->isFloating && !time->isAllDay && m_store->m_options.zone.empty()) {
      return doubt(name, "times without a zone are taken as UTC; --zone says which zone is meant");
    }
  }
  return {};
}

IcsProblem CalendarEvent::doubtOfTimes() const {
  const std::optional<IcsProblem> fault = faultOfTimes();
  return fault ? *fault : doubtOfZones().value_or(IcsProblem{});
}

std::optional<IcsProblem> CalendarEvent::doubtOfBody() const {
  const vorn::OptionalText html = htmlDescription();
  if (!html || linesMissingIn(*html, plainDescription()).empty()) return {};
  return doubt("DESCRIPTION",
               "DESCRIPTION has words that the HTML beside it lacks, and their lines are shown above it");
}

std::vector<CalendarAttendee> CalendarEvent::attendees() const {
  std::vector<CalendarAttendee> result;
  for (const IcsProperty& property : m_store->m_document.properties(component(), "ATTENDEE")) {
    result.push_back(attendeeFrom(property));
  }
  return result;
}

std::string CalendarEvent::organizerAddress() const {
  const auto property = m_store->m_document.property(component(), "ORGANIZER");
  return property ? addressIn(*property) : std::string();
}

std::string CalendarEvent::organizerName() const {
  const auto property = m_store->m_document.property(component(), "ORGANIZER");
  return property ? wellFormed(property->parameter("CN")) : std::string();
}

vorn::OptionalText CalendarEvent::olmUCInband() const { return optionalTextOf(kInbandProperty); }

vorn::OptionalText CalendarEvent::olmUCCapabilities() const { return optionalTextOf(kCapabilitiesProperty); }

std::string CalendarEvent::calendarText() const {
  const IcsDocument& document = m_store->m_document;
  const std::size_t calendar = document.parentOf(component());
  const std::string ending = "\r\n";
  std::string result = "BEGIN:VCALENDAR" + ending;
  for (const char* name : {"VERSION", "PRODID", "METHOD"}) {
    if (const auto property = document.property(calendar, name)) {
      result += foldedLine(property->name + ":" + wellFormed(property->value), ending);
    }
  }
  CalendarZones& known = m_store->zonesOf(component());
  for (const std::string& zone : document.parameters(component(), "TZID")) {
    const std::size_t definition = known.definition(zone);
    if (definition != IcsDocument::kNone) result += document.componentText(definition);
  }
  return result + document.componentText(component()) + "END:VCALENDAR" + ending;
}

std::string CalendarEvent::calendarTextOfHost() const {
  std::string text = calendarText();
  if (m_store->m_document.parameters(component(), "ALTREP").empty()) return text;
  IcsProblem problem;
  std::optional<IcsDocument> told = IcsDocument::parse(text, problem);
  for (std::size_t each = 0; told && each < told->componentCount(); ++each) {
    if (told->componentName(each) != "VEVENT") continue;
    for (const char* name : {"DESCRIPTION", "LOCATION"}) {
      told->changeProperties(each, name, [](IcsProperty& property) {
        removeParameter(property, "ALTREP");
        return true;
      });
    }
  }
  return told ? told->text() : text;
}

void CalendarEvent::setText(std::string_view name, std::string_view text) {
  const std::string before = optionalTextOf(name).value_or("");
  if (before == text) return;
  IcsProperty property =
      m_store->m_document.property(component(), name).value_or(IcsProperty{std::string(name), {}, {}});
  // It names another form of the text that was here; of a place it may be the map, which stays one when a link is
  // added or taken out.
  const bool isSamePlace = name == "LOCATION" && (isWithLink(text, before) || isWithLink(before, text));
  if (!isSamePlace) removeParameter(property, "ALTREP");
  vornlab::setText(property, text);
  m_store->m_document.setProperty(component(), property);
}

void CalendarEvent::setSummary(std::string_view text) { setText("SUMMARY", text); }

void CalendarEvent::setLocation(std::string_view text) { setText("LOCATION", text); }

void CalendarEvent::setDescription(std::string_view plainText, const vorn::OptionalText& html) {
  IcsDocument& document = m_store->m_document;
  const auto before = document.property(component(), "DESCRIPTION");
  const bool isBeside = before && htmlBeside(*before);
  setText("DESCRIPTION", plainText);
  if (html == htmlDescription()) return;
  std::optional<IcsProperty> alternative = htmlAlternative();
  if (isBeside) {
    IcsProperty description = *document.property(component(), "DESCRIPTION");
    removeParameter(description, "ALTREP");
    // The file's own form, which the program that wrote it reads.
    if (html && !alternative) setHtmlBeside(description, *html);
    document.setProperty(component(), description);
    if (!alternative) return;
  }
  if (!html) return document.removeProperty(component(), "X-ALT-DESC", isHtmlAlternative);
  if (!alternative) alternative = IcsProperty{"X-ALT-DESC", {{"FMTTYPE", "text/html"}}, ""};
  vornlab::setText(*alternative, *html);
  document.setProperty(component(), *alternative, isHtmlAlternative);
}

void CalendarEvent::setAttendees(const std::vector<CalendarAttendee>& people) {
  IcsDocument& document = m_store->m_document;
  std::map<std::string, std::string> nameOf;
  for (const CalendarAttendee& person : people) nameOf.emplace(person.emailAddress, writableName(person));
  std::set<std::string> kept;
  document.changeProperties(component(), "ATTENDEE", [&](IcsProperty& property) {
    const CalendarAttendee present = attendeeFrom(property);
    const auto wanted = nameOf.find(present.emailAddress);
    if (wanted == nameOf.end()) return false;
    // Whoever stands in the file twice keeps the second line as it is.
    if (kept.insert(present.emailAddress).second && wanted->second != writableName(present))
      setName(property, wanted->second);
    return true;
  });
  for (const auto& [name, emailAddress, type] : people) {
    if (!kept.insert(emailAddress).second) continue;
    IcsProperty added{"ATTENDEE", {}, "mailto:" + emailAddress};
    setName(added, nameOf[emailAddress]);
    added.parameters.emplace_back("RSVP", "TRUE");
    document.addProperty(component(), added);
  }
}

void CalendarEvent::setOrganizer(std::string_view address) {
  if (address.empty() || address == organizerAddress()) return;
  m_store->m_document.setProperty(component(), {"ORGANIZER", {}, "mailto:" + std::string(address)});
}

void CalendarEvent::setRecord(std::string_view name, std::string_view record) {
  if (record.empty()) {
    m_store->m_document.removeProperty(component(), name);
  } else {
    setText(name, record);
  }
}

void CalendarEvent::setOlmUCInband(std::string_view record) { setRecord(kInbandProperty, record); }

void CalendarEvent::setOlmUCCapabilities(std::string_view record) { setRecord(kCapabilitiesProperty, record); }

void CalendarEvent::writeTime(std::string_view name, double seconds) {
  auto property = m_store->m_document.property(component(), name);
  if (!property) return;
  property->value = m_store->zonesOf(component()).written(*property, seconds);
  m_store->m_document.setProperty(component(), *property);
}

void CalendarEvent::setTimes(double startSeconds, double endSeconds) {
  const auto oldStart = start();
  const auto oldEnd = end();
  IcsDocument& document = m_store->m_document;
  if (!oldStart || !oldEnd) {
    for (const auto& [name, seconds] : {std::pair("DTSTART", startSeconds), std::pair("DTEND", endSeconds)}) {
      IcsProperty utc{name, {}, "Z"};
      utc.value = m_store->zonesOf(component()).written(utc, seconds);
      document.setProperty(component(), utc);
    }
    document.removeProperty(component(), "DURATION");
    return;
  }
  if (oldStart->seconds == startSeconds && oldEnd->seconds == endSeconds) return;
  writeTime("DTSTART", startSeconds);
  if (document.property(component(), "DTEND")) {
    writeTime("DTEND", endSeconds);
    return;
  }
  if (endSeconds - startSeconds == oldEnd->seconds - oldStart->seconds) return;
  document.setProperty(component(), {"DURATION", {}, durationText(endSeconds - startSeconds)});
}

void CalendarEvent::remove() { m_store->m_document.removeComponent(component()); }

}  // namespace vornlab

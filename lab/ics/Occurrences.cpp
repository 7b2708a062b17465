// The dates of a series.

#include <libical/ical.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "lab/ics/CalendarStore.h"
#include "util/Text.h"

namespace vornlab {

namespace {

// Of a rule that counts its dates and so has to be followed from its first, or that yields none for a long time.
constexpr int kMostSteps = 20000;
constexpr double kOneDay = 86400;

constexpr int kMostOccurrencesCounted = 1000;

std::string partOfRule(const std::string& rule, std::string_view name) {
  std::size_t at = 0;
  while (at < rule.size()) {
    const std::size_t end = std::min(rule.find(';', at), rule.size());
    const std::string part = rule.substr(at, end - at);
    if (part.size() > name.size() && part[name.size()] == '=' &&
        vorn::equalIgnoringCase(part.substr(0, name.size()), name)) {
      return part.substr(name.size() + 1);
    }
    at = end + 1;
  }
  return {};
}

// A rule of hours or less can run long before it yields anything; no appointment needs one.
bool canBeFollowed(const icalrecurrencetype& rule) {
  return rule.freq >= ICAL_DAILY_RECURRENCE && rule.freq != ICAL_NO_RECURRENCE;
}

// The first date of a series: its rule is followed on the clock of that date, and each date that comes of it is
// then told as that one is.
class FirstDate {
 public:
  explicit FirstDate(const IcsProperty& start)
      : m_start(start), m_clock(start.value.substr(0, start.value.find_first_of("Zz"))) {}

  icaltimetype onClock() const { return icaltime_from_string(m_clock.c_str()); }
  IcsProperty stated(const icaltimetype& date) const {
    IcsProperty told = m_start;
    told.value = icaltime_as_ical_string(date);
    if (isUtc() && told.value.back() != 'Z') told.value += 'Z';
    return told;
  }
  // The rule in that text, whose end may be told in UTC and then is no time of that clock.
  icalrecurrencetype ruleOnClock(const std::string& text, CalendarZones& zones) const {
    icalrecurrencetype rule = icalrecurrencetype_from_string(text.c_str());
    if (icaltime_is_utc(rule.until) == 0) return rule;
    const auto end = static_cast<double>(icaltime_as_timet(rule.until));
    rule.until = icaltime_from_string(zones.written(m_start, end).c_str());
    return rule;
  }

 private:
  bool isUtc() const { return m_clock.size() < m_start.value.size(); }

  IcsProperty m_start;
  std::string m_clock;
};

struct EndIteration {
  void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
};
using Dates = std::unique_ptr<icalrecur_iterator, EndIteration>;

// Null when libical cannot follow the rule.
Dates datesOf(const icalrecurrencetype& rule, const FirstDate& first) {
  return Dates(icalrecur_iterator_new(rule, first.onClock()));
}

// Each value of a list of times, as a property of its own; of a period, its start.
std::vector<IcsProperty> singleTimes(const std::vector<IcsProperty>& lists) {
  std::vector<IcsProperty> times;
  for (const IcsProperty& list : lists) {
    IcsProperty time = list;
    time.value.clear();
    for (std::size_t at = 0; at <= list.value.size();) {
      const std::size_t end = std::min(list.value.find(',', at), list.value.size());
      const std::string value = list.value.substr(at, end - at);
      times.push_back(time);
      times.back().value = value.substr(0, value.find('/'));
      at = end + 1;
    }
  }
  return times;
}

}  // namespace

CalendarRecurrence CalendarEvent::recurrence() const {
  CalendarRecurrence result;
  result.rule = textOf("RRULE");
  const std::string count = partOfRule(result.rule, "COUNT");
  const bool hasUntil = !partOfRule(result.rule, "UNTIL").empty();
  result.endType = !count.empty() ? 1 : hasUntil ? 2 : 0;
  if (result.endType == 0 || !start()) return result;
  // What is no number, or too large, leaves 0.
  std::from_chars(count.data(), count.data() + count.size(), result.occurrenceCount);

  CalendarZones& zones = m_store->zonesOf(component());
  const FirstDate first(*m_store->m_document.property(component(), "DTSTART"));
  const icalrecurrencetype rule = first.ruleOnClock(result.rule, zones);
  if (!canBeFollowed(rule)) return result;
  const Dates dates = datesOf(rule, first);
  if (!dates) return result;
  int counted = 0;
  icaltimetype last = icaltime_null_time();
  icaltimetype next = icalrecur_iterator_next(dates.get());
  for (; !icaltime_is_null_time(next) && counted < kMostOccurrencesCounted;
       next = icalrecur_iterator_next(dates.get())) {
    last = next;
    ++counted;
  }
  if (result.endType == 2) result.occurrenceCount = counted;
  if (counted == 0 || !icaltime_is_null_time(next)) return result;
  result.lastStart = zones.read(first.stated(last));
  return result;
}

std::vector<double> CalendarEvent::startsWithin(double from, double until) {
  const auto first = m_store->m_document.property(component(), "DTSTART");
  if (!first || !isRecurring() || isException()) return {};
  CalendarZones& zones = m_store->zonesOf(component());
  std::set<double> starts;
  const auto take = [&](const IcsProperty& stated) {
    const auto time = zones.read(stated);
    if (time && time->seconds >= from && time->seconds < until) starts.insert(time->seconds);
    return !time || time->seconds < until;
  };
  take(*first);
  for (const IcsProperty& time : singleTimes(m_store->m_document.properties(component(), "RDATE"))) take(time);

  const FirstDate firstDate(*first);
  const icalrecurrencetype rule = firstDate.ruleOnClock(textOf("RRULE"), zones);
  if (canBeFollowed(rule)) {
    const Dates dates = datesOf(rule, firstDate);
    const auto start = zones.read(*first);
    if (dates && start && rule.count == 0 && from - kOneDay > start->seconds) {
      icaltimetype near =
          icaltime_from_timet_with_zone(static_cast<time_t>(std::floor(from - kOneDay)),
                                        firstDate.onClock().is_date, icaltimezone_get_utc_timezone());
      near.zone = nullptr;
      icalrecur_iterator_set_start(dates.get(), near);
    }
    for (int steps = 0; dates && steps < kMostSteps; ++steps) {
      const icaltimetype next = icalrecur_iterator_next(dates.get());
      if (icaltime_is_null_time(next) || !take(firstDate.stated(next))) break;
    }
  }
  for (const IcsProperty& gone : singleTimes(m_store->m_document.properties(component(), "EXDATE"))) {
    if (const auto time = zones.read(gone)) starts.erase(time->seconds);
  }
  for (CalendarEvent& own : m_store->exceptionsOf(uid())) {
    if (const auto moved = own.timeOf("RECURRENCE-ID")) starts.erase(moved->seconds);
  }
  return {starts.begin(), starts.end()};
}

}  // namespace vornlab

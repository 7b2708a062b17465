// The dates of a series.

#include <libical/ical.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <set>

#include "lab/ics/CalendarStore.h"

namespace vornlab {

namespace {

// Of a rule that counts its dates and so has to be followed from its first, or that yields none for a long time.
constexpr int kMostSteps = 20000;
constexpr double kOneDay = 86400;

struct EndIteration {
  void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
};

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

  // The rule is followed on the clock of the first date, and each date is then told as that one is.
  const bool isUtc = first->value.find_first_of("Zz") != std::string::npos;
  const std::string local = first->value.substr(0, first->value.find_first_of("Zz"));
  icalrecurrencetype rule = icalrecurrencetype_from_string(textOf("RRULE").c_str());
  // An end that is told in UTC is no time of that clock.
  std::optional<double> end;
  if (!isUtc && !icaltime_is_null_time(rule.until) && icaltime_is_utc(rule.until) != 0) {
    end = static_cast<double>(icaltime_as_timet(rule.until));
    rule.until = icaltime_null_time();
  }
  // Rules of hours or less can run long before they yield anything; no appointment needs one.
  if (rule.freq >= ICAL_DAILY_RECURRENCE && rule.freq != ICAL_NO_RECURRENCE) {
    const icaltimetype begin = icaltime_from_string(local.c_str());
    const std::unique_ptr<icalrecur_iterator, EndIteration> dates(icalrecur_iterator_new(rule, begin));
    const auto start = zones.read(*first);
    if (dates && start && rule.count == 0 && from - kOneDay > start->seconds) {
      icaltimetype near = icaltime_from_timet_with_zone(static_cast<time_t>(std::floor(from - kOneDay)),
                                                        begin.is_date, icaltimezone_get_utc_timezone());
      near.zone = nullptr;
      icalrecur_iterator_set_start(dates.get(), near);
    }
    for (int steps = 0; dates && steps < kMostSteps; ++steps) {
      const icaltimetype next = icalrecur_iterator_next(dates.get());
      if (icaltime_is_null_time(next)) break;
      IcsProperty stated = *first;
      stated.value = icaltime_as_ical_string(next);
      if (isUtc && stated.value.back() != 'Z') stated.value += 'Z';
      const auto time = zones.read(stated);
      if ((end && time && time->seconds > *end) || !take(stated)) break;
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

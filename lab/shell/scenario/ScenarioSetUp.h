#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "lab/client/Meeting.h"
#include "lab/host/HostFace.h"
#include "lab/shell/LabOptions.h"

namespace vornlab {

// One choice that the user has made and saved before, as it stands in a scenario.
struct SavedChoice {
  // The saved profile of the plug-in, what it remembers of the user's site, or the defaults of the host's user.
  enum class Place { profile, site, userDefaults };

  Place place = Place::profile;
  std::string key;
  // JSON, or else a plain text.
  std::string value;
};

// A text that the plug-in has stored in an appointment before.
struct StoredRecord {
  std::string uid;
  std::string recurrenceId;
  std::string text;
  // In olmUCCapabilities, where older versions put it.
  bool isInOlderPlace = false;
};

// What a scenario says of the world before anything happens in it.
struct ScenarioSetUp {
  std::filesystem::path account;
  // A calendar file; "" begins with the appointments alone.
  std::filesystem::path calendar;
  // VEVENTs as iCalendar text, each with its line ends.
  std::vector<std::string> appointments;
  // What they are called in the scenario, items of a series with their occurrence.
  std::set<std::string> appointmentNames;
  std::vector<StoredRecord> records;
  // What the service knows before; a number of 0 stands for none.
  std::vector<Meeting> meetings;
  std::vector<SavedChoice> choices;
  bool panelIsOn = false;
  HostOptions host;
  std::string clientVersion;
  bool withoutClient = false;
  bool withAgent = false;
  std::string systemVersion = LabOptions().systemVersion;
};

// The calendar with which the scenario begins, as iCalendar text: the file's own, with the appointments before its
// end. Throws LabError for a file that cannot be read.
std::string calendarTextOf(const ScenarioSetUp& setUp);

}  // namespace vornlab

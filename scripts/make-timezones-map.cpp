// Prints the map of time-zone names: each name by which a host may call a zone, ";", and the zone's IANA name.
//
// usage: make-timezones-map DISPLAY_NAMES
//
// Windows identifiers and IANA names are taken from ICU. Their English display forms are not: neither CLDR nor ICU
// carries them, so they come from the file, lines of an identifier, ";" and its form. The file is held against ICU
// here: an identifier that ICU does not know, a form whose offset is none of the zone's, and an identifier of
// ICU's without a form each stop the work.

#include <unicode/strenum.h>
#include <unicode/timezone.h>
#include <unicode/ucal.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace {

using Names = std::map<std::string, std::string>;

// ICU's names of old that are no IANA names, and its zone for what is unknown.
constexpr std::array<std::string_view, 27> kForeignIds{
    "ACT", "AET", "AGT", "ART", "AST", "BET", "BST", "CAT", "CNT", "CST", "CTT", "EAT",         "ECT",    "IET",
    "IST", "JST", "MIT", "NET", "NST", "PLT", "PNT", "PRT", "PST", "SST", "VST", "Etc/Unknown", "Factory"};

bool isForeign(std::string_view id) {
  return id.starts_with("SystemV/") || std::find(kForeignIds.begin(), kForeignIds.end(), id) != kForeignIds.end();
}

[[noreturn]] void fail(const std::string& reason) {
  std::cerr << "make-timezones-map: " << reason << '\n';
  std::exit(1);
}

std::string utf8(const icu::UnicodeString& text) {
  std::string result;
  return text.toUTF8String(result);
}

// "+08:00" as minutes; the empty text is 0.
int minutesOf(const std::string& offset) {
  int hours = 0;
  int minutes = 0;
  char sign = '+';
  if (!offset.empty() && std::sscanf(offset.c_str(), "%c%d:%d", &sign, &hours, &minutes) != 3) {
    fail("cannot read the offset " + offset);
  }
  return (sign == '-' ? -1 : 1) * (hours * 60 + minutes);
}

// The zone's standard offset, and those that were in force in January and July 2023. A few zones call their summer
// time standard.
std::set<int> offsetsOf(const std::string& id) {
  const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(id)));
  std::set<int> offsets{zone->getRawOffset() / 60'000};
  for (const double midMonth : {1'673'740'800'000.0, 1'689'379'200'000.0}) {
    std::int32_t raw = 0;
    std::int32_t daylight = 0;
    UErrorCode error = U_ZERO_ERROR;
    zone->getOffset(midMonth, false, raw, daylight, error);
    if (U_SUCCESS(error)) offsets.insert((raw + daylight) / 60'000);
  }
  return offsets;
}

void addIanaNames(Names& names, Names& windows) {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<icu::StringEnumeration> ids(
      icu::TimeZone::createTimeZoneIDEnumeration(UCAL_ZONE_TYPE_ANY, nullptr, nullptr, error));
  while (const icu::UnicodeString* id = ids->snext(error)) {
    const std::string name = utf8(*id);
    if (!isForeign(name)) names.emplace(name, name);
    icu::UnicodeString identifier;
    icu::TimeZone::getWindowsID(*id, identifier, error);
    if (identifier.isEmpty()) continue;
    icu::UnicodeString zone;
    icu::TimeZone::getIDForWindowsID(identifier, nullptr, zone, error);
    windows.emplace(utf8(identifier), utf8(zone));
  }
  if (U_FAILURE(error)) fail(std::string("ICU: ") + u_errorName(error));
}

void addDisplayForms(Names& names, const Names& windows, const char* path) {
  std::ifstream file(path);
  std::set<std::string> formed;
  for (std::string line; std::getline(file, line);) {
    const std::size_t separator = line.find(';');
    if (separator == std::string::npos) fail("no two parts: " + line);
    const std::string identifier = line.substr(0, separator);
    const std::string form = line.substr(separator + 1);
    const auto known = windows.find(identifier);
    if (known == windows.end()) fail("ICU knows no " + identifier);
    const std::size_t end = form.find(')');
    if (!form.starts_with("(UTC") || end == std::string::npos) fail("no offset: " + form);
    if (!offsetsOf(known->second).contains(minutesOf(form.substr(4, end - 4)))) {
      fail("not the offset of " + known->second + ": " + form);
    }
    formed.insert(identifier);
    names.emplace(form, known->second);
  }
  for (const auto& [identifier, zone] : windows) {
    if (!formed.contains(identifier)) fail("no display form for " + identifier);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) fail("usage: make-timezones-map DISPLAY_NAMES");
  Names names;
  Names windows;
  addIanaNames(names, windows);
  addDisplayForms(names, windows, argv[1]);
  // An identifier that is an IANA name too, such as UTC, stays what it is.
  names.insert(windows.begin(), windows.end());

  UErrorCode error = U_ZERO_ERROR;
  std::cout << "# Made by scripts/make-timezones-map from ICU " << U_ICU_VERSION << ", time-zone data "
            << icu::TimeZone::getTZDataVersion(error) << ". Do not edit.\n";
  for (const auto& [name, zone] : names) std::cout << name << ';' << zone << '\n';
  return 0;
}

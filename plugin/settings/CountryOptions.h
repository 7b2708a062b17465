#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "data/VNAvailableDialinCountryContent.h"
#include "settings/PanelParts.h"

namespace vorn {

class VNEditCountriesWindowController;

// The countries whose dial-in numbers the invitation lists: what the panel says of them, the way to the window in
// which they are chosen, and what the account's limits, the data centres and the join regions take away.
//
// The window outlives it. Main thread only.
class CountryOptions {
 public:
  CountryOptions(const PanelParts& panel, VNEditCountriesWindowController& editCountriesWindow);
  ~CountryOptions();
  CountryOptions(const CountryOptions&) = delete;
  CountryOptions& operator=(const CountryOptions&) = delete;

  void initWithLocalString();

  // The steps of loading. The countries are shown with the telephone alone.
  void initCountriesFromRecord();
  void initEditCountriesOptions();
  void showEditCountriesOptionsAsAudioType(std::int64_t audioType);
  void updateSelectedCountriesDesField();
  // Another person is scheduled for, or oneself again: their countries, and their choice.
  void initCountriesOfPerson(bool isOther);
  // Narrows the offer and the choice once more, because of the join regions or of the data centres, and tells of
  // it.
  void updateEditCountriesOptions(bool isFromRegion);

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);

  // No country is chosen, so that an invitation would have no number.
  bool areCountriesEmpty() const;
  // What a commit writes of them.
  void writeCountries();
  // A record without a hash tells nothing of its countries, so whoever keeps a record that may come back keeps the
  // window's beside it, and brings both back. Absent before the window has any.
  const std::optional<VNAvailableDialinCountryContent>& countryContent() const;
  void restore(const std::optional<VNAvailableDialinCountryContent>& content);

 private:
  // The record takes what counts in the window.
  void followWindow();
  void onClickEditCountries();

  ControlSet& m_controls;
  vnSettingData& m_record;
  PanelSteps& m_steps;
  VNEditCountriesWindowController& m_editCountriesWindow;

  Control& m_selectedCountriesField;
  Control& m_editCountriesButton;
};

}  // namespace vorn

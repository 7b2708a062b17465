#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/VNAvailableDialinCountryContent.h"
#include "platform/NotificationCenter.h"
#include "settings/PanelParts.h"
#include "settings/rules/CountryRules.h"

namespace vorn {

// The choice has been taken over. Without an object, so every open panel hears.
inline constexpr std::string_view notify_Setting_SelectedCountriesChanged =
    "notify_Setting_SelectedCountriesChanged";
// A row was chosen or taken back: "code", "name" and "selected". The window is the object, so that no other
// panel's takes the country for one of its own.
inline constexpr std::string_view notify_Setting_SelectedCountriesViewChange =
    "notify_Setting_SelectedCountriesViewChange";

// How the countries are called for this account, in the user's language.
panel_rules::CountryNames countryNames();

// The window in which the user chooses the countries whose dial-in numbers the invitation lists. What is chosen in
// it counts only after Done. One for each panel, shown again and again.
//
// Its rows, "countryRow0" and so on, are made when it is shown, in the order in which they stand. The entered row,
// on which the keyboard acts, is the one that is focused. Each act takes time linear in the countries. Main thread
// only.
class VNEditCountriesWindowController {
 public:
  explicit VNEditCountriesWindowController(ControlSet& controls);
  VNEditCountriesWindowController(const VNEditCountriesWindowController&) = delete;
  VNEditCountriesWindowController& operator=(const VNEditCountriesWindowController&) = delete;

  // Who hears that the choice in this very window counts from now on; before all open panels are told.
  void setDoneTarget(std::function<void()> target) { m_doneTarget = std::move(target); }

  // The texts, and the account's countries.
  void initializeItems();
  // Replaces the countries and the choice among them.
  void updateCountriesUIItems(VNAvailableDialinCountryContent content);
  void showWindowSheet();
  // As Cancel does; nothing for a closed window.
  void closeWindowSheet();

  // What the user has changed; nothing for a control that is not this window's.
  void userChanged(std::string_view key);

  // What counts; absent when the account has told nothing.
  const std::optional<VNAvailableDialinCountryContent>& countryContent() const { return m_countryContent; }

 private:
  void showContent();
  void refreshUIItems();
  // The list itself is made when the window is shown.
  void initCountriesWithProfile();
  void updateAllCountries();
  void resetAllCountriesArraySelectedFlag();
  void initCurSelectedCountriesArray();
  void updateCurSelectedCountriesArrayWithCode(const std::string& code, bool isSelected);
  void updateDisplaySelectedLabel();
  void checkDoneButtonStatus();
  void applyUISettings();

  // The countries in the list as it stands, as places in the content.
  const std::vector<std::size_t>& shownCountries() const;
  void reloadRows();
  void flip(std::size_t row);
  void setEntered(std::optional<std::size_t> row);
  void endSearching();
  void calculateSearchResultForString(const std::string& text);

  void controlTextDidChange();
  void commandInSearchField(std::string_view command);
  void clickSelectButton();
  void clickDoneButton();

  ControlSet& m_controls;
  std::function<void()> m_doneTarget;
  std::optional<VNAvailableDialinCountryContent> m_countryContent;
  // Places in the content's countries: all by their names, and those that the search has found.
  std::vector<std::size_t> m_allCountries;
  std::vector<std::size_t> m_searchCountries;
  // Of each country of the content.
  std::vector<std::string> m_searchNames;
  Value m_curSelectedCountries = Value::array();
  bool m_isSearching = false;
  std::optional<std::size_t> m_entered;
  NotificationCenter::Subscription m_viewChanges;

  Control& m_window;
  Control& m_searchField;
  Control& m_selectBtn;
  Control& m_displaySelectedLabel;
  Control& m_includeTollfreeNumberBtn;
  Control& m_errorForNoSelectedField;
  Control& m_doneBtn;
  Control& m_cancelBtn;
  std::vector<Control*> m_rows;
};

}  // namespace vorn

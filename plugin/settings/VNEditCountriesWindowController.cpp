#include "settings/VNEditCountriesWindowController.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "channel/store/vnCommon.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "platform/controls/FieldKeys.h"
#include "platform/controls/NumberedKey.h"
#include "settings/SettingsContext.h"
#include "util/LocalText.h"
#include "util/Text.h"
#include "util/TextSearch.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr const char* kCountriesWindow = "editCountriesWindow";
constexpr std::string_view kRow = "countryRow";
constexpr const char* kSelectAll = "LN_Schedule_Dialin_Countries_SelectAll_186032";
constexpr const char* kClearSelection = "LN_Schedule_Dialin_Countries_ClearSelection_186032";

}  // namespace

CountryNames countryNames() {
  return {.nameOf = [](const std::string& code) { return vnCommon::getCountryNameByCode(code).value_or(""); },
          .texts = panelText,
          .isTaiWanZH = vnUserProfileHelper::sharedInstance().isTaiWanZH()};
}

VNEditCountriesWindowController::VNEditCountriesWindowController(ControlSet& controls)
    : m_controls(controls),
      m_window(controls.add(Kind::window, kCountriesWindow)),
      m_searchField(controls.add(Kind::textField, "_searchField", kCountriesWindow)),
      m_selectBtn(controls.add(Kind::button, "_selectBtn", kCountriesWindow)),
      m_displaySelectedLabel(controls.add(Kind::label, "_displaySelectedLabel", kCountriesWindow)),
      m_includeTollfreeNumberBtn(controls.add(Kind::checkBox, "_includeTollfreeNumberBtn", kCountriesWindow)),
      m_errorForNoSelectedField(controls.add(Kind::label, "_errorForNoSelectedField", kCountriesWindow)),
      m_doneBtn(controls.add(Kind::button, "_doneBtn", kCountriesWindow)),
      m_cancelBtn(controls.add(Kind::button, "_cancelBtn", kCountriesWindow)) {
  m_window.hidden = true;
  m_errorForNoSelectedField.hidden = true;
  m_searchField.takesFieldKeys = true;
  m_viewChanges = Registry::platform().notificationCenter->observe(
      notify_Setting_SelectedCountriesViewChange,
      [this](const NotificationCenter::Notification& note) {
        updateCurSelectedCountriesArrayWithCode(note.userInfo["code"].text(),
                                                note.userInfo["selected"].boolValue());
      },
      this);
}

// -- What is offered ---------------------------------------------------------------------------------------------

void VNEditCountriesWindowController::initializeItems() {
  m_window.text = panelText("LN_Schedule_EditCountries_Title");
  m_searchField.placeholder = panelText("LN_Schedule_EditCountries_Search");
  m_searchField.spoken = m_searchField.placeholder;
  m_selectBtn.text = panelText(kClearSelection);
  m_includeTollfreeNumberBtn.text = panelText("LN_Schedule_EditCountries_IncludeTollfree");
  m_errorForNoSelectedField.text = panelText("LN_Schedule_EditCountries_No_Selected_Country_Warning_16058");
  m_doneBtn.text = panelText("LN_Schedule_EditCountries_Done");
  m_cancelBtn.text = panelText("Button_Cancel");
  initCountriesWithProfile();
}

void VNEditCountriesWindowController::initCountriesWithProfile() {
  m_countryContent = vnUserProfileHelper::sharedInstance().getAvailableDialinCountry();
  initCurSelectedCountriesArray();
}

void VNEditCountriesWindowController::updateCountriesUIItems(VNAvailableDialinCountryContent content) {
  m_countryContent = std::move(content);
  initCurSelectedCountriesArray();
  // A closed window has nothing to draw, and the panel's steps bring its countries more than once.
  if (!m_window.hidden) showContent();
}

void VNEditCountriesWindowController::showContent() {
  m_includeTollfreeNumberBtn.on = m_countryContent && m_countryContent->includeTollfree;
  updateAllCountries();
  resetAllCountriesArraySelectedFlag();
  refreshUIItems();
}

void VNEditCountriesWindowController::updateAllCountries() {
  m_allCountries.clear();
  m_searchNames.clear();
  m_searchCountries.clear();
  m_entered.reset();
  if (!m_countryContent) return;
  const std::string language = SettingsContext::userLanguage();
  const TextOrder order(language);
  const CountryNames names = countryNames();
  std::vector<std::pair<std::string, std::size_t>> byName;
  for (VNCountryListItemInfo& country : m_countryContent->allCountries) {
    country.countryName = names.replaceCountryName(country.countryCode);
    country.isEntered = false;
    m_searchNames.push_back(lowerCased(country.countryName, language));
    byName.emplace_back(order.key(country.countryName), byName.size());
  }
  std::sort(byName.begin(), byName.end());
  for (const auto& [name, place] : byName) m_allCountries.push_back(place);
}

void VNEditCountriesWindowController::resetAllCountriesArraySelectedFlag() {
  if (!m_countryContent) return;
  std::unordered_set<std::string_view> selected;
  for (const Value& code : m_countryContent->selectedCountries.items()) selected.insert(code.text());
  for (VNCountryListItemInfo& country : m_countryContent->allCountries) {
    country.selected = selected.contains(country.countryCode);
  }
}

void VNEditCountriesWindowController::initCurSelectedCountriesArray() {
  m_curSelectedCountries = m_countryContent ? m_countryContent->selectedCountries : Value::array();
}

// -- On the screen -----------------------------------------------------------------------------------------------

void VNEditCountriesWindowController::showWindowSheet() {
  if (!m_window.hidden) return;
  m_window.hidden = false;
  showContent();
}

void VNEditCountriesWindowController::closeWindowSheet() {
  if (m_window.hidden) return;
  initCurSelectedCountriesArray();
  resetAllCountriesArraySelectedFlag();
  m_errorForNoSelectedField.hidden = true;
  m_window.hidden = true;
}

void VNEditCountriesWindowController::refreshUIItems() {
  m_searchField.text.clear();
  endSearching();
  m_includeTollfreeNumberBtn.hidden = !m_countryContent || !m_countryContent->enableShowIncludeTollfree;
  reloadRows();
  updateDisplaySelectedLabel();
  checkDoneButtonStatus();
}

const std::vector<std::size_t>& VNEditCountriesWindowController::shownCountries() const {
  return m_isSearching ? m_searchCountries : m_allCountries;
}

// Rows that are not needed now are hidden and kept for the next list.
void VNEditCountriesWindowController::reloadRows() {
  const std::vector<std::size_t>& shown = shownCountries();
  while (m_rows.size() < shown.size()) {
    m_rows.push_back(&m_controls.add(Kind::checkBox, numberedKey(kRow, m_rows.size()), kCountriesWindow));
  }
  for (std::size_t row = 0; row < m_rows.size(); ++row) {
    Control& control = *m_rows[row];
    control.hidden = row >= shown.size();
    if (control.hidden) continue;
    const VNCountryListItemInfo& country = m_countryContent->allCountries[shown[row]];
    control.text = country.countryName;
    control.on = country.selected;
    control.isFocused = country.isEntered;
  }
}

void VNEditCountriesWindowController::updateDisplaySelectedLabel() {
  const CountryNames names = countryNames();
  std::string list;
  for (const Value& code : m_curSelectedCountries.items()) {
    if (!list.empty()) list += ", ";
    list += names.replaceCountryName(code.text());
  }
  m_displaySelectedLabel.text = std::move(list);
}

void VNEditCountriesWindowController::checkDoneButtonStatus() {
  const auto isSelected = [](const VNCountryListItemInfo& country) { return country.selected; };
  m_doneBtn.enabled = m_countryContent && std::any_of(m_countryContent->allCountries.begin(),
                                                      m_countryContent->allCountries.end(), isSelected);
  m_errorForNoSelectedField.hidden = m_doneBtn.enabled;
}

// -- Choosing ----------------------------------------------------------------------------------------------------

void VNEditCountriesWindowController::userChanged(std::string_view key) {
  if (m_window.hidden) return;
  if (fieldOf(key) == m_searchField.key) {
    const std::string_view command = commandOf(key);
    return command.empty() ? controlTextDidChange() : commandInSearchField(command);
  }
  if (key == m_selectBtn.key) return clickSelectButton();
  if (key == m_doneBtn.key) return clickDoneButton();
  if (key == m_cancelBtn.key) return closeWindowSheet();
  if (const auto row = numberOfKey(key, kRow)) flip(*row);
}

void VNEditCountriesWindowController::flip(std::size_t row) {
  if (row >= shownCountries().size()) return;
  VNCountryListItemInfo& country = m_countryContent->allCountries[shownCountries()[row]];
  country.selected = !country.selected;
  Registry::platform().notificationCenter->post(
      notify_Setting_SelectedCountriesViewChange, this,
      Value::dictionaryFromPairs(
          {{"code", country.countryCode}, {"name", country.countryName}, {"selected", country.selected}}));
  reloadRows();
  updateDisplaySelectedLabel();
  checkDoneButtonStatus();
}

void VNEditCountriesWindowController::updateCurSelectedCountriesArrayWithCode(const std::string& code,
                                                                              bool isSelected) {
  Value::Array selected = m_curSelectedCountries.items();
  const auto found = std::find(selected.begin(), selected.end(), Value(code));
  if (!isSelected) {
    std::erase(selected, Value(code));
  } else if (found == selected.end()) {
    selected.emplace_back(code);
  }
  m_curSelectedCountries = std::move(selected);
}

void VNEditCountriesWindowController::clickSelectButton() {
  const std::string selectAll = panelText(kSelectAll);
  const bool isSelected = equalIgnoringCase(m_selectBtn.text, selectAll);
  m_selectBtn.text = isSelected ? panelText(kClearSelection) : selectAll;
  Value selected = Value::array();
  if (m_countryContent) {
    for (VNCountryListItemInfo& country : m_countryContent->allCountries) {
      country.selected = isSelected;
      if (isSelected) selected.append(country.countryCode);
    }
  }
  m_curSelectedCountries = std::move(selected);
  refreshUIItems();
}

// -- Searching ---------------------------------------------------------------------------------------------------

void VNEditCountriesWindowController::setEntered(std::optional<std::size_t> row) {
  const auto countryOf = [this](std::size_t at) -> VNCountryListItemInfo& {
    return m_countryContent->allCountries[shownCountries()[at]];
  };
  if (m_entered && *m_entered < shownCountries().size()) countryOf(*m_entered).isEntered = false;
  m_entered = row && *row < shownCountries().size() ? row : std::nullopt;
  if (m_entered) countryOf(*m_entered).isEntered = true;
}

void VNEditCountriesWindowController::endSearching() {
  setEntered(std::nullopt);
  m_isSearching = false;
  m_searchCountries.clear();
}

void VNEditCountriesWindowController::calculateSearchResultForString(const std::string& text) {
  const std::string wanted = lowerCased(text, SettingsContext::userLanguage());
  m_isSearching = true;
  for (const std::size_t place : m_allCountries) {
    if (findText(m_searchNames[place], wanted) != std::string::npos) m_searchCountries.push_back(place);
  }
}

void VNEditCountriesWindowController::controlTextDidChange() {
  const CountrySearch search = countrySearch(m_searchField.text, m_entered.has_value());
  m_searchField.text = search.text;
  if (search.flipsEntered) flip(*m_entered);
  endSearching();
  if (!search.text.empty()) {
    calculateSearchResultForString(search.text);
    setEntered(0);
  }
  reloadRows();
}

void VNEditCountriesWindowController::commandInSearchField(std::string_view command) {
  if (command == field_key::kReturn) {
    if (m_entered) flip(*m_entered);
  } else if (command == field_key::kDown) {
    const std::size_t last = shownCountries().empty() ? 0 : shownCountries().size() - 1;
    setEntered(m_entered ? std::min(*m_entered + 1, last) : 0);
    reloadRows();
  } else if (command == field_key::kUp) {
    if (m_entered && *m_entered > 0) setEntered(*m_entered - 1);
    reloadRows();
  } else if (command == field_key::kEscape) {
    if (m_searchField.text.empty()) return closeWindowSheet();
    m_searchField.text.clear();
    controlTextDidChange();
  }
}

// -- Its end -----------------------------------------------------------------------------------------------------

void VNEditCountriesWindowController::applyUISettings() {
  m_countryContent->includeTollfree = m_includeTollfreeNumberBtn.on;
  m_countryContent->selectedCountries = m_curSelectedCountries;
}

void VNEditCountriesWindowController::clickDoneButton() {
  if (!m_countryContent) return;
  applyUISettings();
  m_window.hidden = true;
  if (m_doneTarget) m_doneTarget();
  Registry::platform().notificationCenter->post(notify_Setting_SelectedCountriesChanged);
}

}  // namespace vorn

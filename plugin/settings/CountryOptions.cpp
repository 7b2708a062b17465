#include "settings/CountryOptions.h"

#include <optional>
#include <utility>

#include "channel/discovery/vnClientFeatureMgr.h"
#include "data/vnGetScheduleForListHelper.h"
#include "data/vnUserProfileHelper.h"
#include "settings/VNEditCountriesWindowController.h"
#include "settings/rules/AudioRules.h"
#include "settings/rules/ControlKeys.h"
#include "settings/rules/CountryRules.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr std::int64_t kNoRegionPolicy = 2;

// What the person offers; absent for one who is not known.
std::optional<VNAvailableDialinCountryContent> availableDialinCountry(const std::string& email) {
  return email.empty() ? vnUserProfileHelper::sharedInstance().getAvailableDialinCountry()
                       : vnGetScheduleForListHelper::sharedInstance().getAvailableDialinCountry(email);
}

}  // namespace

CountryOptions::CountryOptions(const PanelParts& panel, VNEditCountriesWindowController& editCountriesWindow)
    : m_controls(panel.controls),
      m_record(panel.record),
      m_steps(panel.steps),
      m_editCountriesWindow(editCountriesWindow),
      m_selectedCountriesField(
          m_controls.add(Kind::label, control_key::selectedCountriesField, control_key::audioOptionsBox)),
      m_editCountriesButton(m_controls.add(Kind::link, "editCountriesButton", control_key::audioOptionsBox)) {
  m_editCountriesWindow.setDoneTarget([this] { followWindow(); });
}

CountryOptions::~CountryOptions() { m_editCountriesWindow.setDoneTarget(nullptr); }

void CountryOptions::initWithLocalString() { m_editCountriesButton.text = panelText("LN_Schedule_EditCountries"); }

// -- Loading -----------------------------------------------------------------------------------------------------

// Without a hash the record has no countries of its own, and those of the window stand.
void CountryOptions::initCountriesFromRecord() {
  if (m_record.hash().value_or("").empty()) return;
  const bool isListed = vnGetScheduleForListHelper::sharedInstance().hasScheduleForList();
  VNAvailableDialinCountryContent content = availableDialinCountry(isListed ? m_steps.getUIScheduleForEmail() : "")
                                                .value_or(VNAvailableDialinCountryContent());
  content.hash = m_record.hash();
  content.includeTollfree = m_record.includeTollfree();
  content.selectedCountries = m_record.arrSelectedCountries();
  content.enableShowIncludeTollfree = m_record.enableShowIncludeTollfree();
  m_editCountriesWindow.updateCountriesUIItems(std::move(content));
}

// The next load, which any change of the encryption brings, shows the record's choice; so does the next conflict
// with the data centres or the regions, and by then the window may have another person's countries.
void CountryOptions::followWindow() {
  const auto& content = m_editCountriesWindow.countryContent();
  if (!content) return;
  m_record.setHash(content->hash);
  m_record.setEnableShowIncludeTollfree(content->enableShowIncludeTollfree);
  m_record.setIncludeTollfree(content->includeTollfree);
  m_record.setSelectedCountries(content->selectedCountries);
}

void CountryOptions::initEditCountriesOptions() {
  updateSelectedCountriesDesField();
  showEditCountriesOptionsAsAudioType(m_record.audioType());
}

void CountryOptions::updateSelectedCountriesDesField() {
  const auto& content = m_editCountriesWindow.countryContent();
  const SelectedCountries shown =
      selectedCountries(content ? content->selectedCountries : Value::array(), countryNames());
  m_selectedCountriesField.text = shown.text.text;
  m_selectedCountriesField.toolTip = shown.text.toolTip;
  m_selectedCountriesField.isRed = shown.isRed;
}

void CountryOptions::showEditCountriesOptionsAsAudioType(std::int64_t audioType) {
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  const AudioSite site{
      .isTspSite = profile.isTspSite(),
      .isVornClientSupportEditCountries = vnClientFeatureMgr::sharedInstance().isVornClientSupportEditCountries()};
  m_selectedCountriesField.hidden = !countriesAreShown(site, audioType);
  m_editCountriesButton.hidden = m_selectedCountriesField.hidden;
  m_steps.checkScheduleButton();
}

void CountryOptions::initCountriesOfPerson(bool isOther) {
  const std::string person = isOther ? m_steps.getUIScheduleForEmail() : "";
  // Where nothing is known of the account, or of the person, what was chosen stays.
  if (!SettingsContext::profile().knows(person)) return;
  std::optional<VNAvailableDialinCountryContent> content = availableDialinCountry(person);
  if (!content) return;
  m_editCountriesWindow.updateCountriesUIItems(std::move(*content));
  followWindow();
  initEditCountriesOptions();
}

void CountryOptions::updateEditCountriesOptions(bool isFromRegion) {
  const vnUserProfileHelper& profile = vnUserProfileHelper::sharedInstance();
  if (!vnClientFeatureMgr::sharedInstance().isVornClientSupport550Tasks() || profile.isTspSite()) return;
  const std::string person = m_record.scheduleForEmail().value_or("");
  CountryConflict conflict;
  conflict.maximumDialinCountry = profile.getMaximumDialinCountry(person);
  conflict.webUncheckedDCInfos = person.empty()
                                     ? profile.getWebUncheckedDCInfos()
                                     : vnGetScheduleForListHelper::sharedInstance().getWebUncheckedDCInfos(person);
  if (m_controls.isShownAndOn(control_key::enableDataCenterRegionsButton)) {
    conflict.selectedDcs = m_record.arrAdditionalDCRegions();
  }
  // While the panel is loaded the switch may be that of the record before.
  const bool hasPolicy =
      m_controls.isShownAndOn(control_key::allowDenyButton) && m_record.enableAllowDenyJoinMeetingRegion();
  conflict.regionPolicyType = hasPolicy ? m_record.regionType() : kNoRegionPolicy;
  conflict.selectedRegions = m_record.arrRegionCodes();

  // So may the window's countries.
  initCountriesFromRecord();
  VNAvailableDialinCountryContent content =
      availableDialinCountry(person).value_or(VNAvailableDialinCountryContent());
  if (const auto& chosen = m_editCountriesWindow.countryContent()) {
    content.hash = chosen->hash;
    content.includeTollfree = chosen->includeTollfree;
    content.enableShowIncludeTollfree = chosen->enableShowIncludeTollfree;
    content.selectedCountries = chosen->selectedCountries;
  }
  NarrowedCountries narrowed = updateDialinCountryForConflict(conflict, std::move(content), countryNames());
  const bool isChanged = narrowed.isChanged;
  m_editCountriesWindow.updateCountriesUIItems(std::move(narrowed.content));
  followWindow();
  initEditCountriesOptions();
  m_steps.updateDataCenterImpactCountriesTipViewUI(isFromRegion || !isChanged);
  m_steps.updateAllowDenyImpactCountriesTipViewUI(!isFromRegion || !isChanged);
}

// -- What the user does ------------------------------------------------------------------------------------------

void CountryOptions::userChanged(std::string_view key) {
  if (key == m_editCountriesButton.key) onClickEditCountries();
}

void CountryOptions::onClickEditCountries() { m_editCountriesWindow.showWindowSheet(); }

// -- Commit ------------------------------------------------------------------------------------------------------

const std::optional<VNAvailableDialinCountryContent>& CountryOptions::countryContent() const {
  return m_editCountriesWindow.countryContent();
}

void CountryOptions::restore(const std::optional<VNAvailableDialinCountryContent>& content) {
  if (content) m_editCountriesWindow.updateCountriesUIItems(*content);
}

bool CountryOptions::areCountriesEmpty() const {
  const auto& content = m_editCountriesWindow.countryContent();
  return !content || content->selectedCountries.count() == 0;
}

void CountryOptions::writeCountries() {
  if (m_editCountriesButton.hidden) {
    m_record.setHash(std::nullopt);
    m_record.setSelectedCountries(Value());
    return;
  }
  const auto& content = m_editCountriesWindow.countryContent();
  if (!content) return;
  m_record.setHash(content->hash);
  m_record.setIncludeTollfree(content->includeTollfree);
  m_record.setSelectedCountries(content->selectedCountries);
}

}  // namespace vorn

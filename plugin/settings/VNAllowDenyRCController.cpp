#include "settings/VNAllowDenyRCController.h"

#include <utility>

#include "channel/store/vnCommon.h"
#include "settings/SettingsContext.h"
#include "settings/rules/TokenWords.h"
#include "util/LocalText.h"

namespace vorn {

using namespace panel_rules;

VNAllowDenyRCController::VNAllowDenyRCController(const PanelParts& panel, Control& field, const char* inWindow,
                                                 std::function<void()> textHasChanged)
    : m_textHasChanged(std::move(textHasChanged)),
      m_list(panel.controls, inWindow),
      m_tokens(panel, field, m_list, *this) {}

std::string VNAllowDenyRCController::nameOf(const std::string& code) {
  return vnCommon::getCountryNameByCode(code).value_or("");
}

std::vector<std::string> VNAllowDenyRCController::namesOf(const std::vector<std::string>& codes) {
  std::vector<std::string> names;
  for (const std::string& code : codes) names.push_back(nameOf(code));
  return names;
}

void VNAllowDenyRCController::setRegions(const std::vector<std::string>& codes) {
  m_regions = RegionTable(codes, nameOf);
}

void VNAllowDenyRCController::fill(const std::vector<std::string>& codes, bool keepsWords) {
  const auto isRegion = [this](const std::string& name) { return !getRCCodeByCountry(name).empty(); };
  const std::string words = keepsWords ? unknownWords(m_tokens.text(), isRegion) : "";
  std::vector<TokenChip> chips;
  for (const std::string& code : codes) {
    if (!code.empty()) chips.push_back(chipOfCode(code));
  }
  m_tokens.refill(chips, words);
}

void VNAllowDenyRCController::initAllowDenyRCSearchListWithString(const std::string& word) {
  const TextOrder order(SettingsContext::userLanguage());
  std::vector<VNAllowDenyRCCell> offered =
      offeredRegions(m_regions, getAddedRegionCountriesFromView(), word, vnCommon::inLowerCase,
                     [&order](const std::string& name) { return order.key(name); });
  if (offered.empty()) return closeAllowDenyRCSearchListWindow();
  m_list.setData(std::move(offered));
  m_list.show();
}

std::vector<std::string> VNAllowDenyRCController::getAddedRegionCountriesFromView() const {
  return addedRegionCodes(m_tokens.text(), m_regions);
}

bool VNAllowDenyRCController::maySave() const { return maySaveRegions(m_tokens.text(), m_regions); }

// A name and a separator make no chip: choosing from the list is the way. What the test for addresses lets through
// is taken for a code.
bool VNAllowDenyRCController::isChipsWord(const std::string& word) const { return vnCommon::isValidEmail(word); }

void VNAllowDenyRCController::takeSelected() {
  if (const VNAllowDenyRCCell* region = m_list.getSelectedCountryInfo())
    selectUserInAllowDenyRCSearchList(*region);
}

TokenChip VNAllowDenyRCController::chipOfCode(const std::string& code) {
  return chipOf(VNAllowDenyRCCell{code, nameOf(code)});
}

}  // namespace vorn

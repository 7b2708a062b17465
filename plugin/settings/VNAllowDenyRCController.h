#pragma once

#include <functional>
#include <string>
#include <vector>

#include "settings/TokenField.h"
#include "settings/VNAllowDenyRCSearchListWindowController.h"

namespace vorn {

// The list and the chips of the field of regions: what is offered while somebody types a name. Panel and field
// outlive it. Main thread only.
class VNAllowDenyRCController final : private TokenField::Words {
 public:
  // Who watches the text hears of what the user has not just done there.
  VNAllowDenyRCController(const PanelParts& panel, Control& field, const char* inWindow,
                          std::function<void()> textHasChanged);

  // The regions to choose from, by their codes.
  void setRegions(const std::vector<std::string>& codes);
  // The text is emptied and gets these, of which a list may lack some; words that are no region stay in it.
  void fill(const std::vector<std::string>& codes, bool keepsWords);

  void initAllowDenyRCSearchListWithString(const std::string& word);
  void closeAllowDenyRCSearchListWindow() { m_list.close(); }
  // The codes in the text, each once.
  std::vector<std::string> getAddedRegionCountriesFromView() const;
  // "" for what is no name of a region.
  std::string getRCCodeByCountry(const std::string& name) const { return m_regions.getRCCodeByCountry(name); }
  bool maySave() const;

  TokenField& field() { return m_tokens; }
  bool isListClicked(std::string_view key) const { return m_list.cellClicked(key); }
  // Chooses the row that is selected; nothing without one.
  void takeSelected() override;

  static std::string nameOf(const std::string& code);
  static std::vector<std::string> namesOf(const std::vector<std::string>& codes);

 private:
  void search(const std::string& word) override { initAllowDenyRCSearchListWithString(word); }
  bool isChipsWord(const std::string& word) const override;
  void takeWord(const std::string& word) override { updateAllowDenyRCTextViewByRcCode(word); }
  void selectNext() override { m_list.selectNextCountry(); }
  void selectPrevious() override { m_list.selectPreviousCountry(); }
  std::vector<TokenPiece> piecesOf(const std::string& /*pasted*/) override { return {}; }
  void textHasChanged() override { m_textHasChanged(); }

  static TokenChip chipOfCode(const std::string& code);
  // The chip of the code, or of the region, takes the place of what is being typed in a moment.
  void updateAllowDenyRCTextViewByRcCode(const std::string& code) { m_tokens.request(chipOfCode(code)); }
  void selectUserInAllowDenyRCSearchList(const panel_rules::VNAllowDenyRCCell& region) {
    m_tokens.choose(chipOf(region));
  }

  const std::function<void()> m_textHasChanged;
  panel_rules::RegionTable m_regions;
  VNAllowDenyRCSearchListWindowController m_list;
  TokenField m_tokens;
};

}  // namespace vorn

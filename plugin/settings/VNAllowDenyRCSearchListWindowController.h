#pragma once

#include <string>
#include <utility>
#include <vector>

#include "settings/TokenSearchList.h"
#include "settings/rules/RegionPolicy.h"

namespace vorn {

// The list under the regions: those to choose from. Main thread only.
class VNAllowDenyRCSearchListWindowController final : public TokenSearchList {
 public:
  VNAllowDenyRCSearchListWindowController(ControlSet& controls, const char* inWindow)
      : TokenSearchList(controls, "allowDenyRCSearchListWindow", inWindow) {}

  // Selects the first.
  void setData(std::vector<panel_rules::VNAllowDenyRCCell> regions) {
    std::vector<std::string> rows;
    for (const panel_rules::VNAllowDenyRCCell& region : regions) rows.push_back(region.regionCountry);
    m_dataArray = std::move(regions);
    setRows(rows);
  }

  void selectNextCountry() { selectNext(); }
  void selectPreviousCountry() { selectPrevious(); }
  // Null without a selection; holds until the data change.
  const panel_rules::VNAllowDenyRCCell* getSelectedCountryInfo() const {
    const auto row = selectedRow();
    return row ? &m_dataArray[*row] : nullptr;
  }

 private:
  std::vector<panel_rules::VNAllowDenyRCCell> m_dataArray;
};

}  // namespace vorn

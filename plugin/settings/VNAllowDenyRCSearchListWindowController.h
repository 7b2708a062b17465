#pragma once

#include <vector>

#include "settings/TokenSearchList.h"
#include "settings/rules/RegionPolicy.h"

namespace vorn {

// The list under the regions: those to choose from. Main thread only.
class VNAllowDenyRCSearchListWindowController {
 public:
  VNAllowDenyRCSearchListWindowController(ControlSet& controls, const char* inWindow)
      : m_list(controls, "allowDenyRCSearchListWindow", inWindow) {}

  // Selects the first.
  void setData(const std::vector<panel_rules::Region>& regions) {
    std::vector<TokenSearchList::Row> rows;
    for (const panel_rules::Region& region : regions) rows.push_back({region.regionCountry, chipOf(region)});
    m_list.setData(rows);
  }

  TokenSearchList& list() { return m_list; }
  const TokenSearchList& list() const { return m_list; }

 private:
  TokenSearchList m_list;
};

}  // namespace vorn

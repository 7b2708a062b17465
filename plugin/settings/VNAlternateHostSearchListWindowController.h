#pragma once

#include <vector>

#include "settings/TokenSearchList.h"
#include "settings/rules/AlternateHosts.h"

namespace vorn {

// The list under the alternate hosts: people to choose from. Main thread only.
class VNAlternateHostSearchListWindowController {
 public:
  explicit VNAlternateHostSearchListWindowController(ControlSet& controls);

  // Selects the first.
  void setData(const std::vector<panel_rules::AlternateHost>& users);

  TokenSearchList& list() { return m_list; }
  const TokenSearchList& list() const { return m_list; }

 private:
  TokenSearchList m_list;
};

}  // namespace vorn

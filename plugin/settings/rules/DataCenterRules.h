#pragma once

// The additional data centres among which a meeting may choose. Pure functions.

#include <string>
#include <vector>

#include "settings/rules/TextSource.h"
#include "util/Value.h"

namespace vorn::panel_rules {

struct DataCenter {
  std::string dc;
  std::string name;
  bool bChecked = false;

  bool operator==(const DataCenter&) const = default;
};

// getDataCenterRegions: the centres that are offered, each with whether its code is among the chosen ones. Time
// linear in the two lists.
std::vector<DataCenter> dataCenters(const Value& offered, const Value& chosen);

// The chosen codes after a click on a centre: it joins them at the end, or leaves them altogether.
Value chosenAfterClick(const Value& chosen, const DataCenter& clicked);

// The title: our text for a code that we know, otherwise the service's own name.
std::string dataCenterTitle(const DataCenter& center, const TextSource& texts);

}  // namespace vorn::panel_rules

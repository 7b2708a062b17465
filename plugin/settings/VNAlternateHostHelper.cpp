#include "settings/VNAlternateHostHelper.h"

#include <algorithm>
#include <unordered_set>

#include "channel/commands/AlternateHostsMessage.h"
#include "platform/Registry.h"
#include "platform/UserDefaults.h"
#include "util/Text.h"

namespace vorn {

namespace {

constexpr std::string_view kVPInputAlternateHostHistory = "InputAlternateHostHistory";

Value stored() { return Registry::platform().userDefaults->objectForKey(kVPInputAlternateHostHistory); }

}  // namespace

VNAlternateHostHelper& VNAlternateHostHelper::sharedInstance() {
  return Registry::shared<VNAlternateHostHelper>();
}

std::vector<std::string> VNAlternateHostHelper::getInputAlternateHostHistory() const {
  std::vector<std::string> history;
  const Value entries = stored();
  for (const Value& entry : entries.items()) history.push_back(entry.text());
  return history;
}

bool VNAlternateHostHelper::hasExistedInInputAlternateHostHistory(const std::string& email) const {
  const std::vector<std::string> history = getInputAlternateHostHistory();
  return std::any_of(history.begin(), history.end(),
                     [&](const std::string& entry) { return equalIgnoringCase(entry, email); });
}

void VNAlternateHostHelper::addToInputAlternateHostHistory(const Value& alternateHosts) {
  if (!alternateHosts.isArray()) return;
  Value history = stored();
  if (!history.isArray()) history = Value::array();
  std::unordered_set<std::string> known;
  for (const Value& entry : history.items()) known.insert(caseFolded(entry.text()));
  for (const Value& host : alternateHosts.items()) {
    if (!host.text().empty() && known.insert(caseFolded(host.text())).second) history.append(host);
  }
  UserDefaults& defaults = *Registry::platform().userDefaults;
  defaults.setObject(history, kVPInputAlternateHostHistory);
  defaults.synchronize();
}

std::string VNAlternateHostHelper::getAlternateHostDisplayError(const std::string& refused) const {
  return alternateHostsMessage(refusedAlternateHosts(refused));
}

}  // namespace vorn

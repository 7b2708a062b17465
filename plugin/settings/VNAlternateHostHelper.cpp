#include "settings/VNAlternateHostHelper.h"

#include "platform/Registry.h"
#include "platform/UserDefaults.h"

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

void VNAlternateHostHelper::addToInputAlternateHostHistory(const Value& alternateHosts) {
  if (!alternateHosts.isArray()) return;
  Value history = stored();
  if (!history.isArray()) history = Value::array();
  panel_rules::FoldedEmails known(getInputAlternateHostHistory());
  for (const Value& host : alternateHosts.items()) {
    if (host.text().empty() || hasExistedInInputAlternateHostHistory(known, host.text())) continue;
    known.add(host.text());
    history.append(host);
  }
  UserDefaults& defaults = *Registry::platform().userDefaults;
  defaults.setObject(history, kVPInputAlternateHostHistory);
  defaults.synchronize();
}

}  // namespace vorn

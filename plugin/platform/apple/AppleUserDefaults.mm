#include "platform/apple/AppleUserDefaults.h"

#import <Foundation/Foundation.h>

#include "platform/apple/Conversions.h"

namespace vorn {

Value AppleUserDefaults::objectForKey(std::string_view key) {
  return valueFromObject([[NSUserDefaults standardUserDefaults] objectForKey:foundationText(key)],
                         LiveObjects::Holding::whenUnowned);
}

void AppleUserDefaults::setObject(const Value& value, std::string_view key) {
  if (value.isAbsent()) return removeObject(key);
  try {
    [[NSUserDefaults standardUserDefaults] setObject:objectFromValue(value) forKey:foundationText(key)];
  } catch (...) {
    // Raised for what no property list can hold; that is not stored.
  }
}

void AppleUserDefaults::removeObject(std::string_view key) {
  [[NSUserDefaults standardUserDefaults] removeObjectForKey:foundationText(key)];
}

void AppleUserDefaults::synchronize() { [[NSUserDefaults standardUserDefaults] synchronize]; }

Value AppleUserDefaults::persistentDomainForName(std::string_view domain) {
  return valueFromObject([[NSUserDefaults standardUserDefaults] persistentDomainForName:foundationText(domain)],
                         LiveObjects::Holding::whenUnowned);
}

}  // namespace vorn

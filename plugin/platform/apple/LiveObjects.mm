#include "platform/apple/LiveObjects.h"

#import <Foundation/Foundation.h>
#include <objc/runtime.h>

#include "platform/apple/DeathWatch.h"
#include "platform/apple/Ownership.h"

namespace vorn {

LiveObjects& LiveObjects::instance() {
  static LiveObjects& all = *std::make_unique<LiveObjects>().release();
  return all;
}

HostObject LiveObjects::reference(id object, Holding holding) {
  if (!object) return {};
  note(object);
  const auto address = reinterpret_cast<std::uintptr_t>(object);
  const bool isOwned = holding == Holding::whenUnowned && [object retainCount] > 1;
  if (holding == Holding::never || isOwned) return HostObject(address);
  return HostObject(address, std::make_shared<Retained<>>(object));
}

id LiveObjects::object(const HostObject& reference) {
  const std::lock_guard<std::mutex> lock(m_mutex);
  return m_addresses.contains(reference.address()) ? reinterpret_cast<id>(reference.address()) : nil;
}

void LiveObjects::note(id object) {
  {
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_addresses.insert(reinterpret_cast<std::uintptr_t>(object)).second) return;
  }
  // A class stays for ever.
  if (!class_isMetaClass(object_getClass(object))) watchDeath(object, &LiveObjects::forget);
}

void LiveObjects::forget(id object) {
  LiveObjects& all = instance();
  const std::lock_guard<std::mutex> lock(all.m_mutex);
  all.m_addresses.erase(reinterpret_cast<std::uintptr_t>(object));
}

}  // namespace vorn

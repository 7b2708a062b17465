#pragma once

#include "host/proxies/vnDelegateBase.h"

namespace vorn {

// The identity of an event's record in the host's store.
class vnECRecordUID : public vnDelegateBase {
 public:
  explicit vnECRecordUID(const HostObject& delegate) : vnDelegateBase(ownClassName(delegate), delegate) {}

  Value recordUID() const { return getOLItemID("recordUID"); }
  Value recordID() const { return getOLItemID("recordID"); }
  Value extraInfo() const { return getOLItemID("extraInfo"); }
  bool recordExists() const { return flag("recordExists"); }
};

}  // namespace vorn

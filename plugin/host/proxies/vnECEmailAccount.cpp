#include "host/proxies/vnECEmailAccount.h"

namespace vorn {

vnECEmailAccount::vnECEmailAccount(const HostObject& delegate) : vnDelegateBase(ownClassName(delegate), delegate) {
  if (const HostObject address = fromAddress()) m_fromAddress.emplace(address);
}

OptionalText vnECEmailAccount::curFromAddress() const {
  return m_fromAddress ? m_fromAddress->emailAddress() : OptionalText("");
}

}  // namespace vorn

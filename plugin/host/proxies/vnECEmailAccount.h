#pragma once

#include <optional>

#include "host/proxies/vnDelegateBase.h"
#include "host/proxies/vnECEmailAddress.h"

namespace vorn {

// A mail account of the host, as an event or an editor names it.
class vnECEmailAccount : public vnDelegateBase {
 public:
  explicit vnECEmailAccount(const HostObject& delegate);

  std::int64_t connectionState() const { return number("connectionState"); }
  bool isAccountConnected() const { return flag("isAccountConnected"); }
  OptionalText emailAddress() const { return text("emailAddress"); }
  HostObject fromAddress() const { return object("fromAddress"); }
  std::int64_t accountType() const { return number("accountType"); }
  bool isDefault() const { return flag("isDefault"); }
  OptionalText name() const { return text("name"); }
  OptionalText realName() const { return text("realName"); }
  std::int64_t serviceOutlookAccountType() const { return number("serviceOutlookAccountType"); }
  bool isGmailAccount() const { return flag("isGmailAccount"); }
  bool shouldDisableCalendarHTMLBodyForAccount() const { return flag("shouldDisableCalendarHTMLBodyForAccount"); }

  // The address that the account sends from. "" without one; absent when the address object gives no text.
  OptionalText curFromAddress() const;

 private:
  std::optional<vnECEmailAddress> m_fromAddress;
};

}  // namespace vorn

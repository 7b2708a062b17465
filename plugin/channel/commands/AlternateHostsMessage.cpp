#include "channel/commands/AlternateHostsMessage.h"

#include <utility>

#include "channel/commands/ReplyFields.h"
#include "platform/Localization.h"

namespace vorn {

Value refusedAlternateHosts(std::string_view moreInfo) {
  Value emails = Value::array();
  for (const std::string_view item : leadingFields(moreInfo, ',', std::string::npos)) {
    emails.append(item.substr(0, item.find('#')));
  }
  return emails;
}

std::string getAlternateHostDisplayError(const Value& emails) {
  std::string shown;
  bool isFirst = true;
  for (const Value& email : emails.items()) {
    if (!std::exchange(isFirst, false)) shown += "; ";
    shown += email.text();
  }
  return formatText("%@ %@",
                    {localizedString("Remove the following users from the list of alternative hosts:"), shown});
}

}  // namespace vorn

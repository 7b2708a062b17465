#pragma once

#include <string>
#include <vector>

#include "settings/TokenSearchList.h"
#include "settings/rules/AlternateHosts.h"

namespace vorn {

// The list under the alternate hosts: people to choose from. Main thread only.
class VNAlternateHostSearchListWindowController final : public TokenSearchList {
 public:
  using Users = std::vector<panel_rules::VNAlternateHostCell>;

  explicit VNAlternateHostSearchListWindowController(ControlSet& controls);

  // Who is in the field already, by their e-mails, in any case of letters.
  void setExistedUser(const std::vector<std::string>& emails) {
    m_existedUsers = panel_rules::FoldedEmails(emails);
  }
  bool isUserExisted(const std::string& email) const { return m_existedUsers.contains(email); }

  // Selects the first.
  void setData(Users users);
  // Behind the others; the selection stays.
  void addDataWithArray(const Users& users);

  void selectNextUser() { selectNext(); }
  void selectPreviousUser() { selectPrevious(); }
  // Null without a selection; holds until the data change.
  const panel_rules::VNAlternateHostCell* getSelectedUserInfo() const;

 private:
  Users m_dataArray;
  panel_rules::FoldedEmails m_existedUsers;
};

}  // namespace vorn

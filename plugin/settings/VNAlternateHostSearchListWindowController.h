#pragma once

#include <string>
#include <vector>

#include "settings/TokenSearchList.h"
#include "settings/rules/AlternateHosts.h"

namespace vorn {

// The list under the alternate hosts: people to choose from, and who of them is a host already. Main thread only.
class VNAlternateHostSearchListWindowController {
 public:
  explicit VNAlternateHostSearchListWindowController(ControlSet& controls);

  // Selects the first.
  void setData(const std::vector<panel_rules::AlternateHost>& users);
  void addDataWithArray(const std::vector<panel_rules::AlternateHost>& users);
  void setExistedUser(const std::vector<std::string>& emails) { m_existedUsers = panel_rules::folded(emails); }
  const panel_rules::FoldedEmails& existedUsers() const { return m_existedUsers; }
  // In any case of letters.
  bool isUserExisted(const std::string& email) const;

  void selectNextUser() { m_list.selectNext(); }
  void selectPreviousUser() { m_list.selectPrevious(); }
  // Null without a selection.
  const TokenChip* getSelectedUserInfo() const { return m_list.selected(); }
  // As its row has it.
  std::string getSelectedUseName() const { return m_list.selectedText(); }

  TokenSearchList& list() { return m_list; }
  const TokenSearchList& list() const { return m_list; }

 private:
  TokenSearchList m_list;
  panel_rules::FoldedEmails m_existedUsers;
};

}  // namespace vorn

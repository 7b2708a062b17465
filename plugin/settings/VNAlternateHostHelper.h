#pragma once

#include <string>
#include <vector>

#include "settings/rules/AlternateHosts.h"
#include "workflow/SettingsPanel.h"

namespace vorn {

// Whom the user has made an alternate host before, in the user defaults, for all windows. Main thread only.
class VNAlternateHostHelper final : public AlternateHostHistory {
 public:
  static VNAlternateHostHelper& sharedInstance();

  // Nothing but the address is known of who was typed.
  std::string getAlternateHostDisplayNameByEmail(const std::string& email) const { return email; }

  // The oldest first.
  std::vector<std::string> getInputAlternateHostHistory() const;
  // Adds who is not in it yet, in any case of letters, and brings it to the disk. Anything but an array adds
  // nobody.
  void addToInputAlternateHostHistory(const Value& alternateHosts) override;

 private:
  // In any case of letters, of a history that has been read.
  static bool hasExistedInInputAlternateHostHistory(const panel_rules::FoldedEmails& history,
                                                    const std::string& email) {
    return history.contains(email);
  }
};

}  // namespace vorn

#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "settings/VNAlternateHostController.h"

namespace vorn {

// The alternate hosts of the meeting: the field in which they are typed, and whether what stands there can be
// committed. Main thread only.
class AlternateHostOptions {
 public:
  explicit AlternateHostOptions(const PanelParts& panel);

  void initWithLocalString();
  // Loads the field from the record.
  void initAlternateHosts();

  // What the user has done; nothing for a control that is not this group's.
  void userChanged(std::string_view key);
  // Closes the list, and gives a chip that is still to come its place.
  void closeAlternateHostSearchListWindow();

  // Something in the field is no address, so the panel cannot be left by Continue. False while the field is
  // hidden.
  bool checkAlternateHostError() const;

  // What a commit writes.
  void writeAlternateHosts();
  // The panel has ended: what is left in the field goes with the next loading.
  void forgetEdits();

 private:
  void takeIntoRecord();
  void takeEdits();
  void textHasChanged();
  void rearrangeAlternateHostTextField();
  double requiredAHTextFieldHeight() const;

  const PanelParts& m_panel;
  Control& m_alternateHostBox;
  Control& m_alternateHostLabel;
  Control& m_alternateHostTextField;
  VNAlternateHostController m_alternateHostController;
  // The user has done something in the field since it was committed or dismissed last.
  bool m_isEdited = false;
  // What the field was loaded with, and what the user has put in and taken out since the edits were forgotten
  // last.
  std::vector<std::string> m_loaded;
  std::vector<std::string> m_added;
  std::unordered_set<std::string> m_removed;
};

}  // namespace vorn

#pragma once

#include <string_view>

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
  void forgetEdits() { m_isEdited = false; }

 private:
  void takeIntoRecord();
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
};

}  // namespace vorn

#pragma once

#include <cstddef>
#include <string>

#include "settings/PanelParts.h"
#include "settings/rules/TrackingFieldRules.h"

namespace vorn {

// Some tracking field of some panel has another value. Every open panel hears.
inline constexpr std::string_view kNoti_VNTrackingFieldValueChanged = "VnTrackingFieldValueChanged";

// One tracking field in the panel: its label, and the value, which is chosen or typed. Its controls have the
// item's key before their own names, as in "trackingFieldItem0._comboBox".
//
// Main thread only; time linear in the field's texts.
class vnTrackingFieldViewItem {
 public:
  static constexpr const char* kKey = "trackingFieldItem";

  // Hidden in the box, with the number as its place there.
  vnTrackingFieldViewItem(ControlSet& controls, const char* box, std::size_t number,
                          vnTrackingFieldContent content);

  const vnTrackingFieldContent& trackingFieldContent() const { return m_trackingFieldContent; }
  void show() { m_view.hidden = false; }

  // The texts, the offered values, and the meeting's value when there is one.
  void initFields();
  // Without the blanks and new lines around it.
  std::string currentTrackingFieldValue() const;
  // The value is the meeting's; it is shown whether or not it is offered.
  void setMtValue(const std::string& mtValue);
  void updateCurrentValue(const std::string& value);

  // The user has chosen or typed since the panel was opened.
  bool isTyped() const { return m_isTyped; }
  void forgetTyped() { m_isTyped = false; }

  // The user has changed the combo box: another entry is chosen, or the text is another.
  void comboBoxChanged();

 private:
  void onClickTrackingValueCombox();
  void controlTextDidChange();
  int placeOf(const std::string& value) const;

  vnTrackingFieldContent m_trackingFieldContent;
  bool m_isTyped = false;
  // The chosen entry as it was; -1 for a text of the user's own.
  int m_chosen = kNone;
  static constexpr int kNone = -1;

  Control& m_view;
  Control& m_label;
  Control& m_optionalLabel;
  Control& m_comboBox;
};

}  // namespace vorn

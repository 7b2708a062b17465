#include "settings/vnTrackingFieldViewItem.h"

#include <algorithm>
#include <utility>

#include "platform/NotificationCenter.h"
#include "platform/Registry.h"
#include "platform/controls/NumberedKey.h"

namespace vorn {

using Kind = Control::Kind;
using namespace panel_rules;

namespace {

constexpr std::size_t kLongestValue = 50;

std::string keyOf(std::size_t number) { return numberedKey(vnTrackingFieldViewItem::kKey, number); }

}  // namespace

vnTrackingFieldViewItem::vnTrackingFieldViewItem(ControlSet& controls, const char* box, std::size_t number,
                                                 vnTrackingFieldContent content)
    : m_trackingFieldContent(std::move(content)),
      m_view(controls.add(Kind::box, keyOf(number), box)),
      m_label(controls.add(Kind::label, keyOf(number) + "._label", keyOf(number))),
      m_optionalLabel(controls.add(Kind::label, keyOf(number) + "._optionalLabel", keyOf(number))),
      m_comboBox(controls.add(Kind::comboBox, keyOf(number) + "._comboBox", keyOf(number))) {
  m_view.hidden = true;
  m_comboBox.formatter = vnMaxLengthFormatter(kLongestValue);
}

void vnTrackingFieldViewItem::initFields() {
  m_label.text = m_trackingFieldContent.trackingField + ":";
  m_optionalLabel.text = panelText("LN_Schedule_TrackingField_Optional");
  m_optionalLabel.hidden = m_trackingFieldContent.required;
  m_comboBox.spoken = m_trackingFieldContent.trackingField;
  m_comboBox.items.clear();
  for (std::string& value : offeredTrackingValues(m_trackingFieldContent.trackingValue)) {
    m_comboBox.items.emplace_back(std::move(value));
  }
  updateCurrentValue(m_trackingFieldContent.mtValue);
}

std::string vnTrackingFieldViewItem::currentTrackingFieldValue() const {
  return trackingFieldValue(m_comboBox.text);
}

void vnTrackingFieldViewItem::setMtValue(const std::string& mtValue) {
  m_trackingFieldContent.mtValue = mtValue;
  updateCurrentValue(mtValue);
}

void vnTrackingFieldViewItem::updateCurrentValue(const std::string& value) {
  m_comboBox.text = value;
  m_comboBox.index = placeOf(value);
  m_chosen = m_comboBox.index;
}

int vnTrackingFieldViewItem::placeOf(const std::string& value) const {
  const auto& items = m_comboBox.items;
  const auto found =
      std::find_if(items.begin(), items.end(), [&](const ControlItem& item) { return item.title == value; });
  return found == items.end() ? kNone : static_cast<int>(found - items.begin());
}

void vnTrackingFieldViewItem::comboBoxChanged() {
  m_isTyped = true;
  if (m_comboBox.index != m_chosen && m_comboBox.index >= 0) {
    onClickTrackingValueCombox();
  } else {
    controlTextDidChange();
  }
  m_chosen = m_comboBox.index;
  Registry::platform().notificationCenter->post(kNoti_VNTrackingFieldValueChanged);
}

void vnTrackingFieldViewItem::onClickTrackingValueCombox() {
  const auto index = static_cast<std::size_t>(m_comboBox.index);
  if (index < m_comboBox.items.size()) m_comboBox.text = m_comboBox.items[index].title;
}

void vnTrackingFieldViewItem::controlTextDidChange() { m_comboBox.index = placeOf(m_comboBox.text); }

}  // namespace vorn

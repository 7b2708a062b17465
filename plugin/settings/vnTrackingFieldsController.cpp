#include "settings/vnTrackingFieldsController.h"

#include <algorithm>

#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "platform/controls/NumberedKey.h"
#include "settings/rules/ControlKeys.h"

namespace vorn {

using namespace panel_rules;

vnTrackingFieldsController::vnTrackingFieldsController(const PanelParts& panel)
    : m_controls(panel.controls),
      m_record(panel.record),
      m_trackingFieldsBox(m_controls.add(Control::Kind::box, control_key::trackingFieldsBox)) {
  m_trackingFieldsBox.hidden = true;
}

// -- Loading -----------------------------------------------------------------------------------------------------

void vnTrackingFieldsController::initTrackingFieldItemListWithUserProfile() {
  for (const Value& field : vnUserProfileHelper::sharedInstance().trackingFields().items()) {
    m_items.push_back(std::make_unique<vnTrackingFieldViewItem>(m_controls, control_key::trackingFieldsBox,
                                                                m_items.size(), trackingFieldOf(field)));
    m_itemWithId.emplace(m_items.back()->trackingFieldContent().id, m_items.back().get());
  }
  initialItems();
}

void vnTrackingFieldsController::initialItems() {
  for (const auto& item : m_items) item->initFields();
}

vnTrackingFieldViewItem* vnTrackingFieldsController::itemWith(const std::string& id) const {
  const auto found = m_itemWithId.find(id);
  return found == m_itemWithId.end() ? nullptr : found->second;
}

void vnTrackingFieldsController::updateMtValueByIdxToUI(const std::string& id, const std::string& mtValue) {
  if (vnTrackingFieldViewItem* item = itemWith(id)) item->setMtValue(mtValue);
}

// The panel is loaded again while the user is in it, when they choose another meeting ID; the record has not heard
// of what was typed until then, and would take it away.
void vnTrackingFieldsController::loadMtValues() {
  for (const Value& field : m_record.trackingFields().items()) {
    const vnTrackingFieldContent content = trackingFieldOf(field);
    const vnTrackingFieldViewItem* item = itemWith(content.id);
    if (item && !item->isTyped()) updateMtValueByIdxToUI(content.id, content.mtValue);
  }
}

void vnTrackingFieldsController::initTrackingFields() {
  m_trackingFieldsBox.hidden = m_items.empty();
  for (const auto& item : m_items) item->show();
}

// -- What the user does ------------------------------------------------------------------------------------------

void vnTrackingFieldsController::userChanged(std::string_view key) {
  const auto number = numberOfKey(key, vnTrackingFieldViewItem::kKey, "._comboBox");
  if (number && *number < m_items.size()) m_items[*number]->comboBoxChanged();
}

std::vector<const vnTrackingFieldViewItem*> vnTrackingFieldsController::requiredFieldViewItemList() const {
  std::vector<const vnTrackingFieldViewItem*> required;
  for (const auto& item : m_items) {
    if (item->trackingFieldContent().required) required.push_back(item.get());
  }
  return required;
}

bool vnTrackingFieldsController::missedRequiredTrackingFields() const {
  const auto required = requiredFieldViewItemList();
  return std::any_of(required.begin(), required.end(), [](const vnTrackingFieldViewItem* item) {
    return item->currentTrackingFieldValue().empty();
  });
}

// -- Commit ------------------------------------------------------------------------------------------------------

void vnTrackingFieldsController::writeTrackingFields() {
  Value fields = Value::array();
  for (const auto& item : m_items) {
    fields.append(trackingFieldWith(item->trackingFieldContent(), item->currentTrackingFieldValue()));
  }
  if (!m_items.empty()) m_record.setTrackingFields(fields);
}

void vnTrackingFieldsController::forgetTyped() {
  for (const auto& item : m_items) item->forgetTyped();
}

}  // namespace vorn

#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "settings/PanelParts.h"
#include "settings/vnTrackingFieldViewItem.h"

namespace vorn {

// The tracking fields of the account in one panel. A required one without a value keeps Continue from being used.
//
// Main thread only; each step takes time linear in the fields.
class vnTrackingFieldsController {
 public:
  explicit vnTrackingFieldsController(const PanelParts& panel);
  vnTrackingFieldsController(const vnTrackingFieldsController&) = delete;
  vnTrackingFieldsController& operator=(const vnTrackingFieldsController&) = delete;

  // Makes an item of each of the account's fields, hidden. Once in the life of a panel.
  void initTrackingFieldItemListWithUserProfile();

  // The steps of loading: the record's values, and the fields' place on the screen.
  void loadMtValues();
  void initTrackingFields();
  // The value of the field with that id; nothing for an unknown one.
  void updateMtValueByIdxToUI(const std::string& id, const std::string& mtValue);

  // What the user has changed; nothing for a control that is not this group's.
  void userChanged(std::string_view key);

  std::vector<const vnTrackingFieldViewItem*> requiredFieldViewItemList() const;
  bool missedRequiredTrackingFields() const;

  // What a commit writes of them.
  void writeTrackingFields();
  // The panel has ended: from now on the record counts, and not what was typed.
  void forgetTyped();

 private:
  void initialItems();
  vnTrackingFieldViewItem* itemWith(const std::string& id) const;

  ControlSet& m_controls;
  vnSettingData& m_record;
  Control& m_trackingFieldsBox;
  std::vector<std::unique_ptr<vnTrackingFieldViewItem>> m_items;
  // Of two fields with one id the first.
  std::map<std::string, vnTrackingFieldViewItem*> m_itemWithId;
};

}  // namespace vorn

#pragma once

// The tracking fields that an account attaches to each meeting. Pure functions; time linear in the texts.

#include <string>
#include <string_view>
#include <vector>

#include "util/Value.h"

namespace vorn {

struct vnTrackingFieldContent {
  std::string id{};
  // The label.
  std::string trackingField{};
  // The offered values, as the account has them.
  std::string trackingValue{};
  // This meeting's value.
  std::string mtValue{};
  bool required = false;

  bool operator==(const vnTrackingFieldContent&) const = default;
};

namespace panel_rules {

// Texts that a dictionary does not have are empty.
vnTrackingFieldContent trackingFieldOf(const Value& dictionary);
// The dictionary of the field with a value for the meeting.
Value trackingFieldWith(const vnTrackingFieldContent& content, const std::string& mtValue);

// The values that trackingValue offers; none when it is empty.
std::vector<std::string> offeredTrackingValues(std::string_view trackingValue);
// What counts of a value that was typed.
std::string trackingFieldValue(const std::string& typed);

}  // namespace panel_rules

}  // namespace vorn

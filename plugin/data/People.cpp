#include "data/People.h"

#include "data/vnProfileKeys.h"
#include "util/Text.h"

namespace vorn {

std::int64_t indexOfPerson(const Value& people, std::string_view key, const OptionalText& wanted) {
  if (!wanted || wanted->empty()) return -1;
  for (std::size_t i = 0; i < people.items().size(); ++i) {
    if (equalIgnoringCase(people.at(i)[key].text(), *wanted)) return static_cast<std::int64_t>(i);
  }
  return -1;
}

Value personWithEmail(const Value& people, const OptionalText& email) {
  const std::int64_t index = indexOfPerson(people, vn_Boss_Email, email);
  return index < 0 ? Value() : people.at(static_cast<std::size_t>(index));
}

}  // namespace vorn

#include "data/OptionPolicy.h"

#include <algorithm>

namespace vorn {

bool AccountQuestion::speaks(const AccountFacts& account) const {
  if (!exists()) return false;
  const Value answer = ask(account);
  return answer.isArray() || answer.isDictionary() ? answer.count() > 0
                                                   : answer.boolValue() || answer.integerValue() != 0;
}

bool OptionPolicy::isOffered(const AccountFacts& account) const {
  return !offeredBy.front().exists() ||
         std::any_of(offeredBy.begin(), offeredBy.end(),
                     [&](const AccountQuestion& question) { return question.speaks(account); });
}

}  // namespace vorn

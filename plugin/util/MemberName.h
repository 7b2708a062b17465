#pragma once

#include <cstddef>
#include <string_view>

namespace vorn {

// The name of a member as it is written where it is declared, so that a table can name what it asks without saying
// it twice: memberName<&Account::isLocked>() is "isLocked".
template <auto Member>
consteval std::string_view memberName() {
  // Ends in "Member = &Class::member]", with further parameters behind it on some compilers.
  constexpr std::string_view kSignature = __PRETTY_FUNCTION__;
  constexpr std::size_t kEnd = kSignature.find_first_of(";]", kSignature.find("Member = "));
  constexpr std::size_t kBegin = kSignature.rfind("::", kEnd) + 2;
  return kSignature.substr(kBegin, kEnd - kBegin);
}

}  // namespace vorn

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorn {

// Text of ours inside text of the user. It counts only where it stands by itself: "+1 20" is not the beginning of
// "+1 200", and "Phone" is not a part of "Phones". The empty text stands nowhere. Each takes time linear in both.

std::size_t timesInWhole(std::string_view text, std::string_view wanted);
bool endsInWhole(std::string_view text, std::string_view wanted);
// Each goes with a comma behind it.
std::string withoutWhole(std::string_view text, std::string_view wanted);
std::string withoutLastWhole(std::string_view text, std::string_view wanted);

}  // namespace vorn

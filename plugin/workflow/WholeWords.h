#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vorn {

// Text of ours inside text of the user. It counts only where it stands by itself: "+1 20" is not the beginning of
// "+1 200", and "Phone" is not a part of "Phones". The empty text stands nowhere. Each takes time linear in both.
// Any thread; no state.

std::size_t timesInWhole(std::string_view text, std::string_view wanted);
bool endsInWhole(std::string_view text, std::string_view wanted);
// The text without the last of them and a comma behind it.
std::string withoutLastWhole(std::string_view text, std::string_view wanted);
// The text without any of many, each with a comma behind it; of two that begin alike the longer one goes. Their
// number counts only by its logarithm, since the client may tell any.
std::string withoutWhole(std::string_view text, std::vector<std::string> wanted);

}  // namespace vorn

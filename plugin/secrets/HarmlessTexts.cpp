#include "secrets/HarmlessTexts.h"

#include <algorithm>
#include <functional>

namespace vorn {

std::size_t HarmlessTexts::shelfOf(std::string_view text) {
  return std::hash<std::string_view>()(text) % kShelves;
}

// An unused place is an empty text, in which there is indeed nothing to cover.
bool HarmlessTexts::contains(std::string_view text) const {
  if (text.size() > kLongest) return false;
  const Shelf& shelf = m_shelves[shelfOf(text)];
  return std::any_of(shelf.begin(), shelf.end(), [text](const Place& place) {
    return std::string_view(place.bytes.data(), place.size) == text;
  });
}

void HarmlessTexts::remember(std::string_view text) {
  if (text.size() > kLongest) return;
  Shelf& shelf = m_shelves[shelfOf(text)];
  shelf[1] = shelf[0];
  shelf[0].size = static_cast<unsigned char>(text.size());
  std::copy(text.begin(), text.end(), shelf[0].bytes.begin());
}

}  // namespace vorn

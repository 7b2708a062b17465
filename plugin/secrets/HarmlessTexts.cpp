#include "secrets/HarmlessTexts.h"

#include <algorithm>
#include <functional>

namespace vorn {

std::size_t HarmlessTexts::placeOf(std::string_view text) { return std::hash<std::string_view>()(text) % kPlaces; }

// An unused place is an empty text, in which there is indeed nothing to cover.
bool HarmlessTexts::contains(std::string_view text) const {
  if (text.size() > kLongest) return false;
  const Place& place = m_places[placeOf(text)];
  return std::string_view(place.bytes.data(), place.size) == text;
}

void HarmlessTexts::remember(std::string_view text) {
  if (text.size() > kLongest) return;
  Place& place = m_places[placeOf(text)];
  place.size = static_cast<unsigned char>(text.size());
  std::copy(text.begin(), text.end(), place.bytes.begin());
}

}  // namespace vorn

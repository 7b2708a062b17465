#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace vorn {

// Short texts in which nothing had to be covered, or keys that say nothing of their values, so that what a report
// says again for each appointment is searched for secrets once. What the rules take for a secret is never kept
// here.
//
// One of each for each thread that covers, of 64 KB. It has nothing to end, so it may outlive all else of its
// thread.
class HarmlessTexts {
 public:
  // False also for one that was forgotten: a newer text takes an older one's place.
  bool contains(std::string_view text) const;
  // Too long a text is not remembered.
  void remember(std::string_view text);

 private:
  static constexpr std::size_t kLongest = 127;
  static constexpr std::size_t kShelves = 256;
  struct Place {
    unsigned char size = 0;
    std::array<char, kLongest> bytes{};
  };
  // Two that come again and again keep their places beside each other, the newer one first.
  using Shelf = std::array<Place, 2>;
  static std::size_t shelfOf(std::string_view text);

  std::array<Shelf, kShelves> m_shelves{};
};

}  // namespace vorn

#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorn {

// Entries under text keys, each key once, in the byte order of the keys and side by side in memory: for the few
// entries of a usual dictionary quicker to make, to read and to end than a tree.
//
// A new key makes those behind it move up, so whoever has many entries hands them over together. As a standard
// container: one thread at a time while it changes, and a change makes pointers and iterators invalid.
template <typename T>
class FlatMap {
 public:
  using Entry = std::pair<std::string, T>;
  using const_iterator = typename std::vector<Entry>::const_iterator;

  FlatMap() = default;
  FlatMap(std::initializer_list<Entry> entries) : FlatMap(std::vector<Entry>(entries)) {}
  // In the order of the keys, each key once.
  struct InOrder {};
  FlatMap(InOrder, std::vector<Entry> entries) : m_entries(std::move(entries)) {}
  // In any order, which costs a sort unless it is the keys' own; of equal keys the last one counts.
  explicit FlatMap(std::vector<Entry> entries) : m_entries(std::move(entries)) {
    const auto precedes = [](const Entry& a, const Entry& b) { return a.first < b.first; };
    const auto doesNotPrecede = [](const Entry& a, const Entry& b) { return a.first >= b.first; };
    if (std::adjacent_find(m_entries.begin(), m_entries.end(), doesNotPrecede) == m_entries.end()) return;
    std::stable_sort(m_entries.begin(), m_entries.end(), precedes);
    // From behind, where the one that counts comes first.
    const auto kept = std::unique(m_entries.rbegin(), m_entries.rend(),
                                  [](const Entry& a, const Entry& b) { return a.first == b.first; });
    m_entries.erase(m_entries.begin(), kept.base());
  }

  const_iterator begin() const { return m_entries.begin(); }
  const_iterator end() const { return m_entries.end(); }
  std::size_t size() const { return m_entries.size(); }
  bool empty() const { return m_entries.empty(); }

  // Null when there is none.
  const T* find(std::string_view key) const {
    const auto at = lowerBound(m_entries, key);
    return at != m_entries.end() && at->first == key ? &at->second : nullptr;
  }
  bool contains(std::string_view key) const { return find(key) != nullptr; }

  // Made when there is none.
  T& operator[](std::string_view key) {
    auto at = lowerBound(m_entries, key);
    if (at == m_entries.end() || at->first != key) at = m_entries.emplace(at, key, T());
    return at->second;
  }
  // Nothing happens when there is none.
  void erase(std::string_view key) {
    const auto at = lowerBound(m_entries, key);
    if (at != m_entries.end() && at->first == key) m_entries.erase(at);
  }

  friend bool operator==(const FlatMap& a, const FlatMap& b) { return a.m_entries == b.m_entries; }

 private:
  template <typename Entries>
  static auto lowerBound(Entries& entries, std::string_view key) {
    return std::lower_bound(entries.begin(), entries.end(), key,
                            [](const Entry& entry, std::string_view wanted) { return entry.first < wanted; });
  }

  std::vector<Entry> m_entries;
};

}  // namespace vorn

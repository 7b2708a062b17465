#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace vorn {

// Comparing and ordering texts in the way of a language, which is a tag such as "de" or "zh-Hant-TW". A tag that
// nobody knows counts as no language in particular. No function fails; time linear in the text. Any thread.

// In lower case and in the composed form, so that two texts that read alike are alike.
std::string lowerCased(std::string_view text, const std::string& language);

// The order of texts that ignores case.
class TextOrder {
 public:
  explicit TextOrder(const std::string& language);
  ~TextOrder();
  TextOrder(const TextOrder&) = delete;
  TextOrder& operator=(const TextOrder&) = delete;

  // Texts are in the order of their keys, byte for byte; those that differ in case alone have the same key.
  std::string key(std::string_view text) const;

 private:
  class Collation;
  std::unique_ptr<Collation> m_collation;
};

}  // namespace vorn

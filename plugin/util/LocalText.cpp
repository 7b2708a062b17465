#include "util/LocalText.h"

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <cstdint>

namespace vorn {

namespace {

icu::Locale localeOf(const std::string& language) {
  UErrorCode status = U_ZERO_ERROR;
  icu::Locale locale = icu::Locale::forLanguageTag(language, status);
  return U_SUCCESS(status) && !locale.isBogus() ? locale : icu::Locale::getRoot();
}

icu::UnicodeString unicode(std::string_view text) {
  return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

icu::UnicodeString composed(const icu::UnicodeString& text) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* normalizer = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status)) return text;
  icu::UnicodeString result = normalizer->normalize(text, status);
  return U_SUCCESS(status) ? result : text;
}

}  // namespace

std::string lowerCased(std::string_view text, const std::string& language) {
  std::string result;
  composed(unicode(text).toLower(localeOf(language))).toUTF8String(result);
  return result;
}

class TextOrder::Collation {
 public:
  explicit Collation(const std::string& language) {
    UErrorCode status = U_ZERO_ERROR;
    m_collator.reset(icu::Collator::createInstance(localeOf(language), status));
    if (U_FAILURE(status)) m_collator.reset();
    if (m_collator) m_collator->setStrength(icu::Collator::SECONDARY);
  }

  std::string key(std::string_view text) const {
    if (!m_collator) return lowerCased(text, "");
    const icu::UnicodeString units = unicode(text);
    const std::int32_t size = m_collator->getSortKey(units, nullptr, 0);
    std::string result(static_cast<std::size_t>(size), '\0');
    m_collator->getSortKey(units, reinterpret_cast<std::uint8_t*>(result.data()), size);
    return result;
  }

 private:
  std::unique_ptr<icu::Collator> m_collator;
};

TextOrder::TextOrder(const std::string& language) : m_collation(std::make_unique<Collation>(language)) {}

TextOrder::~TextOrder() = default;

std::string TextOrder::key(std::string_view text) const { return m_collation->key(text); }

}  // namespace vorn

#include "channel/store/vnCommon.h"

#include <re2/re2.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "channel/store/vnPathConstants.h"
#include "platform/Registry.h"
#include "platform/Surroundings.h"
#include "util/Text.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

struct UserIdSource {
  std::function<OptionalText()> ask;
};

std::string inPluginFolder(const std::string& name) {
  return vnCommon::getDocumentOutlookPluginRootPath() + "/" + name;
}

// Character for character as every release has had it, the range from "+" to "=" included.
constexpr const char* kEmailExpression =
    R"([A-Z0-9a-z.'`~|^*_%+-=/&^%$#?<>!;:,.)(><]+@[A-Za-z0-9.-]+\.[A-Za-z0-9]{1,100})";

// A name of at least two labels; the last one begins and ends with a letter.
std::string domainExpression() {
  const std::string wide = "[\u00A0-\uD7FF\uF900-\uFDCF\uFDF0-\uFFEF]";
  const std::string letter = "([a-z]|" + wide + ")";
  const std::string edge = R"(([a-z]|\d|)" + wide + ")";
  const std::string inner = R"(([a-z]|\d|-|\.|_|~|)" + wide + ")*";
  return "^((" + edge + "|(" + edge + inner + edge + R"())\.)+()" + letter + "|(" + letter + inner + letter +
         "))$";
}

RE2::Options expressionOptions(bool caseSensitive) {
  RE2::Options options;
  options.set_case_sensitive(caseSensitive);
  options.set_log_errors(false);
  options.set_never_capture(true);
  return options;
}

struct Expressions {
  const RE2 email{kEmailExpression, expressionOptions(true)};
  const RE2 domain{domainExpression(), expressionOptions(false)};
};

icu::Locale currentLocale() {
  Surroundings* surroundings = Registry::platform().surroundings;
  const std::vector<std::string> languages =
      surroundings ? surroundings->preferredLanguages() : std::vector<std::string>();
  if (languages.empty()) return icu::Locale::getEnglish();
  UErrorCode status = U_ZERO_ERROR;
  return icu::Locale::forLanguageTag(languages.front(), status);
}

// Without all leading wildcard labels. A name that is left without a dot is no domain and is not stripped
// further.
std::string_view withoutWildcards(std::string_view name) {
  constexpr std::string_view kWildcard = "*.";
  while (name.size() > kWildcard.size() && name.starts_with(kWildcard)) {
    name.remove_prefix(kWildcard.size());
    if (name.find('.') == std::string_view::npos) break;
  }
  return name;
}

// The country's name; "" when it has none.
std::string countryName(const std::string& code, const icu::Locale& language) {
  constexpr std::size_t kLongestCode = 3;
  if (code.size() > kLongestCode) return "";
  icu::UnicodeString name;
  icu::Locale("", code.c_str()).getDisplayCountry(language, name);
  std::string text;
  name.toUTF8String(text);
  return text == code ? "" : text;
}

}  // namespace

std::string vnCommon::getDocumentOutlookPluginRootPath() {
  Surroundings* surroundings = Registry::platform().surroundings;
  if (!surroundings) return "";
  return surroundings->documentsDirectory() + "/" + std::string(kvnOutlookPluginFolder);
}

std::string vnCommon::getVnUserProfilePath(const OptionalText& userId) {
  if (!userId || userId->find_first_of(std::string_view("/\0", 2)) != std::string::npos) return "";
  return inPluginFolder(*userId + ".txt");
}

OptionalText vnCommon::getUID() {
  const std::function<OptionalText()>& ask = Registry::shared<UserIdSource>().ask;
  return ask ? ask() : std::nullopt;
}

void vnCommon::setUserIdSource(std::function<OptionalText()> source) {
  Registry::shared<UserIdSource>().ask = std::move(source);
}

bool vnCommon::isValidEmail(const OptionalText& text) {
  return text && !text->empty() && RE2::FullMatch(*text, Registry::shared<Expressions>().email);
}

bool vnCommon::isValidDomainName(const OptionalText& text) {
  if (!text || text->empty()) return false;
  const std::string name = inLowerCase(vnOLUtils::trimAllSpaceAndNewLine(text).value_or(""));
  return RE2::PartialMatch(withoutWildcards(name), Registry::shared<Expressions>().domain);
}

Value vnCommon::getAllCountriesArray() {
  const icu::Locale language = currentLocale();
  Value countries = Value::array();
  for (const char* const* code = icu::Locale::getISOCountries(); *code; ++code) {
    const std::string name = countryName(*code, language);
    if (!name.empty()) countries.append(Value::dictionaryFromPairs({{"code", *code}, {"name", name}}));
  }
  return countries;
}

OptionalText vnCommon::getCountryNameByCode(const OptionalText& code) {
  if (!code || code->empty()) return std::nullopt;
  const std::string name = countryName(*code, currentLocale());
  return name.empty() ? code : name;
}

std::string vnCommon::inLowerCase(const std::string& text) {
  std::string lower;
  return icu::UnicodeString::fromUTF8(text).toLower(currentLocale()).toUTF8String(lower);
}

bool vnCommon::isExistedInAnotherList(const OptionalText& text, const Value& anotherList) {
  const Value::Array& items = anotherList.items();
  return text && std::any_of(items.begin(), items.end(), [&](const Value& item) { return item == Value(text); });
}

bool vnCommon::isExistedInAnotherListWithIgnoreCase(const OptionalText& text, const Value& anotherList) {
  const Value::Array& items = anotherList.items();
  return text && std::any_of(items.begin(), items.end(), [&](const Value& item) {
           return item.isText() && equalIgnoringCase(item.text(), *text);
         });
}

}  // namespace vorn

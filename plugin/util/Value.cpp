#include "util/Value.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <tuple>

namespace vorn {

namespace {

const Value kAbsent;
const std::string kNoText;
const Value::Array kNoItems;
const Value::Dictionary kNoEntries;

// Up to so many bytes, about a line, a text is copied: to share it would take a second piece of the heap.
constexpr std::size_t kLongestCopied = 100;

std::int64_t cutToInteger(double number) {
  if (std::isnan(number)) return 0;
  if (number >= 9223372036854775807.0) return std::numeric_limits<std::int64_t>::max();
  if (number <= -9223372036854775808.0) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(number);
}

bool textMeansTrue(const std::string& text) {
  std::size_t i = text.find_first_not_of(" \t\r\n");
  if (i == std::string::npos) return false;
  if (text[i] == '+' || text[i] == '-') ++i;
  while (i < text.size() && text[i] == '0') ++i;
  if (i == text.size()) return false;
  const char c = text[i];
  return c == 'Y' || c == 'y' || c == 'T' || c == 't' || (c >= '1' && c <= '9');
}

}  // namespace

std::string HostObject::windowId() const {
  char digits[2 * sizeof(std::uintptr_t) + 1];
  std::snprintf(digits, sizeof digits, "%lx", static_cast<unsigned long>(m_address));
  return digits;
}

Value::Value(std::string text) {
  if (text.size() <= kLongestCopied) {
    m_content.emplace<std::string>(std::move(text));
  } else {
    m_content = std::make_shared<const ReadyText>(std::move(text));
  }
}

Value::Value(const OptionalText& text) {
  if (text) *this = Value(*text);
}

Value::Value(const HostObject& object) {
  if (object) m_content = object;
}

// The pairs are put in order before anything is copied, while moving one is cheap.
Value Value::dictionaryFromPairs(std::initializer_list<std::pair<std::string_view, Value>> pairs) {
  using Pair = std::pair<std::string_view, Value>;
  std::vector<const Pair*> order;
  order.reserve(pairs.size());
  for (const Pair& pair : pairs) {
    if (pair.second.isAbsent()) break;
    order.push_back(&pair);
  }
  std::sort(order.begin(), order.end(),
            [](const Pair* a, const Pair* b) { return std::tie(a->first, a) < std::tie(b->first, b); });
  std::vector<Dictionary::Entry> entries;
  entries.reserve(order.size());
  for (const Pair* pair : order) {
    if (!entries.empty() && entries.back().first == pair->first) entries.pop_back();
    entries.emplace_back(pair->first, pair->second);
  }
  return Dictionary(Dictionary::InOrder(), std::move(entries));
}

const std::string& Value::text() const& {
  if (const auto* brief = std::get_if<std::string>(&m_content)) return *brief;
  const auto* held = std::get_if<std::shared_ptr<const LateText>>(&m_content);
  return held ? (*held)->text() : kNoText;
}

OptionalText Value::optionalText() const {
  if (!isText()) return std::nullopt;
  return text();
}

std::string Value::stringValue() const {
  switch (kind()) {
    case Kind::text: return text();
    case Kind::boolean: return *std::get_if<bool>(&m_content) ? "1" : "0";
    case Kind::integer: return std::to_string(*std::get_if<std::int64_t>(&m_content));
    case Kind::real: {
      char digits[40];
      std::snprintf(digits, sizeof digits, "%.17g", *std::get_if<double>(&m_content));
      return digits;
    }
    default: return {};
  }
}

bool Value::boolValue() const {
  switch (kind()) {
    case Kind::boolean: return *std::get_if<bool>(&m_content);
    case Kind::integer: return *std::get_if<std::int64_t>(&m_content) != 0;
    case Kind::real: return *std::get_if<double>(&m_content) != 0;
    case Kind::text: return textMeansTrue(text());
    default: return false;
  }
}

std::int64_t Value::integerValue() const {
  switch (kind()) {
    case Kind::boolean: return *std::get_if<bool>(&m_content) ? 1 : 0;
    case Kind::integer: return *std::get_if<std::int64_t>(&m_content);
    case Kind::real: return cutToInteger(*std::get_if<double>(&m_content));
    case Kind::text: return std::strtoll(text().c_str(), nullptr, 10);
    default: return 0;
  }
}

double Value::realValue() const {
  switch (kind()) {
    case Kind::boolean: return *std::get_if<bool>(&m_content) ? 1 : 0;
    case Kind::integer: return static_cast<double>(*std::get_if<std::int64_t>(&m_content));
    case Kind::real: return *std::get_if<double>(&m_content);
    case Kind::text: return std::strtod(text().c_str(), nullptr);
    default: return 0;
  }
}

HostObject Value::object() const {
  const auto* held = std::get_if<HostObject>(&m_content);
  return held ? *held : HostObject();
}

const Value::Array& Value::items() const& {
  const auto* held = std::get_if<std::shared_ptr<Array>>(&m_content);
  return held ? **held : kNoItems;
}

const Value::Dictionary& Value::entries() const& {
  const auto* held = std::get_if<std::shared_ptr<Dictionary>>(&m_content);
  return held ? **held : kNoEntries;
}

std::size_t Value::count() const { return isArray() ? items().size() : entries().size(); }

const Value& Value::operator[](std::string_view key) const& {
  const Value* found = entries().find(key);
  return found ? *found : kAbsent;
}

const Value& Value::at(std::size_t index) const& {
  const Array& all = items();
  return index < all.size() ? all[index] : kAbsent;
}

bool Value::contains(std::string_view key) const { return entries().contains(key); }

Value::Array& Value::mutableItems() {
  auto* held = std::get_if<std::shared_ptr<Array>>(&m_content);
  if (!held) return *m_content.emplace<std::shared_ptr<Array>>(std::make_shared<Array>());
  if (held->use_count() > 1) *held = std::make_shared<Array>(**held);
  return **held;
}

Value::Dictionary& Value::mutableEntries() {
  auto* held = std::get_if<std::shared_ptr<Dictionary>>(&m_content);
  if (!held) return *m_content.emplace<std::shared_ptr<Dictionary>>(std::make_shared<Dictionary>());
  if (held->use_count() > 1) *held = std::make_shared<Dictionary>(**held);
  return **held;
}

void Value::set(std::string_view key, Value value) {
  if (value.isAbsent()) return;
  mutableEntries()[key] = std::move(value);
}

void Value::erase(std::string_view key) {
  if (contains(key)) mutableEntries().erase(key);
}

void Value::addEntries(const Value& other) {
  const Value kept = other;
  for (const auto& [key, value] : kept.entries()) set(key, value);
}

void Value::append(Value value) {
  if (value.isAbsent()) return;
  mutableItems().push_back(std::move(value));
}

bool operator==(const Value& a, const Value& b) {
  if (a.isNumber() && b.isNumber()) {
    if (a.isReal() || b.isReal()) return a.realValue() == b.realValue();
    return a.integerValue() == b.integerValue();
  }
  if (a.kind() != b.kind()) return false;
  switch (a.kind()) {
    case Value::Kind::text: {
      // What was passed on and comes back need not be made to be compared.
      using Text = std::shared_ptr<const LateText>;
      const Text *held = std::get_if<Text>(&a.m_content), *other = std::get_if<Text>(&b.m_content);
      return (held && other && *held == *other) || a.text() == b.text();
    }
    case Value::Kind::array: return a.items() == b.items();
    case Value::Kind::dictionary: return a.entries() == b.entries();
    case Value::Kind::object: return a.object() == b.object();
    default: return true;
  }
}

}  // namespace vorn

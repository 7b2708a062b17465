#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "util/FlatMap.h"
#include "util/HostObject.h"

namespace vorn {

// Text that may be absent. An absent text and an empty text are different answers in this system.
using OptionalText = std::optional<std::string>;
inline bool isEmpty(const OptionalText& text) { return !text || text->empty(); }

// A text that is somewhere else, in another form, and made when it is first asked for. Any thread.
class LateText {
 public:
  virtual ~LateText() = default;
  // UTF-8; the same each time, and as long as this lives.
  virtual const std::string& text() const = 0;
};

// The one dynamic type: what travels in the host's dictionaries, in JSON and in property lists.
//
// A value is absent, null, a boolean, a 64-bit integer, a double, UTF-8 text, an array, a dictionary with text
// keys, or an opaque host object. Absent means that nothing is there; null is the host's null object, a value
// of its own. Reading through absence gives absence and never fails.
//
// Copies share their content until one of them changes, but for a text of up to a line, which is copied: so what a
// copy costs has a bound. Several threads may read one value; changing it needs exclusive access to it and to
// every copy that shares its content.
class Value {
 public:
  enum class Kind { absent, null, boolean, integer, real, text, array, dictionary, object };
  using Array = std::vector<Value>;
  using Dictionary = FlatMap<Value>;

  Value() = default;
  Value(std::nullptr_t) : m_content(Null{}) {}
  Value(bool flag) : m_content(flag) {}
  Value(int number) : m_content(std::int64_t{number}) {}
  Value(unsigned number) : m_content(std::int64_t{number}) {}
  Value(long number) : m_content(std::int64_t{number}) {}
  Value(long long number) : m_content(static_cast<std::int64_t>(number)) {}
  // Numbers above the signed range keep their bit pattern.
  Value(unsigned long number) : m_content(static_cast<std::int64_t>(number)) {}
  Value(unsigned long long number) : m_content(static_cast<std::int64_t>(number)) {}
  Value(double number) : m_content(number) {}
  Value(const char* text) : Value(std::string(text)) {}
  Value(std::string_view text) : Value(std::string(text)) {}
  Value(std::string text);
  // A text that is made only when it is read, which may never happen. Must not be null.
  Value(std::shared_ptr<const LateText> text) : m_content(std::move(text)) {}
  // An absent text gives the absent value.
  Value(const OptionalText& text);
  Value(Array items) : m_content(std::make_shared<Array>(std::move(items))) {}
  Value(Dictionary entries) : m_content(std::make_shared<Dictionary>(std::move(entries))) {}
  // The absent object gives the absent value.
  Value(const HostObject& object);
  // A pointer would otherwise turn into a boolean unnoticed.
  template <typename T>
  Value(T*) = delete;

  static Value array() { return Value(Array{}); }
  static Value dictionary() { return Value(Dictionary{}); }

  // A dictionary of the pairs up to the first absent value; that pair and all behind it are left out.
  static Value dictionaryFromPairs(std::initializer_list<std::pair<std::string_view, Value>> pairs);

  Kind kind() const { return m_content.index() == kShortText ? Kind::text : static_cast<Kind>(m_content.index()); }
  bool isAbsent() const { return kind() == Kind::absent; }
  bool isNull() const { return kind() == Kind::null; }
  bool isBoolean() const { return kind() == Kind::boolean; }
  bool isInteger() const { return kind() == Kind::integer; }
  bool isReal() const { return kind() == Kind::real; }
  bool isNumber() const { return isBoolean() || isInteger() || isReal(); }
  bool isText() const { return kind() == Kind::text; }
  bool isArray() const { return kind() == Kind::array; }
  bool isDictionary() const { return kind() == Kind::dictionary; }
  bool isObject() const { return kind() == Kind::object; }
  // Neither absent nor null.
  bool isPresent() const { return !isAbsent() && !isNull(); }

  // The text; the empty text for every other kind. Here and below, a reference lives as long as the value that it
  // was asked of is unchanged; a temporary gives a copy instead.
  const std::string& text() const&;
  std::string text() && { return std::as_const(*this).text(); }
  // The text, or absent for every other kind.
  OptionalText optionalText() const;
  // The text, or a number written as decimal text; the empty text for every other kind.
  std::string stringValue() const;
  // A number unequal to 0; a text that, after blanks, a sign and zeros, begins with Y, y, T, t or 1 to 9.
  bool boolValue() const;
  // A number, cut toward zero and to the 64-bit range; the leading decimal digits of a text; otherwise 0.
  std::int64_t integerValue() const;
  // A number, or the number at the start of a text; otherwise 0.
  double realValue() const;
  // The object; the absent object for every other kind.
  HostObject object() const;

  // The entries of an array; none for every other kind.
  const Array& items() const&;
  Array items() && { return std::as_const(*this).items(); }
  // The entries of a dictionary; none for every other kind.
  const Dictionary& entries() const&;
  Dictionary entries() && { return std::as_const(*this).entries(); }
  // Entries of an array or a dictionary; 0 for every other kind.
  std::size_t count() const;

  // The entry under the key; absent when this is no dictionary or has no such key.
  const Value& operator[](std::string_view key) const&;
  Value operator[](std::string_view key) && { return std::as_const(*this)[key]; }
  const Value& operator[](const char* key) const& { return (*this)[std::string_view(key)]; }
  Value operator[](const char* key) && { return std::as_const(*this)[std::string_view(key)]; }
  // The entry at the index; absent when this is no array or the index is outside.
  const Value& at(std::size_t index) const&;
  Value at(std::size_t index) && { return std::as_const(*this).at(index); }
  bool contains(std::string_view key) const;

  // Sets an entry. Anything but a dictionary becomes an empty dictionary first. An absent value changes
  // nothing: a dictionary of the platform cannot hold one.
  void set(std::string_view key, Value value);
  void erase(std::string_view key);
  // Sets every entry of another dictionary.
  void addEntries(const Value& other);
  // Adds an entry at the end. Anything but an array becomes an empty array first. Absent changes nothing.
  void append(Value value);

  // Deep equality. A number equals a number of the same value whatever its kind; object means same address.
  friend bool operator==(const Value& a, const Value& b);
  friend bool operator!=(const Value& a, const Value& b) { return !(a == b); }

 private:
  struct Null {};
  class ReadyText final : public LateText {
   public:
    explicit ReadyText(std::string text) : m_text(std::move(text)) {}
    const std::string& text() const override { return m_text; }

   private:
    std::string m_text;
  };
  // In the order of Kind; then a text so short that to share it costs more than to copy it.
  using Content = std::variant<std::monostate, Null, bool, std::int64_t, double, std::shared_ptr<const LateText>,
                               std::shared_ptr<Array>, std::shared_ptr<Dictionary>, HostObject, std::string>;
  static constexpr std::size_t kShortText = static_cast<std::size_t>(Kind::object) + 1;

  Array& mutableItems();
  Dictionary& mutableEntries();

  Content m_content;
};

}  // namespace vorn

#pragma once

#include <cstdint>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vornlab {

// Reads the members of one JSON object of an account file by name. Every member must be asked for: what was not is
// unknown, and finish() says so. Everything here throws AccountError with the path of the member.
class AccountReader {
 public:
  // The value must live as long as the reader.
  AccountReader(const nlohmann::json& value, std::string path);

  // A member that is absent gives the fallback, or nothing.
  bool flag(const std::string& name, bool fallback = false);
  std::int64_t number(const std::string& name, std::int64_t fallback = 0);
  std::string text(const std::string& name, const std::string& fallback = {});
  std::vector<std::string> texts(const std::string& name);

  // The position in the list of words of a text, the first being the fallback.
  int word(const std::string& name, std::initializer_list<std::string_view> words);

  // A text of decimal digits only, or empty.
  std::string digits(const std::string& name);

  // The value itself, or null.
  const nlohmann::json* find(const std::string& name);

  // Calls read(AccountReader&) for an object, if there is one, or for each object of an array; then finishes it.
  template <typename Read>
  bool object(const std::string& name, Read read) {
    const nlohmann::json* value = find(name);
    if (value == nullptr) return false;
    AccountReader inner(*value, pathOf(name));
    read(inner);
    inner.finish();
    return true;
  }
  template <typename Read>
  bool objects(const std::string& name, Read read) {
    const nlohmann::json* value = find(name);
    if (value == nullptr) return false;
    expectArray(*value, name);
    for (std::size_t i = 0; i < value->size(); ++i) {
      AccountReader inner((*value)[i], pathOf(name) + "[" + std::to_string(i) + "]");
      read(inner);
      inner.finish();
    }
    return true;
  }

  const nlohmann::json& value() const { return m_value; }
  std::string pathOf(std::string_view name) const;

  // Throws when a member was not asked for.
  void finish() const;

 private:
  void expectArray(const nlohmann::json& value, const std::string& name) const;

  const nlohmann::json& m_value;
  std::string m_path;
  std::set<std::string> m_asked;
};

}  // namespace vornlab

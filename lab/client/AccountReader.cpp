#include "lab/client/AccountReader.h"

#include <algorithm>

#include "lab/client/Account.h"

namespace vornlab {

AccountReader::AccountReader(const nlohmann::json& value, std::string path)
    : m_value(value), m_path(std::move(path)) {
  if (!value.is_object()) throw AccountError((m_path.empty() ? "the account" : m_path) + " must be an object");
}

std::string AccountReader::pathOf(std::string_view name) const {
  return m_path.empty() ? std::string(name) : m_path + "." + std::string(name);
}

const nlohmann::json* AccountReader::find(const std::string& name) {
  m_asked.insert(name);
  const auto found = m_value.find(name);
  return found == m_value.end() ? nullptr : &*found;
}

bool AccountReader::flag(const std::string& name, bool fallback) {
  const auto* value = find(name);
  if (value == nullptr) return fallback;
  if (!value->is_boolean()) throw AccountError(pathOf(name) + " must be true or false");
  return value->get<bool>();
}

std::int64_t AccountReader::number(const std::string& name, std::int64_t fallback) {
  const auto* value = find(name);
  if (value == nullptr) return fallback;
  if (!value->is_number_integer()) throw AccountError(pathOf(name) + " must be a whole number");
  return value->get<std::int64_t>();
}

std::string AccountReader::text(const std::string& name, const std::string& fallback) {
  const auto* value = find(name);
  if (value == nullptr) return fallback;
  if (!value->is_string()) throw AccountError(pathOf(name) + " must be a text");
  return value->get<std::string>();
}

std::vector<std::string> AccountReader::texts(const std::string& name) {
  std::vector<std::string> result;
  const auto* value = find(name);
  if (value == nullptr) return result;
  expectArray(*value, name);
  for (const auto& item : *value) {
    if (!item.is_string()) throw AccountError(pathOf(name) + " must hold texts only");
    result.push_back(item.get<std::string>());
  }
  return result;
}

int AccountReader::word(const std::string& name, std::initializer_list<std::string_view> words) {
  const std::string given = text(name, std::string(*words.begin()));
  const auto* const found = std::find(words.begin(), words.end(), given);
  if (found != words.end()) return static_cast<int>(found - words.begin());
  std::string choices;
  for (const auto word : words) choices += (choices.empty() ? "" : ", ") + std::string(word);
  throw AccountError(pathOf(name) + ": '" + given + "' is none of " + choices);
}

std::string AccountReader::digits(const std::string& name) {
  std::string given = text(name);
  const bool fits = given.size() <= 18 && given.find_first_not_of("0123456789") == std::string::npos;
  if (!fits) throw AccountError(pathOf(name) + " must be a text of up to 18 digits");
  return given;
}

void AccountReader::finish() const {
  for (const auto& item : m_value.items()) {
    if (m_asked.count(item.key()) == 0) throw AccountError("unknown key '" + pathOf(item.key()) + "'");
  }
}

void AccountReader::expectArray(const nlohmann::json& value, const std::string& name) const {
  if (!value.is_array()) throw AccountError(pathOf(name) + " must be a list");
}

}  // namespace vornlab

#include "util/JsonWriter.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "util/Utf16.h"

namespace vorn {

OptionalText JsonWriter::write(const Value& value) {
  m_depth = 0;
  m_out.clear();
  if (!add(value)) return std::nullopt;
  return std::exchange(m_out, {});
}

bool JsonWriter::add(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::null: m_out += "null"; return true;
    case Value::Kind::boolean: m_out += value.boolValue() ? "true" : "false"; return true;
    case Value::Kind::integer: m_out += std::to_string(value.integerValue()); return true;
    case Value::Kind::real: return addReal(value.realValue());
    case Value::Kind::text: return addText(value.text());
    case Value::Kind::array: return addArray(value);
    case Value::Kind::dictionary: return addDictionary(value);
    default: return false;
  }
}

bool JsonWriter::addReal(double number) {
  if (!std::isfinite(number)) return false;
  char digits[32];
  // At most 17 digits, and 15 where these read back as the same number. The library's own way of finding them is
  // not there on all systems that this runs on. A number beyond 64 bits gets an exponent so, without which a
  // reader would take it for a whole one.
  for (const int count : {15, 16, 17}) {
    std::snprintf(digits, sizeof digits, "%.*g", count, number);
    if (std::strtod(digits, nullptr) == number) break;
  }
  // The host may have set a locale with a sign of its own before the fraction.
  for (const char* at = digits; *at != '\0'; ++at) {
    const bool isOfNumber = std::strchr("0123456789+-e", *at) != nullptr;
    if (isOfNumber) {
      m_out += *at;
    } else if (m_out.back() != '.') {
      m_out += '.';
    }
  }
  return true;
}

bool JsonWriter::addText(std::string_view text) {
  if (!isValidUtf8(text)) return false;
  m_out += '"';
  for (const char c : text) {
    switch (c) {
      case '"': m_out += "\\\""; break;
      case '\\': m_out += "\\\\"; break;
      case '\b': m_out += "\\b"; break;
      case '\f': m_out += "\\f"; break;
      case '\n': m_out += "\\n"; break;
      case '\r': m_out += "\\r"; break;
      case '\t': m_out += "\\t"; break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char escape[8];
          std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
          m_out += escape;
        } else {
          m_out += c;
        }
    }
  }
  m_out += '"';
  return true;
}

bool JsonWriter::addArray(const Value& value) {
  if (value.items().empty()) {
    m_out += "[]";
    return true;
  }
  if (++m_depth > m_deepestNesting) return false;
  char separator = '[';
  for (const Value& item : value.items()) {
    m_out += separator;
    separator = ',';
    beginLine();
    if (!add(item)) return false;
  }
  --m_depth;
  beginLine();
  m_out += ']';
  return true;
}

bool JsonWriter::addDictionary(const Value& value) {
  if (value.entries().empty()) {
    m_out += "{}";
    return true;
  }
  if (++m_depth > m_deepestNesting) return false;
  char separator = '{';
  for (const auto& [key, item] : value.entries()) {
    m_out += separator;
    separator = ',';
    beginLine();
    if (!addText(key)) return false;
    m_out += " : ";
    if (!add(item)) return false;
  }
  --m_depth;
  beginLine();
  m_out += '}';
  return true;
}

void JsonWriter::beginLine() {
  m_out += '\n';
  m_out.append(2 * m_depth, ' ');
}

}  // namespace vorn

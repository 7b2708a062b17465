#include "util/JsonWriter.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <utility>

#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr double kTwoToThe63 = 9223372036854775808.0;

}  // namespace

OptionalText JsonWriter::write(const Value& value) {
  depth_ = 0;
  out_.clear();
  if (!add(value)) return std::nullopt;
  return std::exchange(out_, {});
}

bool JsonWriter::add(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::null: out_ += "null"; return true;
    case Value::Kind::boolean: out_ += value.boolValue() ? "true" : "false"; return true;
    case Value::Kind::integer: out_ += std::to_string(value.integerValue()); return true;
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
  char* const limit = digits + sizeof digits;
  // Without an exponent a reader would take a large one for a whole number that is beyond 64 bits.
  const auto [end, error] = std::fabs(number) < kTwoToThe63
                                ? std::to_chars(digits, limit, number)
                                : std::to_chars(digits, limit, number, std::chars_format::scientific);
  out_.append(digits, end);
  return error == std::errc();
}

bool JsonWriter::addText(std::string_view text) {
  if (!isValidUtf8(text)) return false;
  out_ += '"';
  for (const char c : text) {
    switch (c) {
      case '"': out_ += "\\\""; break;
      case '\\': out_ += "\\\\"; break;
      case '\b': out_ += "\\b"; break;
      case '\f': out_ += "\\f"; break;
      case '\n': out_ += "\\n"; break;
      case '\r': out_ += "\\r"; break;
      case '\t': out_ += "\\t"; break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char escape[8];
          std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
          out_ += escape;
        } else {
          out_ += c;
        }
    }
  }
  out_ += '"';
  return true;
}

bool JsonWriter::addArray(const Value& value) {
  if (value.items().empty()) {
    out_ += "[]";
    return true;
  }
  if (++depth_ > deepestNesting_) return false;
  char separator = '[';
  for (const Value& item : value.items()) {
    out_ += separator;
    separator = ',';
    beginLine();
    if (!add(item)) return false;
  }
  --depth_;
  beginLine();
  out_ += ']';
  return true;
}

bool JsonWriter::addDictionary(const Value& value) {
  if (value.entries().empty()) {
    out_ += "{}";
    return true;
  }
  if (++depth_ > deepestNesting_) return false;
  char separator = '{';
  for (const auto& [key, item] : value.entries()) {
    out_ += separator;
    separator = ',';
    beginLine();
    if (!addText(key)) return false;
    out_ += " : ";
    if (!add(item)) return false;
  }
  --depth_;
  beginLine();
  out_ += '}';
  return true;
}

void JsonWriter::beginLine() {
  out_ += '\n';
  out_.append(2 * depth_, ' ');
}

}  // namespace vorn

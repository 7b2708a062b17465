#include "host/surface/HostDescription.h"

#include <algorithm>
#include <cstdio>

#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr std::size_t kIndentation = 4;
constexpr char16_t kFirstEscaped = 0x7F;

bool isPlainWord(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  });
}

std::string nestedText(const std::string& text) {
  if (isPlainWord(text)) return text;
  std::string quoted = "\"";
  for (const char16_t unit : toUtf16(text)) {
    if (unit == '"' || unit == '\\') quoted += '\\';
    if (unit == '\n') {
      quoted += "\\n";
    } else if (unit < kFirstEscaped) {
      quoted += static_cast<char>(unit);
    } else {
      char escaped[7];
      std::snprintf(escaped, sizeof escaped, "\\U%04x", static_cast<unsigned>(unit));
      quoted += escaped;
    }
  }
  return quoted += '"';
}

// A nested number is in quotation marks where it has a sign or a point.
std::string numberText(const Value& number, std::size_t depth) {
  const std::string digits = number.isReal() ? number.stringValue() : std::to_string(number.integerValue());
  return depth == 0 ? digits : nestedText(digits);
}

void append(std::string& out, const Value& value, std::size_t depth) {
  // What is nested is indented once more where it begins.
  const std::string indentation((depth + 1) * kIndentation, ' ');
  const std::string closing(depth * kIndentation, ' ');
  if (value.isDictionary()) {
    out += closing + "{\n";
    for (const auto& [key, entry] : value.entries()) {
      out += indentation + nestedText(key) + " = ";
      append(out, entry, depth + 1);
      out += ";\n";
    }
    out += closing + "}";
  } else if (value.isArray()) {
    out += closing + "(\n";
    for (std::size_t i = 0; i < value.count(); ++i) {
      out += indentation;
      append(out, value.at(i), depth + 1);
      out += i + 1 < value.count() ? ",\n" : "\n";
    }
    out += closing + ")";
  } else if (value.isText()) {
    out += depth == 0 ? value.text() : nestedText(value.text());
  } else if (value.isObject()) {
    out += "\"<0x" + value.object().windowId() + ">\"";
  } else if (value.isNull()) {
    out += depth == 0 ? "<null>" : "\"<null>\"";
  } else if (value.isAbsent()) {
    out += "(null)";
  } else {
    out += numberText(value, depth);
  }
}

}  // namespace

std::string hostDescription(const Value& value) {
  std::string out;
  append(out, value, 0);
  return out;
}

}  // namespace vorn

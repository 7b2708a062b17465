#include "util/vnOLUtils.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "util/AtomicFile.h"
#include "util/CharacterSets.h"
#include "util/HostObjectQuestions.h"
#include "util/PropertyList.h"
#include "util/Utf16.h"

namespace vorn {

namespace {

constexpr std::string_view kEllipsis = "...";

bool isLivingObject(const HostObject& object) {
  const HostObjectQuestions* questions = hostObjectQuestions();
  if (!questions) return false;
  const std::string name = questions->classNameOf(object);
  return !name.empty() && name != "NSNull";
}

}  // namespace

bool vnOLUtils::isValidInstance(const Value& object) {
  if (object.isObject()) return isLivingObject(object.object());
  return object.isPresent();
}

bool vnOLUtils::kindofClass(const Value& object, const OptionalText& className) {
  return className && kindofClass(object.object(), *className);
}

bool vnOLUtils::kindofClass(const HostObject& object, std::string_view className) {
  return !className.empty() && isLivingObject(object) && hostObjectQuestions()->isKindOfClass(object, className);
}

void vnOLUtils::GetSubViewOfKind(const HostObject& view, const OptionalText& kindClass,
                                 std::vector<HostObject>& resultArray) {
  if (!hostObjectQuestions() || !kindClass) return;
  const Value subviews = hostObjectQuestions()->subviewsOf(view);
  for (const Value& subview : subviews.items()) {
    if (kindofClass(subview, kindClass)) {
      resultArray.push_back(subview.object());
    } else {
      GetSubViewOfKind(subview.object(), kindClass, resultArray);
    }
  }
}

OptionalText vnOLUtils::trimAllSpace(const OptionalText& text) {
  if (!text) return std::nullopt;
  std::string result(trimmed(*text, isWhitespace));
  std::erase(result, ' ');
  return result;
}

OptionalText vnOLUtils::trimRLSpace(const OptionalText& text) {
  if (!text) return std::nullopt;
  return std::string(trimmed(*text, isWhitespace));
}

OptionalText vnOLUtils::trimAllSpaceAndNewLine(const OptionalText& text) {
  if (!text) return std::nullopt;
  return std::string(trimmed(*text, isWhitespaceOrNewline));
}

Value vnOLUtils::getLines(const OptionalText& text) {
  if (!text) return {};
  Value lines = Value::array();
  for (const std::string_view line : splitLines(*text)) lines.append(line);
  return lines;
}

OptionalText vnOLUtils::formatByEllipsis(const OptionalText& text, std::int32_t length) {
  if (!text) return std::nullopt;
  const auto limit = static_cast<std::size_t>(std::max<std::int32_t>(length, 0));
  if (utf16Length(*text) <= limit) return text;
  const std::size_t kept = limit < kEllipsis.size() ? 0 : limit - kEllipsis.size();
  return std::string(utf16Prefix(*text, kept)).append(kEllipsis);
}

void vnOLUtils::saveStrToFile(const OptionalText& text, const OptionalText& filePath) {
  if (!text || !filePath || filePath->empty()) return;
  Value lines = Value::array();
  lines.append(*text);
  writePropertyList(lines, *filePath);
}

OptionalText vnOLUtils::readStrFromFile(const OptionalText& filePath) {
  if (!filePath) return std::nullopt;
  const std::optional<std::string> content = filePath->empty() ? std::nullopt : readFile(*filePath);
  return content ? textOfFile(*content) : "";
}

std::string vnOLUtils::textOfFile(const std::string& content) {
  const Value lines = propertyListIn(content);
  return lines.count() == 0 ? "" : lines.at(lines.count() - 1).text();
}

}  // namespace vorn

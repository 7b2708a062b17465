#include "channel/store/JsonTextFile.h"

#include "channel/store/vnCommon.h"
#include "channel/store/vnFileFunctions.h"
#include "platform/Registry.h"
#include "util/ParsedFiles.h"
#include "util/PropertyList.h"
#include "util/vnOLUtils.h"

namespace vorn {

namespace {

Value documentIn(const std::string& content) {
  const OptionalText text = vnOLUtils::textOfFile(content);
  if (isEmpty(text)) return {};
  Value document = vnOLUtils::toArrayOrNSDictionary(text);
  return document.isDictionary() ? document : Value::dictionary();
}

// The signs of markup as JSON can write them, too. They stand in its strings alone. In the property list around
// the text each would be an entity, for which whoever reads the file pays with the length of the whole text.
OptionalText withoutMarkup(const OptionalText& json) {
  if (!json) return json;
  std::string result;
  result.reserve(json->size());
  for (const char c : *json) {
    switch (c) {
      case '&': result += "\\u0026"; break;
      case '<': result += "\\u003c"; break;
      case '>': result += "\\u003e"; break;
      default: result += c;
    }
  }
  return result;
}

struct Documents : ParsedFiles {
  Documents() : ParsedFiles(&documentIn) {}
};

}  // namespace

Value JsonTextFile::read() const { return Registry::shared<Documents>().read(m_path); }

void JsonTextFile::write(const Value& document) const {
  const std::string folder = vnCommon::getDocumentOutlookPluginRootPath();
  if (!vnIsFileExist(folder)) vnCreateDirection(folder);
  vnOLUtils::saveStrToFile(withoutMarkup(vnOLUtils::toJSONString(document)), m_path);
}

void JsonTextFile::setKey(std::string_view key, const Value& value) const {
  Value document = read();
  document.set(key, value);
  write(document);
}

}  // namespace vorn

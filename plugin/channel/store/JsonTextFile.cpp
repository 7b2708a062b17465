#include "channel/store/JsonTextFile.h"

#include "channel/store/vnCommon.h"
#include "channel/store/vnFileFunctions.h"
#include "util/vnOLUtils.h"

namespace vorn {

Value JsonTextFile::read() const {
  const OptionalText text = vnOLUtils::readStrFromFile(m_path);
  if (!text || text->empty()) return {};
  Value document = vnOLUtils::toArrayOrNSDictionary(text);
  return document.isDictionary() ? document : Value::dictionary();
}

void JsonTextFile::write(const Value& document) const {
  const std::string folder = vnCommon::getDocumentOutlookPluginRootPath();
  if (!vnIsFileExist(folder)) vnCreateDirection(folder);
  vnOLUtils::saveStrToFile(vnOLUtils::toJSONString(document), m_path);
}

void JsonTextFile::setKey(std::string_view key, const Value& value) const {
  Value document = read();
  document.set(key, value);
  write(document);
}

}  // namespace vorn

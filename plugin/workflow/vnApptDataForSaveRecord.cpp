#include "workflow/vnApptDataForSaveRecord.h"

#include "platform/Registry.h"

namespace vorn {

vnApptDataForSaveRecord& vnApptDataForSaveRecord::sharedInstance() {
  return Registry::shared<vnApptDataForSaveRecord>();
}

void vnApptDataForSaveRecord::setOLWordMailEditor(const HostObject& editor) {
  cleanupOLWordMailEditor();
  m_olWordMailEditor = editor;
}

void vnApptDataForSaveRecord::cleanup() {
  const HostObject hosted = m_olWordMailEditor;
  *this = vnApptDataForSaveRecord{};
  m_olWordMailEditor = hosted;
}

}  // namespace vorn

#include "workflow/vnApptDataForSaveRecord.h"

#include <algorithm>
#include <utility>

#include "platform/ClassRuntime.h"
#include "platform/Registry.h"

namespace vorn {

vnApptDataForSaveRecord& vnApptDataForSaveRecord::sharedInstance() {
  return Registry::shared<vnApptDataForSaveRecord>();
}

ApptSaveData& vnApptDataForSaveRecord::of(const std::shared_ptr<MeetingBar>& bar) {
  const auto found = std::find_if(m_left.begin(), m_left.end(), [&](const Left& left) { return left.bar == bar; });
  return found != m_left.end() ? found->data : m_left.emplace_back(Left{bar, {}}).data;
}

std::vector<std::shared_ptr<MeetingBar>> vnApptDataForSaveRecord::windows() const {
  std::vector<std::shared_ptr<MeetingBar>> bars;
  for (const Left& left : m_left) bars.push_back(left.bar);
  return bars;
}

ApptSaveData vnApptDataForSaveRecord::take(const MeetingBar* bar) {
  ApptSaveData taken;
  for (Left& left : m_left) {
    if (left.bar.get() == bar) taken = std::move(left.data);
  }
  cleanup(bar);
  return taken;
}

void vnApptDataForSaveRecord::cleanup(const MeetingBar* bar) {
  std::erase_if(m_left, [bar](const Left& left) { return left.bar.get() == bar; });
}

HostObject vnApptDataForSaveRecord::olWordMailEditor(const HostObject& editorViewController) const {
  for (const Hosted& hosted : m_olWordMailEditors) {
    if (hosted.editorViewController == editorViewController) return hosted.wordMailEditor;
  }
  return {};
}

void vnApptDataForSaveRecord::setOLWordMailEditor(const HostObject& editorViewController,
                                                  const HostObject& wordMailEditor) {
  // An editor whose window never got a bar is not told of its end; its address may serve another one later.
  std::erase_if(m_olWordMailEditors, [&](const Hosted& hosted) {
    return hosted.editorViewController == editorViewController ||
           Registry::platform().classRuntime->className(hosted.editorViewController).empty();
  });
  if (wordMailEditor) m_olWordMailEditors.push_back(Hosted{editorViewController, wordMailEditor});
}

void vnApptDataForSaveRecord::cleanupOLWordMailEditor(const HostObject& wordMailEditor) {
  std::erase_if(m_olWordMailEditors,
                [&](const Hosted& hosted) { return hosted.wordMailEditor == wordMailEditor; });
}

}  // namespace vorn

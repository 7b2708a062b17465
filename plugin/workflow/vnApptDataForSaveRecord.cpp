#include "workflow/vnApptDataForSaveRecord.h"

#include <algorithm>
#include <utility>

#include "platform/ClassRuntime.h"
#include "platform/Registry.h"
#include "workflow/ApptIdentity.h"

namespace vorn {

vnApptDataForSaveRecord& vnApptDataForSaveRecord::sharedInstance() {
  return Registry::shared<vnApptDataForSaveRecord>();
}

ApptSaveData* vnApptDataForSaveRecord::find(const std::shared_ptr<MeetingBar>& bar) {
  const auto found = std::find_if(m_left.begin(), m_left.end(), [&](const Left& left) { return left.bar == bar; });
  if (found == m_left.end()) return nullptr;
  ApptSaveData& data = found->data;
  const HostObject appointment = found->appointment;
  const HostObject shown = shownAppointment(*bar);
  // A window that has closed shows nothing, and its save may still be under way.
  if (!shown || shown == appointment || isSameAppointment(shown, appointment)) return &data;
  cleanup(bar.get());
  return nullptr;
}

ApptSaveData& vnApptDataForSaveRecord::of(const std::shared_ptr<MeetingBar>& bar) {
  if (ApptSaveData* left = find(bar)) return *left;
  const HostObject shown = shownAppointment(*bar);
  return m_left.emplace_back(Left{bar, shown, {}}).data;
}

std::vector<std::shared_ptr<MeetingBar>> vnApptDataForSaveRecord::windows() const {
  std::vector<std::shared_ptr<MeetingBar>> bars;
  for (const Left& left : m_left) bars.push_back(left.bar);
  return bars;
}

ApptSaveData vnApptDataForSaveRecord::take(const std::shared_ptr<MeetingBar>& bar) {
  ApptSaveData* left = find(bar);
  ApptSaveData taken = left ? std::move(*left) : ApptSaveData();
  cleanup(bar.get());
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

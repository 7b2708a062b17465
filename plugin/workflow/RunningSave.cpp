#include "workflow/RunningSave.h"

#include <vector>

#include "host/proxies/vnECCalendarEvent.h"
#include "host/proxies/vnERCalendarEventEditorViewController.h"
#include "platform/Registry.h"
#include "workflow/vnApptDataForSaveRecord.h"

namespace vorn {

namespace {

struct Save {
  std::shared_ptr<MeetingBar> bar;
  // What its editor shows; a window that the host closes while it saves shows nothing any more.
  HostObject event;
};

struct RunningSaves {
  std::vector<Save> innermostLast;
};

HostObject shownEvent(MeetingBar& bar) {
  return vnERCalendarEventEditorViewController(bar.editorViewController()).content();
}

bool isStored(const vnECCalendarEvent& event) { return !event.UUID().value_or("").empty(); }

// The items of a series share a UUID, so their records or their places in the series have to tell them apart.
bool isSameAppointment(const HostObject& shown, const HostObject& record) {
  if (shown && shown == record) return true;
  const vnECCalendarEvent one(shown);
  const vnECCalendarEvent other(record);
  if (!isStored(one) || one.UUID() != other.UUID()) return false;
  const Value oneId = one.recordID();
  const Value otherId = other.recordID();
  if (oneId.isPresent() && otherId.isPresent()) return oneId == otherId;
  return one.recurrenceId() == other.recurrenceId();
}

}  // namespace

RunningSave::RunningSave(const std::shared_ptr<MeetingBar>& bar) {
  Registry::shared<RunningSaves>().innermostLast.push_back(Save{bar, bar ? shownEvent(*bar) : HostObject()});
}

RunningSave::~RunningSave() {
  // The host may have ended this system, and with it the list, inside its save.
  auto& saves = Registry::shared<RunningSaves>().innermostLast;
  if (!saves.empty()) saves.pop_back();
}

std::shared_ptr<MeetingBar> RunningSave::windowOfRecord(const HostObject& record) {
  const auto& saves = Registry::shared<RunningSaves>().innermostLast;
  if (!saves.empty()) {
    const Save& save = saves.back();
    if (!save.bar) return nullptr;
    const bool isNew = !isStored(vnECCalendarEvent(save.event));
    return isNew || isSameAppointment(save.event, record) ? save.bar : nullptr;
  }
  for (const auto& bar : vnApptDataForSaveRecord::sharedInstance().windows()) {
    if (isSameAppointment(shownEvent(*bar), record)) return bar;
  }
  return nullptr;
}

}  // namespace vorn

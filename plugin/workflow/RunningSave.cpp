#include "workflow/RunningSave.h"

#include <vector>

#include "host/proxies/vnECCalendarEvent.h"
#include "host/proxies/vnECRecordUID.h"
#include "platform/Registry.h"
#include "workflow/ApptIdentity.h"
#include "workflow/vnActionAdditionViewMonitor.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnSavePreparation.h"

namespace vorn {

namespace {

struct Save {
  std::shared_ptr<MeetingBar> bar;
  HostObject editor;
  // What the editor shows; a window that the host closes while it saves shows nothing any more.
  HostObject event;
};

struct RunningSaves {
  std::vector<Save> innermostLast;
};

std::vector<Save>& saves() { return Registry::shared<RunningSaves>().innermostLast; }

// A record that the host has stored before, and not the one that a new appointment is just getting.
bool existsAlready(const HostObject& record) {
  if (!isStoredAppointment(record)) return false;
  const HostObject uid = vnECCalendarEvent(record).recordUID();
  return uid && vnECRecordUID(uid).recordExists();
}

}  // namespace

RunningSave::RunningSave(const std::shared_ptr<MeetingBar>& bar)
    : RunningSave(bar, bar ? bar->editorViewController() : HostObject()) {}

RunningSave RunningSave::ofEditor(const HostObject& editor) {
  const auto bar = barOfEditor(editor);
  const bool goesOn = !bar && editor && !saves().empty() && saves().back().editor == editor;
  return {goesOn ? saves().back().bar : bar, editor};
}

RunningSave::RunningSave(const std::shared_ptr<MeetingBar>& bar, const HostObject& editor) {
  if (bar) renewDataToStore(bar);
  const HostObject shown = bar ? shownAppointment(*bar) : HostObject();
  const bool hasClosed = bar && !shown && !saves().empty() && saves().back().bar == bar;
  const HostObject event = hasClosed ? saves().back().event : shown;
  saves().push_back(Save{bar, editor, event});
}

RunningSave::~RunningSave() {
  // The host may have ended this system, and with it the list, inside its save.
  if (!saves().empty()) saves().pop_back();
}

std::shared_ptr<MeetingBar> RunningSave::windowOfRecord(const HostObject& record) {
  if (!saves().empty()) {
    // A copy: the host may begin another save while it is asked.
    const Save save = saves().back();
    if (!save.bar) return nullptr;
    const bool isOurs = isStoredAppointment(save.event) ? isSameAppointment(save.event, record)
                                                        : save.event == record || !existsAlready(record);
    return isOurs ? save.bar : nullptr;
  }
  for (const auto& bar : vnApptDataForSaveRecord::sharedInstance().windows()) {
    if (isSameAppointment(shownAppointment(*bar), record)) return bar;
  }
  return nullptr;
}

}  // namespace vorn

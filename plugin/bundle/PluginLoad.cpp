#include "bundle/PluginLoad.h"

#include "diagnosis/Diagnosis.h"
#include "host/surface/HookInstaller.h"
#include "host/surface/vnActionAdditionView.h"
#include "platform/Registry.h"
#include "settings/SchSettingWndCtrlMgr.h"
#include "workflow/WorkflowDirectory.h"
#include "workflow/vnApptUIActionMgr.h"

namespace vorn {

namespace {

// Lower rooms have said what they need of higher ones; here each gets it.
void connectRooms() {
  WorkflowDirectory::sharedInstance().install();
  SchSettingWndCtrlMgr::sharedInstance().install();
  vnApptUIActionMgr::sharedInstance().setBarFactory(
      [](const HostObject& headerView) { vnActionAdditionView::create(headerView); });
}

}  // namespace

void loadPlugin(const Platform& platform) {
  if (Registry::platform().runLoop) return;
  Registry::install(platform);
  attachPlugin();
}

void attachPlugin() {
  connectRooms();
  HookInstaller::sharedInstance().load();
}

void unloadPlugin() { Registry::reset(); }

int answerQuestion(const char* question, const Value* parameters, Value* answer) {
  if (!question || !answer || !Registry::platform().runLoop) return 1;
  try {
    return Diagnosis::answer(question, parameters ? *parameters : Value(), *answer) ? 0 : 1;
  } catch (...) {
    return 1;
  }
}

}  // namespace vorn

#include "channel/commands/VNDeletedMeetingWindowController.h"

#include "channel/store/JsonTextFile.h"
#include "channel/store/vnLocalProfileKeys.h"
#include "channel/store/vnMeetingCommon.h"
#include "data/NotAgainFlags.h"
#include "data/vnUserProfileHelper.h"
#include "platform/Localization.h"
#include "platform/Registry.h"
#include "platform/TracedAlert.h"
#include "platform/Workspace.h"

namespace vorn {

void VNDeletedMeetingWindowController::showSheet(const HostObject& parentWindow) {
  Presenter::Alert alert;
  alert.title = localizedString("LN_Schedule_DeleteMeetingTitle_120529");
  const std::string place = localizedString("LN_Schedule_DeleteMeetingInfo_RecentlyDeleted_120529");
  alert.message = localizedString("LN_Schedule_DeleteMeetingInfo1_120529") + " " + place + "\n" +
                  localizedString("LN_Schedule_DeleteMeetingInfo2_120529");
  if (const std::string address = getMeetingTrashCanLink(); !address.empty()) {
    alert.link = Presenter::Link{place, address, [address] {
                                   // The alert may outlive this system.
                                   if (Workspace* workspace = Registry::platform().workspace) {
                                     workspace->openWebPage(address);
                                   }
                                 }};
  }
  alert.buttons = {localizedString("LN_Schedule_DeleteMeeting_120529"), localizedString("Button_Cancel")};
  alert.notAgainSwitch = localizedString("LN_Schedule_DoNotRemind_120529");
  showTracedAlert(parentWindow, alert, [](const Presenter::Answer& answer) {
    if (answer.button == 0) not_again::deletedMeeting().set(answer.notAgain);
  });
}

std::string VNDeletedMeetingWindowController::getMeetingTrashCanLink() {
  const std::string link = vnUserProfileHelper::sharedInstance().getMeetingTrashCanLink();
  if (!link.empty()) return link;
  return JsonTextFile(vnMeetingCommon::getLocalVnSiteConfigPath()).read()[vn_LocalProfile_TrashCanLink].text();
}

}  // namespace vorn

#pragma once

#include <functional>
#include <memory>

#include "workflow/vnActionResultMgr.h"
#include "workflow/vnMeetingMgr.h"

namespace vorn {

// The only door from the host and from the bar into the managers. Main thread only.
class vnApptUIActionMgr : public vnActionResultMgr {
 public:
  // Puts a bar into a header view of the host.
  using BarFactory = std::function<void(const HostObject& headerView)>;

  static vnApptUIActionMgr& sharedInstance();

  // A save or send of an editor. The data hold keyApptViewActionID, or are absent. The result is VnHandlePassOn
  // when the host shall go on now, as in vnHandleResult.
  int handleVNMeeting(const HostObject& editor, const Value& data);

  // The clicks on the bar. The meeting type is not used.
  int addVNMeeting(const std::shared_ptr<MeetingBar>& bar);
  int addPACMeeting(const std::shared_ptr<MeetingBar>& bar, std::int64_t account);
  int cancelVNMeeting(const std::shared_ptr<MeetingBar>& bar, int meetingType);
  int changeVNMeeting(const std::shared_ptr<MeetingBar>& bar, int meetingType);

  // Keeps the text of the location field for the store to come.
  void updateSavedLocationForSaveOrSend(const HostObject& editor);

  // The room of the bars says how one is made; without that no bar comes up.
  void setBarFactory(BarFactory factory) { m_barFactory = std::move(factory); }
  void createVnAdditionViewOnCalHeaderContainerView(const HostObject& headerView);

 private:
  BarFactory m_barFactory;
};

}  // namespace vorn

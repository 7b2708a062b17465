#pragma once

#include <list>
#include <memory>
#include <vector>

#include "util/HostObject.h"
#include "util/Value.h"
#include "workflow/MeetingBar.h"

namespace vorn {

// What the save of one appointment window has to write, carried from the editor to the moment when the host really
// stores the event. Setting an absent text clears it.
class ApptSaveData {
 public:
  // A delete is being saved: the cleaned location and body have to be written.
  bool needClearLocation() const { return m_bNeedClearLocation; }
  void setNeedClearLocation(bool need) { m_bNeedClearLocation = need; }
  const OptionalText& getOLNewLocation() const { return m_olNewLocation; }
  void setOLNewLocation(const OptionalText& location) { m_olNewLocation = location; }
  // The part of the location that this system composed.
  const OptionalText& getVnLocation() const { return m_vnLocation; }
  void setVnLocation(const OptionalText& location) { m_vnLocation = location; }
  const OptionalText& getJoinURLFromProperty() const { return m_joinURLFromProperty; }
  void setJoinURLFromProperty(const OptionalText& url) { m_joinURLFromProperty = url; }
  // No caller here, and nobody reads it.
  void setVnOLPropertyData(const OptionalText& data) { m_vnOLPropertyData = data; }
  bool isPACMeeting() const { return m_bIsPACMeeting; }
  void setIsPACMeeting(bool isPAC) { m_bIsPACMeeting = isPAC; }
  const OptionalText& getOLNewBody() const { return m_olNewBody; }
  void setOLNewBody(const OptionalText& body) { m_olNewBody = body; }

 private:
  bool m_bNeedClearLocation = false;
  OptionalText m_olNewLocation;
  OptionalText m_vnLocation;
  OptionalText m_joinURLFromProperty;
  OptionalText m_vnOLPropertyData;
  bool m_bIsPACMeeting = false;
  OptionalText m_olNewBody;
};

// The one place of the process where windows leave what their saves have to write, and where the host's editors
// find their body editors.
//
// Several windows may wait for their saves at once, so what each left is kept under its bar and the appointment
// that its editor showed, and reaches no other one. It goes with the store that writes it, with the window, or
// when the window turns to another appointment. Main thread only.
class vnApptDataForSaveRecord {
 public:
  static vnApptDataForSaveRecord& sharedInstance();

  // Where the bar's window leaves what the save of the appointment that it shows has to write. The reference is
  // good until the host is called again, which may store the appointment. The bar must not be null.
  ApptSaveData& of(const std::shared_ptr<MeetingBar>& bar);
  // What the window has left; null when it has left nothing for the appointment that it shows. Good as long as
  // that.
  ApptSaveData* find(const std::shared_ptr<MeetingBar>& bar);
  // The windows that have left something.
  std::vector<std::shared_ptr<MeetingBar>> windows() const;
  // Ends the save of the bar's window: whatever it has left is given out, and forgotten here.
  ApptSaveData take(const std::shared_ptr<MeetingBar>& bar);
  void cleanup(const MeetingBar* bar);

  // The host's body editor that was hosted last by this editor; absent when none was. Nothing is owned.
  HostObject olWordMailEditor(const HostObject& editorViewController) const;
  void setOLWordMailEditor(const HostObject& editorViewController, const HostObject& wordMailEditor);
  void cleanupOLWordMailEditor(const HostObject& wordMailEditor);

 private:
  struct Left {
    std::shared_ptr<MeetingBar> bar;
    HostObject appointment;
    ApptSaveData data;
  };
  struct Hosted {
    HostObject editorViewController;
    HostObject wordMailEditor;
  };

  std::list<Left> m_left;
  std::vector<Hosted> m_olWordMailEditors;
};

}  // namespace vorn

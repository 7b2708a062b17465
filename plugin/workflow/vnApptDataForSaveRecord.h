#pragma once

#include "util/HostObject.h"
#include "util/Value.h"

namespace vorn {

// What a save has to write, carried from the editor to the moment when the host really stores the event.
//
// One record serves the whole process, so it holds the data of one save at a time: a save of a second window
// between the hook and the store overwrites it. Setting an absent text clears it.
class vnApptDataForSaveRecord {
 public:
  static vnApptDataForSaveRecord& sharedInstance();

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
  void setVnOLPropertyData(const OptionalText& data) { m_vnOLPropertyData = data; }
  bool isPACMeeting() const { return m_bIsPACMeeting; }
  void setIsPACMeeting(bool isPAC) { m_bIsPACMeeting = isPAC; }
  const OptionalText& getOLNewBody() const { return m_olNewBody; }
  void setOLNewBody(const OptionalText& body) { m_olNewBody = body; }

  // The host's body editor that was hosted last. Not owned.
  HostObject olWordMailEditor() const { return m_olWordMailEditor; }
  void setOLWordMailEditor(const HostObject& editor);
  void cleanupOLWordMailEditor() { m_olWordMailEditor = {}; }

  // Ends the save: everything but the body editor is forgotten.
  void cleanup();

 private:
  bool m_bNeedClearLocation = false;
  OptionalText m_olNewLocation;
  OptionalText m_vnLocation;
  OptionalText m_joinURLFromProperty;
  OptionalText m_vnOLPropertyData;
  bool m_bIsPACMeeting = false;
  HostObject m_olWordMailEditor;
  OptionalText m_olNewBody;
};

}  // namespace vorn

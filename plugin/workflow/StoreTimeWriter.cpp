#include "workflow/StoreTimeWriter.h"

#include "host/proxies/vnApptInfoKeys.h"
#include "invitation/vnBodyHelper.h"
#include "util/TextSearch.h"
#include "util/vnOLUtils.h"
#include "workflow/vnApptDataForSaveRecord.h"
#include "workflow/vnCalendarActionMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnPACMeetingMgr.h"

namespace vorn {

void StoreTimeWriter::write() {
  if (vnCalendarActionMgr::sharedInstance().isCurVornMeeting(m_rawRecord)) {
    updateVnKeyInfoToAppointment();
  } else if (vnApptDataForSaveRecord::sharedInstance().isPACMeeting()) {
    updateVnKeyInfoToAppointmentForPAC();
  } else {
    cleanVnKeyInfoFromAppointment();
  }
  vnApptDataForSaveRecord::sharedInstance().cleanup();
}

void StoreTimeWriter::updateVnKeyInfoToAppointment() {
  vnApptDataForSaveRecord& save = vnApptDataForSaveRecord::sharedInstance();
  if (needUpdateLocation() && !save.getOLNewLocation().value_or("").empty()) {
    m_record.setLocation(*save.getOLNewLocation());
  }

  const auto manager = vnMeetingMgrMonitor::getMeetingMgrByECCalendarEvent(m_rawRecord);
  vnGetMeetingHelper* helper = manager ? manager->getMeetingHelper() : nullptr;
  if (helper && helper->hasMeetingInfo() && vnOLUtils::trimRLSpace(m_record.summary()).value_or("").empty()) {
    m_record.setSummary(helper->getMeetingInfo()[vn_Outlook_ApptInfo][vn_ApptInfo_Subject]);
  }

  const OptionalText& newBody = save.getOLNewBody();
  const Value body = m_record.body();
  // The same text is mostly there already, and then nothing has to be made out about it.
  if (!body.isText() || !newBody || body.text() == *newBody) return;
  vnBodyHelper& bodies = vnBodyHelper::sharedInstance();
  if (bodies.convertHTMLToPlainText(newBody).value_or("").empty()) return;
  if (bodies.isEqualHTMLBodyContent(body.optionalText(), newBody)) return;
  m_record.setIsBodyHTML(true);
  m_record.setBody(*newBody);
}

void StoreTimeWriter::updateVnKeyInfoToAppointmentForPAC() {
  const OptionalText location = m_record.location();
  vnPACMeetingMgr conference;
  conference.setMeetingMgr(vnMeetingMgrMonitor::getMeetingMgrByECCalendarEvent(m_rawRecord).get());
  const OptionalText newLocation = conference.getNewLocationForPAC(location);
  if (newLocation && newLocation != location) m_record.setLocation(*newLocation);

  const OptionalText& newBody = vnApptDataForSaveRecord::sharedInstance().getOLNewBody();
  const Value body = m_record.body();
  if (body.isText() && newBody && body.text() != *newBody) m_record.setBody(*newBody);
}

void StoreTimeWriter::cleanVnKeyInfoFromAppointment() {
  vnApptDataForSaveRecord& save = vnApptDataForSaveRecord::sharedInstance();
  if (!save.needClearLocation()) return;
  if (save.getOLNewLocation()) m_record.setLocation(*save.getOLNewLocation());
  if (save.getOLNewBody()) m_record.setBody(*save.getOLNewBody());
}

bool StoreTimeWriter::needUpdateLocation() {
  vnApptDataForSaveRecord& save = vnApptDataForSaveRecord::sharedInstance();
  const OptionalText location = m_record.location();
  if (!location) return true;
  const OptionalText& ours = save.getVnLocation();
  const std::string planned = save.getOLNewLocation().value_or("");
  if (!ours || planned.empty() || *location == planned) return false;
  if (findText(*location, *ours) == std::string::npos) return true;
  const OptionalText& stored = save.getJoinURLFromProperty();
  return stored && *stored != *ours;
}

}  // namespace vorn

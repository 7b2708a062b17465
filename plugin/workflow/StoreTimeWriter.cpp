#include "workflow/StoreTimeWriter.h"

#include "host/proxies/vnApptInfoKeys.h"
#include "invitation/vnBodyHelper.h"
#include "util/HtmlText.h"
#include "util/TextSearch.h"
#include "util/vnOLUtils.h"
#include "workflow/RunningSave.h"
#include "workflow/vnCalendarActionMgr.h"
#include "workflow/vnMeetingMgrMonitor.h"
#include "workflow/vnPACMeetingMgr.h"
#include "workflow/vnSavePreparation.h"

namespace vorn {

void StoreTimeWriter::write(const HostObject& record) {
  const auto bar = RunningSave::windowOfRecord(record);
  if (!bar) return;
  renewDataToStore(bar);
  StoreTimeWriter writer(record, vnApptDataForSaveRecord::sharedInstance().take(bar),
                         vnMeetingMgrMonitor::getMeetingMgrByVnView(bar.get()));
  if (vnCalendarActionMgr::sharedInstance().isCurVornMeeting(record)) {
    writer.updateVnKeyInfoToAppointment();
  } else if (writer.m_left.isPACMeeting()) {
    writer.updateVnKeyInfoToAppointmentForPAC();
  } else {
    writer.cleanVnKeyInfoFromAppointment();
  }
}

void StoreTimeWriter::updateVnKeyInfoToAppointment() {
  if (needUpdateLocation() && !m_left.getOLNewLocation().value_or("").empty()) {
    m_record.setLocation(*m_left.getOLNewLocation());
  }

  vnGetMeetingHelper* helper = m_manager ? m_manager->getMeetingHelper() : nullptr;
  if (helper && helper->hasMeetingInfo() && vnOLUtils::trimRLSpace(m_record.summary()).value_or("").empty()) {
    m_record.setSummary(helper->getMeetingInfo()[vn_Outlook_ApptInfo][vn_ApptInfo_Subject]);
  }

  const OptionalText& newBody = m_left.getOLNewBody();
  const Value body = m_record.body();
  // The same text is mostly there already, and then nothing has to be made out about it.
  if (!body.isText() || !newBody || body.text() == *newBody) return;
  if (htmlShowsNothing(*newBody)) return;
  // A picture has no text, so it reads as a body with nothing in it does.
  const bool saysTheSame = vnBodyHelper::sharedInstance().isEqualHTMLBodyContent(body.optionalText(), newBody);
  if (saysTheSame && !htmlShowsNothing(body.text())) return;
  m_record.setIsBodyHTML(true);
  m_record.setBody(*newBody);
}

void StoreTimeWriter::updateVnKeyInfoToAppointmentForPAC() {
  const vnPACMeetingMgr& conference = m_manager ? *m_manager->pacMeetingMgr() : vnPACMeetingMgr::sharedInstance();
  // An add that the client has not answered, or that was refused, leaves the appointment as it is. So does one
  // whose account is not known any more, since a meeting that came after it was cancelled: its text is still in
  // the body.
  if (conference.isAdded()) {
    const OptionalText location = m_record.location();
    const OptionalText newLocation = conference.getNewLocationForPAC(location);
    if (newLocation && newLocation != location) m_record.setLocation(*newLocation);
  }

  const OptionalText& newBody = m_left.getOLNewBody();
  const Value body = m_record.body();
  if (body.isText() && newBody && body.text() != *newBody) m_record.setBody(*newBody);
}

void StoreTimeWriter::cleanVnKeyInfoFromAppointment() {
  if (!m_left.needClearLocation()) return;
  if (m_left.getOLNewLocation()) m_record.setLocation(*m_left.getOLNewLocation());
  if (m_left.getOLNewBody()) m_record.setBody(*m_left.getOLNewBody());
}

bool StoreTimeWriter::needUpdateLocation() {
  const OptionalText location = m_record.location();
  if (!location) return true;
  const OptionalText& ours = m_left.getVnLocation();
  const std::string planned = m_left.getOLNewLocation().value_or("");
  if (!ours || planned.empty() || *location == planned) return false;
  if (findText(*location, *ours) == std::string::npos) return true;
  const OptionalText& stored = m_left.getJoinURLFromProperty();
  return stored && *stored != *ours;
}

}  // namespace vorn

#include "data/CVnGetMeetingProtoParse.h"

#include <google/protobuf/arena.h>

#include <utility>

#include "data/TrackingFields.h"
#include "data/vnProtoBufConvert.h"
#include "meeting.pb.h"

namespace vorn {

namespace {

namespace proto = com::tidemar::webapp::proto;

// The decoded message is only a passing stage, so its texts are moved out of it instead of copied.
std::string taken(std::string* text) { return textFromWire(std::move(*text)); }

template <typename Texts>
std::vector<std::string> takenAll(Texts* texts) {
  std::vector<std::string> result;
  result.reserve(static_cast<std::size_t>(texts->size()));
  for (std::string& text : *texts) result.push_back(taken(&text));
  return result;
}

_sAlternateHost_ takeAlternateHost(proto::AlternativeHost& from) {
  _sAlternateHost_ host;
  if (from.has_id()) host.id = taken(from.mutable_id());
  if (from.has_email()) host.email = taken(from.mutable_email());
  if (from.has_firstname()) host.firstName = taken(from.mutable_firstname());
  if (from.has_lastname()) host.lastName = taken(from.mutable_lastname());
  host.option = from.option();
  return host;
}

_sAvailableDialinCountry_ takeDialinCountry(proto::AvailableDialinCountry& from) {
  _sAvailableDialinCountry_ countries;
  if (from.has_hash()) countries.hash = taken(from.mutable_hash());
  countries.includeTollfree = from.includetollfree();
  countries.selectedCountries = takenAll(from.mutable_selectedcountries());
  countries.showIncludeTollfree = from.showincludetollfree();
  return countries;
}

_sAuthDomainInfo_ takeAuth(proto::AuthProto& from) {
  _sAuthDomainInfo_ info;
  if (from.has_authid()) info.authId = taken(from.mutable_authid());
  if (from.has_authname()) info.authName = taken(from.mutable_authname());
  info.authType = from.authtype();
  if (from.has_authdomain()) info.authDomain = taken(from.mutable_authdomain());
  return info;
}

_sMeetingTemplate_ takeTemplate(proto::MeetingTemplate& from) {
  _sMeetingTemplate_ meetingTemplate;
  if (from.has_templateid()) meetingTemplate.templateId = taken(from.mutable_templateid());
  meetingTemplate.templateType = from.templatetype();
  if (from.has_templatename()) meetingTemplate.templateName = taken(from.mutable_templatename());
  return meetingTemplate;
}

template <typename Record>
bool copyAt(const std::vector<Record>& records, std::int32_t index, Record& out) {
  if (index < 0 || static_cast<std::size_t>(index) >= records.size()) return false;
  out = records[static_cast<std::size_t>(index)];
  return true;
}

}  // namespace

CVnGetMeetingProtoParse::CVnGetMeetingProtoParse(const std::uint8_t* bytes, std::int32_t length) {
  if (length > 0) ReadFromProto(bytes, length);
}

void CVnGetMeetingProtoParse::ReadFromProto(const std::uint8_t* bytes, std::int32_t length) {
  // Thousands of small parts cost less to make and to drop together.
  google::protobuf::Arena arena;
  auto& message = *google::protobuf::Arena::CreateMessage<proto::MeetingProto>(&arena);
  if (!ProtoFromByteStream(&message, bytes, static_cast<std::uint32_t>(length))) return;

  m_scheduleOptions = message.scheduleoptions();
  m_scheduleOption2 = message.scheduleoption2();
  m_scheduleOption3 = message.scheduleoption3();
  m_scheduleOption4 = message.scheduleoption4();
  m_meetingNumber = message.meetingnumber();
  if (message.has_invitehtmlemail()) m_inviteHtmlEmail = taken(message.mutable_invitehtmlemail());
  if (message.has_restrictjoinuserdomains()) {
    m_restrictJoinDomains = taken(message.mutable_restrictjoinuserdomains());
  }
  if (message.has_extinfo()) m_extInfo = taken(message.mutable_extinfo());
  if (message.has_hostid()) m_hostId = taken(message.mutable_hostid());
  if (message.has_hostemail()) m_hostEmail = taken(message.mutable_hostemail());

  m_trackingFields.reserve(static_cast<std::size_t>(message.trackingfields_size()));
  for (auto& field : *message.mutable_trackingfields()) m_trackingFields.push_back(takeTrackingField(field));
  m_alternateHosts.reserve(static_cast<std::size_t>(message.alternatehosts_size()));
  for (auto& host : *message.mutable_alternatehosts()) m_alternateHosts.push_back(takeAlternateHost(host));
  m_additionalDCRegions = takenAll(message.mutable_additionaldcregions());

  if (message.has_availabledialincountry()) {
    m_availableDialinCountry = takeDialinCountry(*message.mutable_availabledialincountry());
  }
  if (message.has_authproto()) m_authDomainInfo = takeAuth(*message.mutable_authproto());
  if (message.has_meetingtemplate()) m_meetingTemplate = takeTemplate(*message.mutable_meetingtemplate());
  if (message.has_joinmeetingregionpolicy()) {
    auto& policy = *message.mutable_joinmeetingregionpolicy();
    m_joinMeetingRegionPolicy.regionType = policy.regiontype();
    m_joinMeetingRegionPolicy.regionCodes = takenAll(policy.mutable_regioncodes());
  }
}

bool CVnGetMeetingProtoParse::GetTrackingFieldAt(std::int32_t index, _sTrackingField& field) const {
  return copyAt(m_trackingFields, index, field);
}

bool CVnGetMeetingProtoParse::GetAlternateHostAt(std::int32_t index, _sAlternateHost_& host) const {
  return copyAt(m_alternateHosts, index, host);
}

bool CVnGetMeetingProtoParse::GetAdditionalDCRegionAt(std::int32_t index, std::string& region) const {
  return copyAt(m_additionalDCRegions, index, region);
}

bool CVnGetMeetingProtoParse::GetAvailableDialinCountry(_sAvailableDialinCountry_& countries) const {
  if (m_availableDialinCountry.hash.empty()) return false;
  countries = m_availableDialinCountry;
  return true;
}

bool CVnGetMeetingProtoParse::GetAuthDomainInfo(_sAuthDomainInfo_& info) const {
  info = m_authDomainInfo;
  return true;
}

bool CVnGetMeetingProtoParse::GetMeetingTemplate(_sMeetingTemplate_& meetingTemplate) const {
  meetingTemplate = m_meetingTemplate;
  return true;
}

bool CVnGetMeetingProtoParse::GetJoinMeetingRegionPolicy(_sJoinMeetingRegionPolicy_& policy) const {
  policy = m_joinMeetingRegionPolicy;
  return true;
}

}  // namespace vorn

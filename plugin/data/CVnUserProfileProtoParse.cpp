#include "data/CVnUserProfileProtoParse.h"

#include <utility>

#include "data/OptionBits.h"
#include "data/vnProtoBufConvert.h"
#include "meeting.pb.h"
#include "platform/Registry.h"

namespace vorn {

namespace {

namespace proto = com::tidemar::webapp::proto;

// The last profile message that decoded, and the parser that opens it to questions.
struct DecodedUserProfile {
  proto::UserProfile message;
  std::unique_ptr<CVnUserProfileProtoParse> parser;
};

const proto::UserProfile& profile() { return Registry::shared<DecodedUserProfile>().message; }

bool inUserOption(std::uint64_t mask) { return hasBit(profile().useroption(), mask); }
bool inUserOption2(std::uint64_t mask) { return hasBit(profile().useroption2(), mask); }
bool telephonyIsOff() { return profile().telephonyoff() != 0; }

}  // namespace

std::unique_ptr<CVnUserProfileProtoParse>& userProfileProtoParse() {
  return Registry::shared<DecodedUserProfile>().parser;
}

CVnUserProfileProtoParse::CVnUserProfileProtoParse(const std::uint8_t* bytes, std::int32_t length) {
  proto::UserProfile message;
  if (length <= 0 || !ProtoFromByteStream(&message, bytes, static_cast<std::uint32_t>(length))) return;
  Registry::shared<DecodedUserProfile>().message = std::move(message);
}

std::string CVnUserProfileProtoParse::GetUserId() const { return textFromWire(profile().id()); }
std::string CVnUserProfileProtoParse::GetUserName() const { return textFromWire(profile().name()); }
std::string CVnUserProfileProtoParse::GetUserEmail() const { return textFromWire(profile().email()); }

std::optional<std::int32_t> CVnUserProfileProtoParse::GetUserType() const {
  if (!profile().has_usertype()) return std::nullopt;
  return profile().usertype();
}

std::int64_t CVnUserProfileProtoParse::GetRoomMeetingId() const { return profile().roommeetingid(); }

std::string CVnUserProfileProtoParse::GetThirdPartyAudioInfo() const {
  return textFromWire(profile().otherteleconfinfo());
}

std::string CVnUserProfileProtoParse::GetRestrictJoinDomains() const {
  return textFromWire(profile().restrictjoinuserdomains());
}

bool CVnUserProfileProtoParse::CanUpgrade() const { return profile().canupgrade() != 0; }

std::int64_t CVnUserProfileProtoParse::GetUserOption3() const { return profile().useroption3(); }
std::int64_t CVnUserProfileProtoParse::GetUserOption4() const { return profile().useroption4(); }
std::int64_t CVnUserProfileProtoParse::GetUserOption5() const { return profile().useroption5(); }

bool CVnUserProfileProtoParse::EnableAutoRecordingByDefault() const {
  return inUserOption(maskOf(kUserOptionBits, "EnableAutoRecordingByDefault"));
}
bool CVnUserProfileProtoParse::AlwaysUseTelephonyAsDefaultAudio() const {
  return inUserOption(maskOf(kUserOptionBits, "AlwaysUseTelephonyAsDefaultAudio"));
}
bool CVnUserProfileProtoParse::HasSelfTelephony() const {
  return inUserOption(maskOf(kUserOptionBits, "HasSelfTelephony"));
}
bool CVnUserProfileProtoParse::EnableThirdPartyAudio() const {
  return !telephonyIsOff() && inUserOption(maskOf(kUserOptionBits, "EnableThirdPartyAudio"));
}
bool CVnUserProfileProtoParse::IsEnablePSTN() const { return !telephonyIsOff(); }
bool CVnUserProfileProtoParse::EnableCloudRecording() const {
  if (inUserOption2(maskOf(kUserOption2Bits, "EnableCloudRecording"))) return false;
  return inUserOption(maskOf(kUserOptionBits, "EnableCloudRecording"));
}
bool CVnUserProfileProtoParse::EnableCloudRecordingByDefault() const {
  return inUserOption(maskOf(kUserOptionBits, "EnableCloudRecordingByDefault"));
}
bool CVnUserProfileProtoParse::UseRandomPasswordByDefault() const {
  return inUserOption(maskOf(kUserOptionBits, "UseRandomPasswordByDefault"));
}
bool CVnUserProfileProtoParse::Use3rdPartyAsDefaultAudio() const {
  return HasSelfTelephony() && inUserOption(maskOf(kUserOptionBits, "Use3rdPartyAsDefaultAudio"));
}
bool CVnUserProfileProtoParse::AlwaysUseBothAsDefaultAudio() const {
  return inUserOption(maskOf(kUserOptionBits, "AlwaysUseBothAsDefaultAudio"));
}
bool CVnUserProfileProtoParse::AlwaysTurnOnHostVideoByDefault() const {
  return inUserOption(maskOf(kUserOptionBits, "AlwaysTurnOnHostVideoByDefault"));
}
bool CVnUserProfileProtoParse::AlwaysTurnOnAttendeeVideoByDefault() const {
  return inUserOption(maskOf(kUserOptionBits, "AlwaysTurnOnAttendeeVideoByDefault"));
}
bool CVnUserProfileProtoParse::AlwaysEnableJoinBeforeHostByDefault() const {
  return inUserOption(maskOf(kUserOptionBits, "AlwaysEnableJoinBeforeHostByDefault"));
}
bool CVnUserProfileProtoParse::EnableLocalRecording() const {
  return !inUserOption2(maskOf(kUserOption2Bits, "EnableLocalRecording")) &&
         !inUserOption(maskOf(kUserOptionBits, "EnableLocalRecording"));
}
bool CVnUserProfileProtoParse::IsSignedInUserMeetingOn() const {
  return inUserOption(maskOf(kUserOptionBits, "IsSignedInUserMeetingOn"));
}
bool CVnUserProfileProtoParse::IsSpecifiedDomainsMeetingOn() const {
  return inUserOption(maskOf(kUserOptionBits, "IsSpecifiedDomainsMeetingOn"));
}
bool CVnUserProfileProtoParse::EnforceJoinLoginSpecifiedDomainsDefaultOn() const {
  return inUserOption(maskOf(kUserOptionBits, "EnforceJoinLoginSpecifiedDomainsDefaultOn"));
}
bool CVnUserProfileProtoParse::IsScheduleAudioBothDisabled() const {
  return inUserOption2(maskOf(kUserOption2Bits, "IsScheduleAudioBothDisabled"));
}
bool CVnUserProfileProtoParse::EnableNotStoreMeetingTopic() const {
  return inUserOption2(maskOf(kUserOption2Bits, "EnableNotStoreMeetingTopic"));
}
bool CVnUserProfileProtoParse::IsEnableForcePMIJBHWithPassword() const {
  return inUserOption2(maskOf(kUserOption2Bits, "IsEnableForcePMIJBHWithPassword"));
}
bool CVnUserProfileProtoParse::AlwaysUseVOIPAsDefaultAudio() const {
  return inUserOption2(maskOf(kUserOption2Bits, "AlwaysUseVOIPAsDefaultAudio"));
}
bool CVnUserProfileProtoParse::IsDisablePMI() const {
  return hasBit(GetUserOption3(), maskOf(kUserOption3Bits, "IsDisablePMI"));
}

std::int32_t CVnUserProfileProtoParse::GetTrackingFieldsCount() const { return profile().trackingfields_size(); }

bool CVnUserProfileProtoParse::GetTrackingFieldAt(std::int32_t index, _sTrackingField& field) const {
  if (index < 0 || index >= GetTrackingFieldsCount()) return false;
  const proto::TrackingField& from = profile().trackingfields(index);
  if (from.has_id()) field.id = textFromWire(from.id());
  if (from.has_required()) field.required = from.required();
  if (from.has_trackfield()) field.trackField = textFromWire(from.trackfield());
  if (from.has_trackvalue()) field.trackValue = textFromWire(from.trackvalue());
  if (from.has_mtvalue()) field.mtValue = textFromWire(from.mtvalue());
  return true;
}

std::int32_t CVnUserProfileProtoParse::GetTspAccountsCount() const { return profile().tspaccounts_size(); }

bool CVnUserProfileProtoParse::GetTspAccountAt(std::int32_t index, _sTspAccount_& account) const {
  if (index < 0 || index >= GetTspAccountsCount()) return false;
  const proto::TSPAccountProto& from = profile().tspaccounts(index);
  account.tspAccountIndex = textFromWire(from.tspaccountindex());
  account.hostPasscode = textFromWire(from.hostpasscode());
  account.participantPasscode = textFromWire(from.participantpasscode());
  account.passcodeType = from.passcodetype();
  account.tspNumber.clear();
  for (const std::string& number : from.tspnumber()) account.tspNumber.push_back(textFromWire(number));
  return true;
}

std::string CVnUserProfileProtoParse::GetTspServiceProvider() const {
  return textFromWire(profile().tsp().serviceprovider());
}

bool CVnUserProfileProtoParse::IsTspSupportHybridAudio() const { return profile().tsp().supportshybridaudio(); }

}  // namespace vorn

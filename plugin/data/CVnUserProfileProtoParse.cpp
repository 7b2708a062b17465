#include "data/CVnUserProfileProtoParse.h"

#include <utility>

#include "data/TrackingFields.h"
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

bool CVnUserProfileProtoParse::says(UserOption bit) const { return hasBit(profile().useroption(), bit); }
bool CVnUserProfileProtoParse::says(UserOption2 bit) const { return hasBit(profile().useroption2(), bit); }
bool CVnUserProfileProtoParse::says(UserOption3 bit) const { return hasBit(GetUserOption3(), bit); }

std::int64_t CVnUserProfileProtoParse::GetUserOption3() const { return profile().useroption3(); }
std::int64_t CVnUserProfileProtoParse::GetUserOption4() const { return profile().useroption4(); }
std::int64_t CVnUserProfileProtoParse::GetUserOption5() const { return profile().useroption5(); }

bool CVnUserProfileProtoParse::IsEnablePSTN() const { return profile().telephonyoff() == 0; }

std::int32_t CVnUserProfileProtoParse::GetTrackingFieldsCount() const { return profile().trackingfields_size(); }

bool CVnUserProfileProtoParse::GetTrackingFieldAt(std::int32_t index, _sTrackingField& field) const {
  if (index < 0 || index >= GetTrackingFieldsCount()) return false;
  proto::TrackingField passing = profile().trackingfields(index);
  field = takeTrackingField(passing);
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

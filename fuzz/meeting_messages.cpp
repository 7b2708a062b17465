// The binary messages of a reply: whatever they hold, the answers are valid text and every index is answered.

#include "data/CVnGetMeetingProtoParse.h"
#include "data/CVnGetPACProtoParse.h"
#include "data/CVnUserProfileProtoParse.h"
#include "fuzz/Fuzzing.h"
#include "util/Utf16.h"

namespace {

using vorn::fuzzing::check;

void checkText(const std::string& text) { check(vorn::isValidUtf8(text), "a text of the wire is UTF-8"); }

void askMeeting(const std::uint8_t* data, std::int32_t size) {
  const vorn::CVnGetMeetingProtoParse meeting(data, size);
  checkText(meeting.GetInviteHtmlEmail());
  checkText(meeting.GetExtInfo());
  checkText(meeting.GetHostEmail());
  checkText(meeting.GetRestrictJoinDomains());
  vorn::_sTrackingField field;
  for (std::int32_t i = -1; i <= meeting.GetTrackingFieldsCount(); ++i) {
    const bool isInside = i >= 0 && i < meeting.GetTrackingFieldsCount();
    check(meeting.GetTrackingFieldAt(i, field) == isInside, "each index inside has a tracking field");
    checkText(field.trackValue);
  }
  vorn::_sAlternateHost_ host;
  for (std::int32_t i = -1; i <= meeting.GetAlternateHostsCount(); ++i) {
    meeting.GetAlternateHostAt(i, host);
    checkText(host.email);
  }
  vorn::_sAvailableDialinCountry_ countries;
  if (meeting.GetAvailableDialinCountry(countries)) checkText(countries.hash);
}

void askProfile(const std::uint8_t* data, std::int32_t size) {
  const vorn::CVnUserProfileProtoParse profile(data, size);
  checkText(profile.GetUserName());
  checkText(profile.GetThirdPartyAudioInfo());
  checkText(profile.GetTspServiceProvider());
  vorn::_sTrackingField field;
  for (std::int32_t i = -1; i <= profile.GetTrackingFieldsCount(); ++i) profile.GetTrackingFieldAt(i, field);
  vorn::_sTspAccount_ account;
  for (std::int32_t i = -1; i <= profile.GetTspAccountsCount(); ++i) profile.GetTspAccountAt(i, account);
}

void askConferences(const std::uint8_t* data, std::int32_t size) {
  const vorn::CVnGetPACProtoParse conferences(data, size);
  for (std::int32_t i = 0; i <= conferences.GetPACCount() + 1; ++i) {
    checkText(conferences.GetPACDialInNumber(i));
    checkText(conferences.GetPACDialInNumberWithCommaSeparator(i));
    checkText(conferences.GetInvitationEmail(i));
    checkText(conferences.GetPACLocation(i));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto length = static_cast<std::int32_t>(size);
  askMeeting(data, length);
  askProfile(data, length);
  askConferences(data, length);
  return 0;
}

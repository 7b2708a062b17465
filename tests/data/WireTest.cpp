#include <set>

#include "data/CVnGetMeetingProtoParse.h"
#include "data/vnGetPACHelper.h"
#include "tests/data/DataTest.h"

namespace vorn {
namespace {

// The wire form by its own rules, so that no schema of ours stands between a field's number and its reader.
std::string varint(std::uint64_t number) {
  std::string bytes;
  for (; number >= 0x80; number >>= 7) bytes += static_cast<char>(number | 0x80);
  return bytes + static_cast<char>(number);
}
std::string field(unsigned number, std::uint64_t value) { return varint(number << 3) + varint(value); }
std::string field(unsigned number, const std::string& content) {
  return varint(number << 3 | 2) + varint(content.size()) + content;
}

std::string asText(const std::string& text) { return text; }
std::string asText(std::int64_t number) { return std::to_string(number); }
std::string asText(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += text + "|";
  return all;
}

template <typename Parser>
Parser parserOf(const std::string& bytes) {
  return {reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::int32_t>(bytes.size())};
}

using M = CVnGetMeetingProtoParse;
using P = CVnUserProfileProtoParse;

// A question to a parser: an accessor, or a field of a record that an accessor fills, of a list the first one.
template <auto Get, typename Parser>
std::string told(const Parser& parser) {
  return asText((parser.*Get)());
}
template <auto Get, auto Field, typename Parser, typename Record>
std::string toldIn(const Parser& parser, bool (Parser::*)(Record&) const) {
  Record record;
  return (parser.*Get)(record) ? asText(record.*Field) : "";
}
template <auto Get, auto Field, typename Parser, typename Record>
std::string toldIn(const Parser& parser, bool (Parser::*)(std::int32_t, Record&) const) {
  Record record;
  return (parser.*Get)(0, record) ? asText(record.*Field) : "";
}
template <auto Get, auto Field, typename Parser>
std::string part(const Parser& parser) {
  return toldIn<Get, Field>(parser, Get);
}

TEST(WireTest, EachFieldOfAMeetingHasItsNumber) {
  const std::string hash = field(1, "h");
  const struct {
    std::string bytes;
    std::string (*ask)(const M&);
    const char* answer;
  } cases[] = {
      {field(2, "x"), told<&M::GetHostID>, "x"},
      {field(12, 5), told<&M::GetMeetingNumber>, "5"},
      {field(29, 5), told<&M::GetScheduleOptions>, "5"},
      {field(35, "x"), told<&M::GetHostEmail>, "x"},
      {field(71, "x"), told<&M::GetRestrictJoinDomains>, "x"},
      {field(73, field(1, "x")), part<&M::GetAlternateHostAt, &_sAlternateHost_::id>, "x"},
      {field(73, field(2, "x")), part<&M::GetAlternateHostAt, &_sAlternateHost_::email>, "x"},
      {field(73, field(3, "x")), part<&M::GetAlternateHostAt, &_sAlternateHost_::firstName>, "x"},
      {field(73, field(4, "x")), part<&M::GetAlternateHostAt, &_sAlternateHost_::lastName>, "x"},
      {field(73, field(6, 5)), part<&M::GetAlternateHostAt, &_sAlternateHost_::option>, "5"},
      {field(78, 5), told<&M::GetScheduleOption2>, "5"},
      {field(79, "x"), told<&M::GetInviteHtmlEmail>, "x"},
      {field(81, field(1, "x")), part<&M::GetTrackingFieldAt, &_sTrackingField::id>, "x"},
      {field(81, field(2, 1)), part<&M::GetTrackingFieldAt, &_sTrackingField::required>, "1"},
      {field(81, field(3, "x")), part<&M::GetTrackingFieldAt, &_sTrackingField::trackField>, "x"},
      {field(81, field(4, "x")), part<&M::GetTrackingFieldAt, &_sTrackingField::trackValue>, "x"},
      {field(81, field(5, "x")), part<&M::GetTrackingFieldAt, &_sTrackingField::mtValue>, "x"},
      {field(94, hash), part<&M::GetAvailableDialinCountry, &_sAvailableDialinCountry_::hash>, "h"},
      {field(94, hash + field(2, "FR") + field(3, "US") + field(3, "DE")),
       part<&M::GetAvailableDialinCountry, &_sAvailableDialinCountry_::selectedCountries>, "US|DE|"},
      {field(94, field(3, "US")),
       part<&M::GetAvailableDialinCountry, &_sAvailableDialinCountry_::selectedCountries>, ""},
      {field(94, hash + field(4, 1)),
       part<&M::GetAvailableDialinCountry, &_sAvailableDialinCountry_::includeTollfree>, "1"},
      {field(94, hash + field(5, 1)),
       part<&M::GetAvailableDialinCountry, &_sAvailableDialinCountry_::showIncludeTollfree>, "1"},
      {field(95, "x"), told<&M::GetExtInfo>, "x"},
      {field(116, 5), told<&M::GetScheduleOption3>, "5"},
      {field(134, field(1, "x")), part<&M::GetAuthDomainInfo, &_sAuthDomainInfo_::authId>, "x"},
      {field(134, field(2, "x")), part<&M::GetAuthDomainInfo, &_sAuthDomainInfo_::authName>, "x"},
      {field(134, field(3, 5)), part<&M::GetAuthDomainInfo, &_sAuthDomainInfo_::authType>, "5"},
      {field(134, field(4, "x")), part<&M::GetAuthDomainInfo, &_sAuthDomainInfo_::authDomain>, "x"},
      {field(150, 5), told<&M::GetScheduleOption4>, "5"},
      {field(157, field(1, 5)), part<&M::GetJoinMeetingRegionPolicy, &_sJoinMeetingRegionPolicy_::regionType>,
       "5"},
      {field(157, field(2, "CN") + field(2, "US")),
       part<&M::GetJoinMeetingRegionPolicy, &_sJoinMeetingRegionPolicy_::regionCodes>, "CN|US|"},
      {field(160, field(1, "x")), part<&M::GetMeetingTemplate, &_sMeetingTemplate_::templateId>, "x"},
      {field(160, field(2, 5)), part<&M::GetMeetingTemplate, &_sMeetingTemplate_::templateType>, "5"},
      {field(160, field(3, "x")), part<&M::GetMeetingTemplate, &_sMeetingTemplate_::templateName>, "x"},
      // Others are passed over, and a zero tag ends the message.
      {field(4, "topic") + field(206, field(1, 1)) + field(2, "x"), told<&M::GetHostID>, "x"},
      {field(2, "x") + std::string(3, '\0') + field(35, "y"), told<&M::GetHostEmail>, ""},
  };
  for (const auto& c : cases) EXPECT_EQ(c.ask(parserOf<M>(c.bytes)), c.answer) << &c - cases;
  std::string region;
  EXPECT_TRUE(parserOf<M>(field(145, "EU") + field(145, "AU")).GetAdditionalDCRegionAt(1, region));
  EXPECT_EQ(region, "AU");
}

using WireProfileTest = DataTest;

TEST_F(WireProfileTest, EachFieldOfAProfileHasItsNumber) {
  const struct {
    std::string bytes;
    std::string (*ask)(const P&);
    const char* answer;
  } cases[] = {
      {field(1, "x"), told<&P::GetUserId>, "x"},
      {field(2, "x"), told<&P::GetUserName>, "x"},
      {field(4, "x"), told<&P::GetUserEmail>, "x"},
      {field(10, 5), [](const P& p) { return std::to_string(p.GetUserType().value_or(0)); }, "5"},
      {field(12, 1), told<&P::CanUpgrade>, "1"},
      {field(13, 5), told<&P::GetRoomMeetingId>, "5"},
      {field(30, 1), told<&P::IsEnablePSTN>, "0"},
      {field(31, 0x20), told<&P::EnableAutoRecordingByDefault>, "1"},
      {field(34, "x"), told<&P::GetThirdPartyAudioInfo>, "x"},
      {field(44, "x"), told<&P::GetRestrictJoinDomains>, "x"},
      {field(47, 0x100000000), told<&P::EnableNotStoreMeetingTopic>, "1"},
      {field(52, field(1, "x")), part<&P::GetTrackingFieldAt, &_sTrackingField::id>, "x"},
      {field(52, field(3, "x")), part<&P::GetTrackingFieldAt, &_sTrackingField::trackField>, "x"},
      {field(68, 5), told<&P::GetUserOption3>, "5"},
      {field(69, 5), told<&P::GetUserOption4>, "5"},
      {field(70, 5), told<&P::GetUserOption5>, "5"},
      {field(77, field(1, "x")), told<&P::GetTspServiceProvider>, "x"},
      {field(77, field(5, 1)), told<&P::IsTspSupportHybridAudio>, "1"},
      {field(78, field(1, "x")), part<&P::GetTspAccountAt, &_sTspAccount_::tspAccountIndex>, "x"},
      {field(78, field(2, "x")), part<&P::GetTspAccountAt, &_sTspAccount_::hostPasscode>, "x"},
      {field(78, field(3, "x")), part<&P::GetTspAccountAt, &_sTspAccount_::participantPasscode>, "x"},
      {field(78, field(4, 5)), part<&P::GetTspAccountAt, &_sTspAccount_::passcodeType>, "5"},
      {field(78, field(5, "x") + field(5, "y")), part<&P::GetTspAccountAt, &_sTspAccount_::tspNumber>, "x|y|"},
  };
  for (const auto& c : cases) {
    world.restart();
    EXPECT_EQ(c.ask(parserOf<P>(c.bytes)), c.answer) << &c - cases;
    EXPECT_EQ(c.ask(parserOf<P>("")), c.answer) << "no message takes the one before away";
  }
}

TEST_F(WireProfileTest, NothingIsFoundOutsideAList) {
  const M meeting = parserOf<M>(field(81, field(1, "x")) + field(73, field(1, "x")) + field(145, "EU"));
  const P profile = parserOf<P>(field(52, field(1, "x")) + field(78, field(1, "x")));
  for (const int index : {-1, 0, 1}) {
    _sTrackingField tracking;
    _sAlternateHost_ host;
    _sTspAccount_ account;
    std::string region;
    const std::set<bool> found{
        meeting.GetTrackingFieldAt(index, tracking), meeting.GetAlternateHostAt(index, host),
        meeting.GetAdditionalDCRegionAt(index, region), profile.GetTrackingFieldAt(index, tracking),
        profile.GetTspAccountAt(index, account)};
    EXPECT_EQ(found, std::set<bool>{index == 0}) << index;
  }
}

using WireConferenceTest = DataTest;

TEST_F(WireConferenceTest, EachFieldOfAConferenceHasItsNumber) {
  const std::string number = field(1, "US") + field(2, "name") + field(3, "code") + field(4, "+1");
  const std::string conference = field(1, 7) + field(2, number) + field(3, number + field(5, "shown")) +
                                 field(4, "mail") + field(5, "html") + field(6, "direct") + field(7, "place");
  auto& pac = vnGetPACHelper::sharedInstance();
  pac.setPACInfo(base64(field(1, 3) + field(33, field(1, conference))));
  EXPECT_EQ(pac.pacCount(), 1);
  EXPECT_EQ(pac.pacMeetingID(1), "7");
  EXPECT_EQ(pac.pacDialInNumber(1), "+1 (US Toll Free)\r\n+1 (US Toll)\r\n");
  EXPECT_EQ(pac.invitationMail(1), "mail");
  EXPECT_EQ(pac.htmlInvitationMail(1), "html");
  EXPECT_EQ(pac.dedicatedDailinNumber(1), "direct");
  EXPECT_EQ(pac.pacLocation(1), "place");
}

}  // namespace
}  // namespace vorn

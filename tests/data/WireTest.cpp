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

CVnGetMeetingProtoParse meetingOf(const std::string& bytes) {
  return {reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::int32_t>(bytes.size())};
}

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += text + "|";
  return all;
}

// Everything that a reader tells of a message; the parts that are not there read "", 0 and false.
std::string toldOfMeeting(const std::string& bytes) {
  const CVnGetMeetingProtoParse m = meetingOf(bytes);
  _sTrackingField f;
  m.GetTrackingFieldAt(0, f);
  _sAlternateHost_ h;
  m.GetAlternateHostAt(0, h);
  _sAvailableDialinCountry_ c;
  m.GetAvailableDialinCountry(c);
  _sAuthDomainInfo_ a;
  m.GetAuthDomainInfo(a);
  _sMeetingTemplate_ t;
  m.GetMeetingTemplate(t);
  _sJoinMeetingRegionPolicy_ p;
  m.GetJoinMeetingRegionPolicy(p);
  std::string region;
  m.GetAdditionalDCRegionAt(0, region);
  const std::pair<const char*, std::string> texts[] = {{"hostId", m.GetHostID()},
                                                       {"hostEmail", m.GetHostEmail()},
                                                       {"html", m.GetInviteHtmlEmail()},
                                                       {"domains", m.GetRestrictJoinDomains()},
                                                       {"extInfo", m.GetExtInfo()},
                                                       {"field.id", f.id},
                                                       {"field.label", f.trackField},
                                                       {"field.values", f.trackValue},
                                                       {"field.chosen", f.mtValue},
                                                       {"host.id", h.id},
                                                       {"host.email", h.email},
                                                       {"host.first", h.firstName},
                                                       {"host.last", h.lastName},
                                                       {"hash", c.hash},
                                                       {"countries", joined(c.selectedCountries)},
                                                       {"auth.id", a.authId},
                                                       {"auth.name", a.authName},
                                                       {"auth.domain", a.authDomain},
                                                       {"template.id", t.templateId},
                                                       {"template.name", t.templateName},
                                                       {"regions", joined(p.regionCodes)},
                                                       {"region", region}};
  const std::pair<const char*, std::int64_t> numbers[] = {{"number", m.GetMeetingNumber()},
                                                          {"options", m.GetScheduleOptions()},
                                                          {"option2", m.GetScheduleOption2()},
                                                          {"option3", m.GetScheduleOption3()},
                                                          {"option4", m.GetScheduleOption4()},
                                                          {"field.required", f.required},
                                                          {"host.option", h.option},
                                                          {"tollfree", c.includeTollfree},
                                                          {"showTollfree", c.showIncludeTollfree},
                                                          {"auth.type", a.authType},
                                                          {"template.type", t.templateType},
                                                          {"region.type", p.regionType}};
  std::string told;
  for (const auto& [name, text] : texts) told += text.empty() ? "" : std::string(name) + "=" + text + " ";
  for (const auto& [name, number] : numbers) {
    told += number == 0 ? "" : std::string(name) + "=" + std::to_string(number) + " ";
  }
  return told;
}

TEST(WireTest, EachFieldOfAMeetingHasItsNumber) {
  const std::string withHash = field(1, "h");
  const std::pair<std::string, const char*> cases[] = {
      {field(2, "x"), "hostId=x "},
      {field(12, 5), "number=5 "},
      {field(29, 5), "options=5 "},
      {field(35, "x"), "hostEmail=x "},
      {field(71, "x"), "domains=x "},
      {field(73, field(1, "x")), "host.id=x "},
      {field(73, field(2, "x")), "host.email=x "},
      {field(73, field(3, "x")), "host.first=x "},
      {field(73, field(4, "x")), "host.last=x "},
      {field(73, field(6, 5)), "host.option=5 "},
      {field(78, 5), "option2=5 "},
      {field(79, "x"), "html=x "},
      {field(81, field(1, "x")), "field.id=x "},
      {field(81, field(2, 1)), "field.required=1 "},
      {field(81, field(3, "x")), "field.label=x "},
      {field(81, field(4, "x")), "field.values=x "},
      {field(81, field(5, "x")), "field.chosen=x "},
      {field(94, field(3, "US")), ""},
      {field(94, withHash), "hash=h "},
      {field(94, withHash + field(3, "US") + field(3, "DE")), "hash=h countries=US|DE| "},
      {field(94, withHash + field(2, "US")), "hash=h "},
      {field(94, withHash + field(4, 1)), "hash=h tollfree=1 "},
      {field(94, withHash + field(5, 1)), "hash=h showTollfree=1 "},
      {field(95, "x"), "extInfo=x "},
      {field(116, 5), "option3=5 "},
      {field(134, field(1, "x")), "auth.id=x "},
      {field(134, field(2, "x")), "auth.name=x "},
      {field(134, field(3, 5)), "auth.type=5 "},
      {field(134, field(4, "x")), "auth.domain=x "},
      {field(145, "EU"), "region=EU "},
      {field(150, 5), "option4=5 "},
      {field(157, field(1, 5)), "region.type=5 "},
      {field(157, field(2, "CN") + field(2, "US")), "regions=CN|US| "},
      {field(160, field(1, "x")), "template.id=x "},
      {field(160, field(2, 5)), "template.type=5 "},
      {field(160, field(3, "x")), "template.name=x "},
      // Others are passed over, and a zero tag ends the message.
      {field(4, "topic") + field(206, field(1, 1)) + field(2, "x"), "hostId=x "},
      {field(2, "x") + std::string(3, '\0') + field(35, "y"), "hostId=x "},
  };
  for (const auto& [bytes, told] : cases) EXPECT_EQ(toldOfMeeting(bytes), told);
}

class WireProfileTest : public DataTest {
 protected:
  std::string toldOfProfile(const std::string& bytes) {
    world.restart();
    const CVnUserProfileProtoParse p(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                     static_cast<std::int32_t>(bytes.size()));
    _sTrackingField f;
    p.GetTrackingFieldAt(0, f);
    _sTspAccount_ t;
    p.GetTspAccountAt(0, t);
    const std::pair<const char*, std::string> texts[] = {{"id", p.GetUserId()},
                                                         {"name", p.GetUserName()},
                                                         {"email", p.GetUserEmail()},
                                                         {"audio", p.GetThirdPartyAudioInfo()},
                                                         {"domains", p.GetRestrictJoinDomains()},
                                                         {"provider", p.GetTspServiceProvider()},
                                                         {"field.id", f.id},
                                                         {"field.label", f.trackField},
                                                         {"tsp.index", t.tspAccountIndex},
                                                         {"tsp.host", t.hostPasscode},
                                                         {"tsp.participant", t.participantPasscode},
                                                         {"tsp.numbers", joined(t.tspNumber)}};
    const std::pair<const char*, std::int64_t> numbers[] = {{"type", p.GetUserType().value_or(0)},
                                                            {"upgrade", p.CanUpgrade()},
                                                            {"room", p.GetRoomMeetingId()},
                                                            {"noTelephony", !p.IsEnablePSTN()},
                                                            {"autoRecording", p.EnableAutoRecordingByDefault()},
                                                            {"noTopic", p.EnableNotStoreMeetingTopic()},
                                                            {"option3", p.GetUserOption3()},
                                                            {"option4", p.GetUserOption4()},
                                                            {"option5", p.GetUserOption5()},
                                                            {"hybrid", p.IsTspSupportHybridAudio()},
                                                            {"tsp.type", t.passcodeType}};
    std::string told;
    for (const auto& [name, text] : texts) told += text.empty() ? "" : std::string(name) + "=" + text + " ";
    for (const auto& [name, number] : numbers) {
      told += number == 0 ? "" : std::string(name) + "=" + std::to_string(number) + " ";
    }
    return told;
  }
};

TEST_F(WireProfileTest, EachFieldOfAProfileHasItsNumber) {
  const std::pair<std::string, const char*> cases[] = {
      {field(1, "x"), "id=x "},
      {field(2, "x"), "name=x "},
      {field(4, "x"), "email=x "},
      {field(10, 5), "type=5 "},
      {field(12, 1), "upgrade=1 "},
      {field(13, 5), "room=5 "},
      {field(30, 1), "noTelephony=1 "},
      {field(31, 0x20), "autoRecording=1 "},
      {field(34, "x"), "audio=x "},
      {field(44, "x"), "domains=x "},
      {field(47, 0x100000000), "noTopic=1 "},
      {field(52, field(1, "x")), "field.id=x "},
      {field(52, field(3, "x")), "field.label=x "},
      {field(68, 5), "option3=5 "},
      {field(69, 5), "option4=5 "},
      {field(70, 5), "option5=5 "},
      {field(77, field(1, "x")), "provider=x "},
      {field(77, field(5, 1)), "hybrid=1 "},
      {field(78, field(1, "x")), "tsp.index=x "},
      {field(78, field(2, "x")), "tsp.host=x "},
      {field(78, field(3, "x")), "tsp.participant=x "},
      {field(78, field(4, 5)), "tsp.type=5 "},
      {field(78, field(5, "x") + field(5, "y")), "tsp.numbers=x|y| "},
  };
  for (const auto& [bytes, told] : cases) EXPECT_EQ(toldOfProfile(bytes), told);
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

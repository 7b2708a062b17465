#include "data/CVnGetPACProtoParse.h"

#include <string_view>
#include <utility>

#include "data/vnProtoBufConvert.h"
#include "meeting.pb.h"
#include "platform/Registry.h"

namespace vorn {

namespace {

namespace proto = com::tidemar::webapp::proto;
using Numbers = google::protobuf::RepeatedPtrField<proto::CountryCodeProto>;

// The last message that decoded, and the parser that opens it to questions.
struct DecodedPAC {
  proto::Response message;
  std::unique_ptr<CVnGetPACProtoParse> parser;
};

// An index outside gives the empty conference, whose fields read "" and 0.
const proto::PACMeeting& conference(std::int32_t index) {
  const proto::PACInfo& info = Registry::shared<DecodedPAC>().message.pacinfo();
  if (index < 1 || info.meetings_size() < index) return proto::PACMeeting::default_instance();
  return info.meetings(index - 1);
}

std::string numberLines(const Numbers& numbers, std::string_view kind) {
  std::string text;
  for (const auto& entry : numbers) {
    if (entry.has_number()) text += entry.number();
    if (entry.has_id()) text.append(" (").append(entry.id()).append(kind).append("\r\n");
  }
  return text;
}

std::string numberList(const Numbers& numbers, std::string_view kind) {
  std::string text;
  for (int i = 0; i < numbers.size(); ++i) {
    const auto& entry = numbers.Get(i);
    if (entry.has_number()) text += entry.number();
    if (entry.has_id()) text.append(" (").append(entry.id()).append(kind);
    if (i + 1 < numbers.size() && !text.empty()) text += ", ";
  }
  return text;
}

constexpr std::string_view kTollFree = " Toll Free)";
constexpr std::string_view kToll = " Toll)";

}  // namespace

std::unique_ptr<CVnGetPACProtoParse>& pacProtoParse() { return Registry::shared<DecodedPAC>().parser; }

CVnGetPACProtoParse::CVnGetPACProtoParse(const std::uint8_t* bytes, std::int32_t length) {
  proto::Response message;
  if (length <= 0 || !ProtoFromByteStream(&message, bytes, static_cast<std::uint32_t>(length))) return;
  Registry::shared<DecodedPAC>().message = std::move(message);
}

std::int32_t CVnGetPACProtoParse::GetPACCount() const {
  return Registry::shared<DecodedPAC>().message.pacinfo().meetings_size();
}

std::int64_t CVnGetPACProtoParse::GetPACMeetingNumber(std::int32_t index) const {
  return conference(index).meetingnumber();
}

std::string CVnGetPACProtoParse::GetPACDialInNumber(std::int32_t index) const {
  const proto::PACMeeting& meeting = conference(index);
  return textFromWire(numberLines(meeting.tollfreenumbers(), kTollFree) +
                      numberLines(meeting.tollnumbers(), kToll));
}

std::string CVnGetPACProtoParse::GetPACDialInNumberWithCommaSeparator(std::int32_t index) const {
  const proto::PACMeeting& meeting = conference(index);
  const std::string tollFree = numberList(meeting.tollfreenumbers(), kTollFree);
  const std::string toll = numberList(meeting.tollnumbers(), kToll);
  const bool both = !tollFree.empty() && !toll.empty();
  return textFromWire(tollFree + (both ? ", " : "") + toll);
}

std::string CVnGetPACProtoParse::GetInvitationEmail(std::int32_t index) const {
  return textFromWire(conference(index).invitationemail());
}

std::string CVnGetPACProtoParse::GetHtmlInvitationEmail(std::int32_t index) const {
  return textFromWire(conference(index).invitationhtmlemail());
}

std::string CVnGetPACProtoParse::GetDedicatedDailinNumber(std::int32_t index) const {
  return textFromWire(conference(index).dedicateddailinnumber());
}

std::string CVnGetPACProtoParse::GetPACLocation(std::int32_t index) const {
  return textFromWire(conference(index).location());
}

}  // namespace vorn

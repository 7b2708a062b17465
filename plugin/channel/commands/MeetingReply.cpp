#include "channel/commands/MeetingReply.h"

#include "channel/commands/ReplyFields.h"
#include "data/vnGetMeetingHelper.h"
#include "util/EncodeUtils.h"

namespace vorn {

namespace {

constexpr std::size_t kMeetingField = 13;
constexpr std::size_t kMessageField = 14;

}  // namespace

std::optional<MeetingReply> MeetingReply::read(const std::string& content) {
  const auto fields = leadingFields(content, ';', kMessageField + 1);
  if (fields.size() <= kMeetingField) return std::nullopt;
  MeetingReply reply;
  reply.meeting = dictionaryFromJSON(EncodeUtils::base64Decode(std::string(fields[kMeetingField])));
  if (fields.size() > kMessageField) reply.message = std::string(fields[kMessageField]);
  return reply;
}

void MeetingReply::feed(vnGetMeetingHelper* helper, bool byUUID, bool forPMI) const {
  if (!helper) return;
  helper->setIsForGetMeetingByUUID(byUUID);
  helper->setMeetingData(dictionaryOrEmpty(meeting), forPMI);
  if (message) helper->setPBMeetingData(message);
}

}  // namespace vorn

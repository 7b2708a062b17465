#pragma once

#include <cstdint>

#include "data/CVnGetPACProtoParse.h"
#include "util/Value.h"

namespace vorn {

// The account's personal audio conferences: ready-made telephone conferences with their numbers and invitations.
// Main thread only. Indexes begin at 1.
class vnGetPACHelper {
 public:
  static vnGetPACHelper& sharedInstance();

  // Takes the base64 text of the client's reply and remembers in the site configuration whether there are any
  // conferences. Absent is ignored.
  void setPACInfo(const OptionalText& base64);
  bool hasPACInfo() const { return m_pacInfo && !m_pacInfo->empty(); }
  // 0 before any have come.
  std::int64_t pacCount() const;

  // Null before any have come.
  CVnGetPACProtoParse* protoParseInstance() const { return pacProtoParse().get(); }
  // Does nothing for an empty text.
  void initProtoParseInstance();
  void freeProtoParseInstance() { pacProtoParse().reset(); }

  // Absent before any conferences have come, "" for an index outside.
  OptionalText pacDialInNumber(std::int64_t index) const;
  OptionalText pacDialInNumberWithCommaSeparator(std::int64_t index) const;
  // Decimal text, "0" for an index outside.
  OptionalText pacMeetingID(std::int64_t index) const;
  OptionalText invitationMail(std::int64_t index) const;
  OptionalText htmlInvitationMail(std::int64_t index) const;
  // Absent for an empty number as well.
  OptionalText dedicatedDailinNumber(std::int64_t index) const;
  OptionalText pacLocation(std::int64_t index) const;
  bool supportHtmlInvitationMail(std::int64_t index) const;

  // What the site configuration remembers.
  bool isPACEnabled() const;

 private:
  OptionalText m_pacInfo;
};

}  // namespace vorn

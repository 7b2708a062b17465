#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace vorn {

// The questions to the decoded message with the account's personal audio conferences. Main thread only.
//
// There is one decoded message for the whole process, which a new parser replaces only when its bytes decode.
// Indexes begin at 1; an index outside gives "" or 0.
class CVnGetPACProtoParse {
 public:
  // The bytes have to be readable up to the length; a zero tag ends the message before that.
  CVnGetPACProtoParse(const std::uint8_t* bytes, std::int32_t length);

  std::int32_t GetPACCount() const;
  std::int64_t GetPACMeetingNumber(std::int32_t index) const;
  // The toll-free numbers and then the toll numbers, each with its label in brackets and a line break. A number
  // without a label has neither.
  std::string GetPACDialInNumber(std::int32_t index) const;
  // The same numbers on one line with ", " between them.
  std::string GetPACDialInNumberWithCommaSeparator(std::int32_t index) const;
  std::string GetInvitationEmail(std::int32_t index) const;
  std::string GetHtmlInvitationEmail(std::int32_t index) const;
  std::string GetDedicatedDailinNumber(std::int32_t index) const;
  std::string GetPACLocation(std::int32_t index) const;
};

// The one parser of the process, null as long as no conferences have come.
std::unique_ptr<CVnGetPACProtoParse>& pacProtoParse();

}  // namespace vorn

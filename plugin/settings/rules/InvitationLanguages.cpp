#include "settings/rules/InvitationLanguages.h"

#include <algorithm>

namespace vorn {

int invitationLanguageIndex(std::string_view language) {
  const auto row =
      std::find_if(kInvitationLanguages.begin(), kInvitationLanguages.end(), [&](const InvitationLanguage& known) {
        return language.starts_with(known.prefix) || (!known.whole.empty() && language == known.whole);
      });
  return row == kInvitationLanguages.end() ? 0 : static_cast<int>(row - kInvitationLanguages.begin());
}

std::string_view invitationLanguageCode(std::int64_t index) {
  const bool isRow = index >= 0 && index < static_cast<std::int64_t>(kInvitationLanguages.size());
  return kInvitationLanguages[isRow ? static_cast<std::size_t>(index) : 0].code;
}

std::string initialInvitationLanguage(const OptionalText& meetings, const OptionalText& records,
                                      std::string_view systems) {
  // A meeting that was called off leaves an empty text behind. Taken for a language it would be the first row, and
  // the next commit would make that the user's choice.
  if (!isEmpty(meetings)) return *meetings;
  if (!isEmpty(records)) return *records;
  return std::string(systems);
}

}  // namespace vorn

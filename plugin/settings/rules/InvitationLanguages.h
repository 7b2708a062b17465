#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "util/Value.h"

namespace vorn {

// A language in which an invitation can be written.
struct InvitationLanguage {
  std::string_view titleKey;
  // What goes over the wire. Two of them are not what a reader would expect, and stay so.
  std::string_view code;
  // A language tag that begins with this selects the row, and one that is the other.
  std::string_view prefix;
  std::string_view whole{};
};

// In the order of the popup.
inline constexpr std::array<InvitationLanguage, 12> kInvitationLanguages{{
    {"LN_Schedule_SelectLanguage_En_81562", "en", "en"},
    {"LN_Schedule_SelectLanguage_ZhCN_81562", "zh-CN", "zh-Hans", "zh-CN"},
    {"LN_Schedule_SelectLanguage_ZhTW_81562", "zh-TW", "zh-Hant", "zh-TW"},
    {"LN_Schedule_SelectLanguage_Ja_81562", "ja", "ja"},
    {"LN_Schedule_SelectLanguage_Ru_81562", "ru", "ru"},
    {"LN_Schedule_SelectLanguage_Fr_81562", "fr", "fr"},
    {"LN_Schedule_SelectLanguage_De_81562", "de", "de"},
    {"LN_Schedule_SelectLanguage_Es_81562", "es", "es"},
    {"LN_Schedule_SelectLanguage_Pt_81562", "pt-pt", "pt"},
    {"LN_Schedule_SelectLanguage_Ko_81562", "ko-KO", "ko"},
    {"LN_Schedule_SelectLanguage_It_81562", "it-IT", "it"},
    {"LN_Schedule_SelectLanguage_Vi_81562", "vi-VN", "vi"},
}};

// The row that a language tag selects; 0 for one that no row knows.
int invitationLanguageIndex(std::string_view language);
// The code of a row; "en" for an index outside.
std::string_view invitationLanguageCode(std::int64_t index);
// Which language the popup begins with: the meeting's, the record's, each unless absent or empty, or the system's.
std::string initialInvitationLanguage(const OptionalText& meetings, const OptionalText& records,
                                      std::string_view systems);

}  // namespace vorn

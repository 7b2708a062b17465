#pragma once

// The keys of an appointment's plain form. Those of the dictionary that carries it come with them.

#include <string_view>

#include "host/proxies/vnMeetingInfoKeys.h"

namespace vorn {

inline constexpr std::string_view vn_ApptInfo_Subject = "subject";
inline constexpr std::string_view vn_ApptInfo_Location = "location";
inline constexpr std::string_view vn_ApptInfo_StartTime = "startTime";
inline constexpr std::string_view vn_ApptInfo_EndTime = "endTime";
inline constexpr std::string_view vn_ApptInfo_Duration = "duration";
inline constexpr std::string_view vn_ApptInfo_Recurrence = "recurrence";
inline constexpr std::string_view vn_ApptInfo_RecurrenceInfo = "recurrenceInfo";
inline constexpr std::string_view vn_ApptInfo_Attendees = "attendees";
inline constexpr std::string_view vn_ApptInfo_AttendeeName = "name";
inline constexpr std::string_view vn_ApptInfo_AttendeeEmail = "email";
inline constexpr std::string_view vn_ApptInfo_AttendeeType = "type";
inline constexpr std::string_view vn_ApptInfo_VnOIProperty = "vnOIProperty";
inline constexpr std::string_view vn_ApptInfo_OlApptUUID = "olApptUUID";
inline constexpr std::string_view vn_ApptInfo_OnbehalfEmailAddress = "onbehalfEmailAddress";
inline constexpr std::string_view vn_ApptInfo_Timezone = "timezone";
inline constexpr std::string_view vn_ApptInfo_CalDate_UTCTime = "UTCTime";
inline constexpr std::string_view vn_ApptInfo_CalDate_LocalTime = "localTime";
inline constexpr std::string_view vn_ApptInfo_Recurrence_EndDateType = "endDateType";
inline constexpr std::string_view vn_ApptInfo_Recurrence_Occurrences = "occurrences";
inline constexpr std::string_view vn_ApptInfo_Recurrence_DatePatternStart = "datePatternStart";
inline constexpr std::string_view vn_ApptInfo_Recurrence_DatePatternEnd = "datePatternEnd";

// Declared for the pattern of a series. Nothing fills them: the host gives no pattern to read.
inline constexpr std::string_view vn_ApptInfo_Recurrence_Type = "type";
inline constexpr std::string_view vn_ApptInfo_Recurrence_PatternStartDay = "patternStartDay";
inline constexpr std::string_view vn_ApptInfo_Recurrence_PatternStartTime = "patternStartTime";
inline constexpr std::string_view vn_ApptInfo_Recurrence_PatternEndDay = "patternEndDay";
inline constexpr std::string_view vn_ApptInfo_Recurrence_PatternEndTime = "patternEndTime";
inline constexpr std::string_view vn_ApptInfo_Recurrence_Instance = "instance";
inline constexpr std::string_view vn_ApptInfo_Recurrence_Interval = "interval";
inline constexpr std::string_view vn_ApptInfo_Recurrence_DayOfMonth = "dayOfMonth";
inline constexpr std::string_view vn_ApptInfo_Recurrence_DayOfWeekMask = "dayOfWeekMask";
inline constexpr std::string_view vn_ApptInfo_Recurrence_MonthOfYear = "monthOfYear";
inline constexpr std::string_view vn_ApptInfo_Recurrence_StartTime = "startTime";
inline constexpr std::string_view vn_ApptInfo_Recurrence_EndTime = "endTime";
inline constexpr std::string_view vn_ApptInfo_Recurrence_Duration = "duration";

}  // namespace vorn

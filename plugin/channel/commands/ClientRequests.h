#pragma once

// The numbers that are spoken with the desktop client.

#include <string_view>

namespace vorn {

// The action of a request. Most meeting requests travel on the carrier, and their first field tells which they
// are.
namespace RequestAction {
inline constexpr unsigned kStartMeeting = 2;
inline constexpr unsigned kCarrier = 3;
inline constexpr unsigned kGetUserProfile = 6;
inline constexpr unsigned kGetPAC = 9;
inline constexpr unsigned kGetScheduleForList = 11;
}  // namespace RequestAction

// The first field of a carrier's content, and the action of the reply to it. Every other reply has the action of
// its request.
namespace InnerOperation {
inline constexpr int kSchedule = 1;
inline constexpr int kUpdate = 2;
inline constexpr int kDelete = 3;
inline constexpr int kGetMeeting = 4;
inline constexpr int kGetMeetingByApptUUID = 10;
}  // namespace InnerOperation

// Tells the client where a request comes from.
inline constexpr std::string_view kRequestSource = "msOutlook";

}  // namespace vorn

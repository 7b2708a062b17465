#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "data/AudioType.h"
#include "data/vnSettingKeys.h"
#include "data/vnUserProfileHelper.h"
#include "host/proxies/vnApptInfoKeys.h"
#include "util/Text.h"
#include "workflow/vnMeetingDataMgr.h"

namespace vorn {

namespace {

constexpr std::array kBooleans = {
    vn_Setting_EnableHostVideo,
    vn_Setting_EnableParticipantsVideo,
    vn_Setting_EnableJBH,
    vn_Setting_IsPMI,
    vn_Setting_IsSignedInUsersMeetingOn,
    vn_Setting_MuteUponEntry,
    vn_Setting_EnableAddMeetingToPublicEvent,
    vn_Setting_EnableAudioWatermark,
    vn_Setting_EnableWaitingRoom,
    vn_Setting_EnableRegionCustomization,
    vn_Setting_EnableUnmuteAll,
    vn_Setting_EnableE2ee,
    vn_Setting_EnableAllowDenyJoinMeetingRegion,
};

constexpr std::array kIntegers = {
    vn_Setting_AudioOption,
    vn_Setting_EnableAutoRecordingType,
    vn_Setting_JBHPriorTime,
};

// Two absent texts are equal, an absent and an empty one as well.
bool sameText(const Value& a, const Value& b) { return a.text() == b.text(); }

bool isAppointmentChanged(const Value& now, const Value& old) {
  const bool topicIsStored = !vnUserProfileHelper::sharedInstance().enableNotStoreMeetingTopic();
  if (topicIsStored && !sameText(now[vn_ApptInfo_Subject], old[vn_ApptInfo_Subject])) return true;
  // Texts, not instants: equal times that are written differently count as changed.
  if (!sameText(now[vn_ApptInfo_StartTime][vn_ApptInfo_CalDate_UTCTime],
                old[vn_ApptInfo_StartTime][vn_ApptInfo_CalDate_UTCTime])) {
    return true;
  }
  if (now[vn_ApptInfo_Duration].stringValue() != old[vn_ApptInfo_Duration].stringValue()) return true;
  if (now[vn_ApptInfo_Recurrence].boolValue() != old[vn_ApptInfo_Recurrence].boolValue()) return true;
  const Value& uuid = now[vn_ApptInfo_OlApptUUID];
  return uuid.isText() && !sameText(uuid, old[vn_ApptInfo_OlApptUUID]);
}

bool isPasscodeChanged(const Value& now, const Value& old) {
  // A passcode that is no longer wanted is a change as long as the meeting still has one.
  if (!now[vn_Setting_RequiredMPW].boolValue()) return !old[vn_Setting_MeetingPassword].text().empty();
  return !sameText(now[vn_Setting_MeetingPassword], old[vn_Setting_MeetingPassword]);
}

// The names of a list in a form in which case does not count.
using FoldedNames = std::unordered_set<std::string>;

// An empty name is never found.
bool isStrInAnotherArray(const std::string& text, const FoldedNames& anotherArray) {
  return !text.empty() && anotherArray.count(caseFolded(text)) > 0;
}

// Lists of names: order and case do not matter.
bool isListChanged(const Value& now, const Value& old) {
  const auto& items = now.items();
  const auto& oldItems = old.items();
  if (items.size() != oldItems.size()) return true;
  // Mostly nobody has touched the list, and nothing has to be folded to see that.
  const auto isSameName = [](const Value& a, const Value& b) { return !a.text().empty() && a.text() == b.text(); };
  if (std::equal(items.begin(), items.end(), oldItems.begin(), isSameName)) return false;
  FoldedNames known;
  for (const Value& item : oldItems) known.insert(caseFolded(item.text()));
  return std::any_of(items.begin(), items.end(),
                     [&](const Value& item) { return !isStrInAnotherArray(item.text(), known); });
}

// Views into the list that was read.
using ValuesById = std::unordered_map<std::string_view, std::string_view>;

// An id that the list does not have counts as a field with the empty value.
std::string_view getTrackingFieldMtValueWithId(const ValuesById& fields, const std::string& id) {
  const auto found = fields.find(id);
  return found == fields.end() ? std::string_view() : found->second;
}

bool areSettingsChanged(const Value& now, const Value& old) {
  const auto booleanDiffers = [&](std::string_view key) { return now[key].boolValue() != old[key].boolValue(); };
  const auto integerDiffers = [&](std::string_view key) {
    return now[key].integerValue() != old[key].integerValue();
  };
  if (std::any_of(kBooleans.begin(), kBooleans.end(), booleanDiffers)) return true;
  if (std::any_of(kIntegers.begin(), kIntegers.end(), integerDiffers)) return true;
  if (isPasscodeChanged(now, old)) return true;
  // The text of third-party audio counts only where that is chosen.
  if (now[vn_Setting_AudioOption].integerValue() == kAudioThirdParty &&
      !sameText(now[vn_Setting_ThirdPartyAudio], old[vn_Setting_ThirdPartyAudio])) {
    return true;
  }
  if (now[vn_Setting_IsSignedInUsersMeetingOn].boolValue() &&
      !sameText(now[vn_Setting_RestrictJoinDomains], old[vn_Setting_RestrictJoinDomains])) {
    return true;
  }
  return vnMeetingDataMgr::isTrackingFieldChanged(now, old) ||
         vnMeetingDataMgr::isAlternateHostChanged(now, old) ||
         vnMeetingDataMgr::isDialinCountryContentChanged(now[vn_Setting_AvailableDialinCountry],
                                                         old[vn_Setting_AvailableDialinCountry]) ||
         !sameText(now[vn_Setting_SelectInvitationLanguage], old[vn_Setting_SelectInvitationLanguage]);
}

}  // namespace

bool vnMeetingDataMgr::isMeetingChanged(const Value& meetingData, const Value& oldMeetingInfo) {
  return isAppointmentChanged(meetingData[vn_Outlook_ApptInfo], oldMeetingInfo[vn_Outlook_ApptInfo]) ||
         areSettingsChanged(meetingData[vn_Setting], oldMeetingInfo[vn_Setting]);
}

bool vnMeetingDataMgr::isTrackingFieldChanged(const Value& newSettings, const Value& oldSettings) {
  const Value& now = newSettings[vn_Setting_TrackingFields];
  const Value& old = oldSettings[vn_Setting_TrackingFields];
  if (now.items().size() != old.items().size()) return true;
  ValuesById oldValues;
  oldValues.reserve(old.items().size());
  for (const Value& field : old.items()) {
    oldValues.emplace(field[vn_Setting_TrackingFields_Id].text(), field[vn_Setting_TrackingFields_MtValue].text());
  }
  const auto& fields = now.items();
  return std::any_of(fields.begin(), fields.end(), [&](const Value& field) {
    return field[vn_Setting_TrackingFields_MtValue].text() !=
           getTrackingFieldMtValueWithId(oldValues, field[vn_Setting_TrackingFields_Id].text());
  });
}

bool vnMeetingDataMgr::isAlternateHostChanged(const Value& newSettings, const Value& oldSettings) {
  return isListChanged(newSettings[vn_Setting_AlternateHosts], oldSettings[vn_Setting_AlternateHosts]);
}

bool vnMeetingDataMgr::isDialinCountryContentChanged(const Value& newCountries, const Value& oldCountries) {
  if (newCountries.isAbsent() || oldCountries.isAbsent())
    return newCountries.isAbsent() != oldCountries.isAbsent();
  return isListChanged(newCountries[vn_Setting_DialinCountry_SelectedCountries],
                       oldCountries[vn_Setting_DialinCountry_SelectedCountries]) ||
         newCountries[vn_Setting_DialinCountry_IncludeTollfree].boolValue() !=
             oldCountries[vn_Setting_DialinCountry_IncludeTollfree].boolValue();
}

}  // namespace vorn

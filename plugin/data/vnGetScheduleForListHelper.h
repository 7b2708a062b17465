#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/VNAvailableDialinCountryContent.h"
#include "util/Value.h"

namespace vorn {

// The people for whom the user may schedule, each with option words and settings of their own. Main thread only.
//
// An absent, empty or unknown e-mail gives false, 0 or absent; e-mails compare without case.
class vnGetScheduleForListHelper {
 public:
  static vnGetScheduleForListHelper& sharedInstance();

  // Replaces the list with the client's dictionary. Absent is ignored.
  void setData(const Value& list);
  void clearScheduleForList();
  bool hasScheduleForList() const { return m_list.count() > 0; }
  // The array of person dictionaries; absent when the list has none.
  Value bossesInfo() const;
  Value bossesInfoWithScheduleForEmail(const OptionalText& email) const;

  std::optional<VNAvailableDialinCountryContent> getAvailableDialinCountry(const OptionalText& email) const;
  OptionalText getPMIMeetingIDWithScheduleForEmail(const OptionalText& email) const;

  // Keeps a personal meeting's information with the person whose personal number is its "meetingKey". Nothing for
  // a number that nobody has.
  void setPMIInfoWithScheduleFor(const Value& meetingInfo);
  // What was kept for that person; absent when nothing was.
  Value pmiInfoWithScheduleFor(const OptionalText& email) const;
  // Keeps the information of a personal meeting that was scheduled for somebody; nothing for any other meeting.
  void refreshPMIInfoWithScheduleFor(const Value& meetingInfo);

  bool isSupportAdditionalDc(const OptionalText& email) const;
  bool isEnableadditionaldc(const OptionalText& email) const;
  Value getWebUncheckedDCInfos(const OptionalText& email) const;

  std::int64_t userOption(const OptionalText& email) const;
  std::int64_t userOptions2(const OptionalText& email) const;
  std::int64_t userOptions3(const OptionalText& email) const;
  std::int64_t userOptions4(const OptionalText& email) const;
  std::int64_t userOptions5(const OptionalText& email) const;

  void cleanup() { m_list = Value(); }

 private:
  // The index of the first person with the personal number, ignoring case.
  std::optional<std::size_t> personWithPMI(const std::string& number) const;
  void keepPMIInfo(std::size_t person, const Value& meetingInfo);

  Value m_list = Value::dictionary();
};

}  // namespace vorn
